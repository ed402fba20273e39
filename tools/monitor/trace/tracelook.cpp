#include "tracelook.h"

#include <QSettings>

namespace {

const auto timeKey = QStringLiteral("trace/time");
const auto identifierKey = QStringLiteral("trace/number base");
const auto dataKey = QStringLiteral("trace/data base");

int baseOf(const QSettings &settings, const QString &key)
{
    return settings.value(key).toInt() == 10 ? 10 : 16;
}

} // namespace

TraceLook TraceLook::load()
{
    const QSettings settings;
    const int time = settings.value(timeKey, SinceStart).toInt();
    TraceLook look;
    // A mark does not outlast its trace.
    if (time >= 0 && time < timeCount && time != SinceMark)
        look.time = Time(time);
    look.identifierBase = baseOf(settings, identifierKey);
    look.dataBase = baseOf(settings, dataKey);
    return look;
}

void TraceLook::save() const
{
    QSettings settings;
    settings.setValue(timeKey, int(time));
    settings.setValue(identifierKey, identifierBase);
    settings.setValue(dataKey, dataBase);
}
