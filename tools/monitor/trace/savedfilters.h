#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/// The filters that the user has kept under a name, and those that he used last; in the settings.
namespace SavedFilters {

struct Filter
{
    QString name;
    QString expression;
};

constexpr int most = 200;
constexpr int mostRecent = 20;

QVector<Filter> all();
void setAll(const QVector<Filter> &filters);
/// One of the same name is replaced.
void add(const Filter &filter);

/// The newest first.
QStringList recent();
void addRecent(const QString &expression);

} // namespace SavedFilters
