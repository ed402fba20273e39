#include "quantities.h"

#include "terminal.h"

#include <array>
#include <optional>

namespace {

struct Unit
{
    const char *name;
    qint64 factor;
};
using Units = std::array<Unit, 5>; // from the largest to the smallest; "" is that of plain numbers

constexpr Units timeUnits = {
    {{"h", 3600000000}, {"min", 60000000}, {"s", 1000000}, {"", 1000000}, {"ms", 1000}}};
constexpr Units sizeUnits = {{{"GiB", 1024LL * 1024 * 1024},
                              {"MiB", 1024LL * 1024},
                              {"", 1024LL * 1024},
                              {"KiB", 1024},
                              {"B", 1}}};

std::optional<qint64> quantityOf(const QString &text, const Units &units, qint64 most)
{
    int digits = 0;
    while (digits < text.size() && text.at(digits) >= QLatin1Char('0')
           && text.at(digits) <= QLatin1Char('9'))
        ++digits;
    bool isNumber = false;
    const qint64 number = text.left(digits).toLongLong(&isNumber);
    const QString name = text.mid(digits);
    for (const Unit &unit : units) {
        if (isNumber && name == QLatin1String(unit.name) && number <= most / unit.factor)
            return number * unit.factor;
    }
    return {};
}

// In the largest unit that tells it exactly.
QString quantityText(qint64 quantity, const Units &units)
{
    for (const Unit &unit : units) {
        if (*unit.name && quantity >= unit.factor && quantity % unit.factor == 0)
            return QString::number(quantity / unit.factor) + QLatin1String(unit.name);
    }
    return QString::number(quantity);
}

bool quantityOption(const QCommandLineParser &parser, const QString &name, const Units &units,
                    qint64 least, qint64 most, qint64 &value)
{
    if (!parser.isSet(name))
        return true;
    const QString text = parser.value(name);
    const std::optional<qint64> quantity = quantityOf(text, units, most);
    if (quantity && *quantity >= least) {
        value = *quantity;
        return true;
    }
    usageError(Cli::tr("--%1 takes a value from %2 to %3, not \"%4\"")
                   .arg(name, quantityText(least, units), quantityText(most, units), text));
    return false;
}

} // namespace

bool timeOption(const QCommandLineParser &parser, const QString &name, qint64 least, qint64 most,
                qint64 byDefault, qint64 &microseconds)
{
    microseconds = byDefault;
    return quantityOption(parser, name, timeUnits, least, most, microseconds);
}

bool sizeOption(const QCommandLineParser &parser, const QString &name, qint64 least, qint64 most,
                qint64 byDefault, qint64 &bytes)
{
    bytes = byDefault;
    return quantityOption(parser, name, sizeUnits, least, most, bytes);
}
