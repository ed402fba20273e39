#include "positions.h"

#include "terminal.h"

#include <QStringList>

#include <algorithm>

QList<QCommandLineOption> positionOptions()
{
    return {{QStringLiteral("range"),
             Cli::tr("Take only the messages from position A to B, both included; the first "
                     "message is at 0."),
             QStringLiteral("A:B")},
            {QStringLiteral("select"), Cli::tr("Take only the messages at these positions."),
             QStringLiteral("N,N,...")}};
}

bool Positions::read(const QCommandLineParser &parser)
{
    const bool hasRange = parser.isSet(QStringLiteral("range"));
    const bool hasSingle = parser.isSet(QStringLiteral("select"));
    if (hasRange && hasSingle) {
        usageError(Cli::tr("--range and --select exclude each other"));
        return false;
    }
    const QString range = parser.value(QStringLiteral("range"));
    const QString select = parser.value(QStringLiteral("select"));
    if (hasRange && !readRange(range)) {
        usageError(
            Cli::tr("--range takes two positions in order, as in 10:19, not \"%1\"").arg(range));
        return false;
    }
    if (hasSingle && !readSingle(select)) {
        usageError(Cli::tr("--select takes positions, as in 1,5,7, not \"%1\"").arg(select));
        return false;
    }
    return true;
}

bool Positions::contains(quint64 position) const
{
    if (!single.empty())
        return std::binary_search(single.begin(), single.end(), position);
    return position >= begin && position <= end;
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
