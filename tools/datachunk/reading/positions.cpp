#include "positions.h"

#include "options.h"
#include "terminal.h"

#include <QStringList>

namespace {

// An option that a command does not have is one that is not set.
QString valueOf(const QCommandLineParser &parser, const QString &name)
{
    return parser.optionNames().contains(name) ? parser.value(name) : QString();
}

bool isSet(const QCommandLineParser &parser, const QString &name)
{
    return parser.optionNames().contains(name);
}

} // namespace

bool Positions::read(const QCommandLineParser &parser)
{
    const bool hasRange = isSet(parser, QStringLiteral("range"));
    const bool hasSingle = isSet(parser, QStringLiteral("select"));
    if (hasRange && hasSingle) {
        usageError(Cli::tr("--range and --select exclude each other"));
        return false;
    }
    const QString range = valueOf(parser, QStringLiteral("range"));
    const QString select = valueOf(parser, QStringLiteral("select"));
    if (hasRange && !readRange(range)) {
        usageError(
            Cli::tr("--range takes two positions in order, as in 10:19, not \"%1\"").arg(range));
        return false;
    }
    if (hasSingle && !readSingle(select)) {
        usageError(Cli::tr("--select takes positions, as in 1,5,7, not \"%1\"").arg(select));
        return false;
    }
    return readEnds(parser);
}

bool Positions::readEnds(const QCommandLineParser &parser)
{
    constexpr quint64 unlimited = std::numeric_limits<qint64>::max();
    quint64 from = 0;
    quint64 until = most;
    if (!numberOption(parser, QStringLiteral("from"), 0, unlimited, from, from)
        || !numberOption(parser, QStringLiteral("until"), 0, unlimited, until, until))
        return false;
    begin = std::max(begin, from);
    end = std::min(end, until);
    return true;
}

bool Positions::readRange(const QString &text)
{
    const QStringList ends = text.split(QLatin1Char(':'));
    bool beginIsNumber = false;
    bool endIsNumber = false;
    begin = ends.first().toULongLong(&beginIsNumber);
    end = ends.last().toULongLong(&endIsNumber);
    return ends.size() == 2 && beginIsNumber && endIsNumber && begin <= end;
}

bool Positions::readSingle(const QString &text)
{
    const QStringList numbers = text.split(QLatin1Char(','));
    for (const QString &number : numbers) {
        bool isNumber = false;
        single.push_back(number.toULongLong(&isNumber));
        if (!isNumber)
            return false;
    }
    std::sort(single.begin(), single.end());
    end = single.back();
    return true;
}
