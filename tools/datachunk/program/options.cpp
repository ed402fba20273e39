#include "options.h"

#include "terminal.h"

bool numberOption(const QCommandLineParser &parser, const QString &name, quint64 least,
                  quint64 most, quint64 byDefault, quint64 &value, int base)
{
    value = byDefault;
    if (!parser.isSet(name))
        return true;
    bool isNumber = false;
    value = parser.value(name).toULongLong(&isNumber, base);
    if (isNumber && value >= least && value <= most)
        return true;
    usageError(Cli::tr("--%1 takes a number from %2 to %3, not \"%4\"")
                   .arg(name, QString::number(least, base), QString::number(most, base),
                        parser.value(name)));
    return false;
}
