#include "bitrates.h"

#include <QSettings>

#include <algorithm>

namespace {

QString keyOf(quint8 line, const char *name)
{
    return QStringLiteral("statistics/line%1/%2").arg(line).arg(QLatin1String(name));
}

} // namespace

double BitRates::load(const BusBits &bits) const
{
    return double(bits.nominal) / nominal + double(bits.data) / data;
}

BitRates BitRates::ofLine(quint8 line)
{
    const QSettings settings;
    const auto kept = [&](const char *name, int otherwise) {
        return std::clamp(settings.value(keyOf(line, name), otherwise).toInt(), least, most);
    };
    const BitRates usual;
    return {kept("bit rate", usual.nominal), kept("data bit rate", usual.data)};
}

void BitRates::keep(quint8 line) const
{
    QSettings settings;
    settings.setValue(keyOf(line, "bit rate"), nominal);
    settings.setValue(keyOf(line, "data bit rate"), data);
}
