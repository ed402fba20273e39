#pragma once

#include <QAbstractItemModel>

/// The words of filter expressions, to complete what is being written.
namespace FilterWords {

/// The word itself; the text for display explains it.
constexpr int wordRole = Qt::UserRole;

QAbstractItemModel *newModel(QObject *parent);

/// Where the word begins that ends at \a cursor; there, when no word does. Nothing is a word
/// between quotes.
int beginOfWord(const QString &text, int cursor);

} // namespace FilterWords
