#include "recordingsettings.h"

#include <QSettings>
#include <QStandardPaths>

RecordingSettings RecordingSettings::saved()
{
    RecordingSettings result;
    QSettings settings;
    settings.beginGroup(QStringLiteral("recording"));
    result.budget = qBound(
        leastBudget, settings.value(QStringLiteral("budget"), result.budget).toInt(), mostBudget);
    result.memory = qBound(
        leastMemory, settings.value(QStringLiteral("memory"), result.memory).toInt(), mostMemory);
    result.folder = settings.value(QStringLiteral("folder")).toString();
    if (result.folder.isEmpty())
        result.folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return result;
}

void RecordingSettings::save() const
{
    QSettings settings;
    settings.beginGroup(QStringLiteral("recording"));
    settings.setValue(QStringLiteral("budget"), budget);
    settings.setValue(QStringLiteral("memory"), memory);
    settings.setValue(QStringLiteral("folder"), folder);
}
