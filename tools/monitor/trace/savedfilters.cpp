#include "savedfilters.h"

#include <QSettings>

#include <algorithm>

namespace {

const auto group = QStringLiteral("trace/filters");
const auto nameKey = QStringLiteral("name");
const auto expressionKey = QStringLiteral("expression");
const auto recentKey = QStringLiteral("trace/recent filters");

} // namespace

QVector<SavedFilters::Filter> SavedFilters::all()
{
    QSettings settings;
    QVector<Filter> filters;
    const int count = std::min(settings.beginReadArray(group), most);
    for (int i = 0; i < count; ++i) {
        settings.setArrayIndex(i);
        filters.append(
            {settings.value(nameKey).toString(), settings.value(expressionKey).toString()});
    }
    return filters;
}

void SavedFilters::setAll(const QVector<Filter> &filters)
{
    QSettings settings;
    settings.remove(group);
    settings.beginWriteArray(group, filters.size());
    for (int i = 0; i < filters.size(); ++i) {
        settings.setArrayIndex(i);
        settings.setValue(nameKey, filters.at(i).name);
        settings.setValue(expressionKey, filters.at(i).expression);
    }
    settings.endArray();
}

void SavedFilters::add(const Filter &filter)
{
    QVector<Filter> filters = all();
    const auto same = std::find_if(filters.begin(), filters.end(),
                                   [&](const Filter &other) { return other.name == filter.name; });
    if (same != filters.end())
        *same = filter;
    else if (filters.size() < most)
        filters.append(filter);
    setAll(filters);
}

QStringList SavedFilters::recent()
{
    return QSettings().value(recentKey).toStringList();
}

void SavedFilters::addRecent(const QString &expression)
{
    QStringList texts = recent();
    texts.removeAll(expression);
    texts.prepend(expression);
    QSettings().setValue(recentKey, QStringList(texts.mid(0, mostRecent)));
}
