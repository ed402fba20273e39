#pragma once

/// \file
/// Quantities in the words of the user.

#include <QString>
#include <QStringList>

/// "1,234 messages".
QString messagesText(quint64 count);
/// "12 s", "3 min", "1 h 20 min".
QString durationText(qint64 milliseconds);
/// The last part of a path, or all of it where there is none.
QString shortName(const QString &path);
/// "a.dck and 3 more".
QString shortNames(const QStringList &paths);
/// The first sentences, and how many more there are.
QString firstSentences(const QStringList &sentences);
