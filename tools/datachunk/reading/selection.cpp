#include "selection.h"

#include "options.h"
#include "terminal.h"
#include "timespan.h"

#include <QRegularExpression>

namespace {

// Shows where a text is no expression.
void printExpressionError(QString text, const TraceExpression::Error &error)
{
    for (QChar &c : text) {
        if (!c.isPrint())
            c = QLatin1Char(' ');
    }
    usageError(Cli::tr("The filter is wrong in column %1: %2").arg(error.column).arg(error.text)
               + QLatin1Char('\n') + text + QLatin1Char('\n')
               + QString(error.column - 1, QLatin1Char(' ')) + QLatin1Char('^'));
}

// Expressions name no identifier of more than 29 bits, but a damaged trace may have one.
QString testOfLongIdentifier(quint32 id)
{
    constexpr quint32 identifierBits = 0x1FFFFFFF;
    QString test = QStringLiteral("id&1fffffff==%1").arg(id & identifierBits, 0, 16);
    for (quint32 bit = identifierBits + 1; bit != 0; bit <<= 1)
        test += QStringLiteral(" and %1id&%2==0")
                    .arg(QLatin1String((id & bit) != 0 ? "not " : ""))
                    .arg(bit, 0, 16);
    return QLatin1Char('(') + test + QLatin1Char(')');
}

// A list of identifiers and ranges of them.
QString identifierTest(const QString &list)
{
    constexpr quint32 highest = 0x1FFFFFFF;
    constexpr quint32 errorFrames = 0xFFFF00EF;
    QStringList tests;
    const QStringList parts = list.split(QLatin1Char(','));
    for (const QString &part : parts) {
        bool isNumber = false;
        const quint32 id = part.toUInt(&isNumber, 16);
        const bool isLong = isNumber && id > highest && id != errorFrames;
        tests.append(isLong ? testOfLongIdentifier(id) : QStringLiteral("id in ") + part);
    }
    return QLatin1Char('(') + tests.join(QLatin1String(" or ")) + QLatin1Char(')');
}

QString lineTest(const QString &list)
{
    return QStringLiteral("line in ") + list;
}

// An option whose value is a list of numbers and ranges, and the expression for it.
struct ListOption
{
    const char *name;
    const char *shape; ///< of the value
    QString (*test)(const QString &list);
    const char *error;
};

constexpr ListOption listOptions[] = {
    {"id", "[0-9a-fA-FxX.,]+", identifierTest,
     QT_TRANSLATE_NOOP("Cli",
                       "--id takes a number from 0 to ffffffff, or several as in 1a0,200..2ff, not "
                       "\"%1\"")},
    {"line", "[0-9.,]+", lineTest,
     QT_TRANSLATE_NOOP("Cli",
                       "--line takes a number from 0 to 255, or several as in 1,3..5, not \"%1\"")},
};

// False, with the error printed, when the value of an option gives no test.
bool readTest(const std::optional<QString> &test, const QString &error, TraceExpression &expression)
{
    const auto parsed = test ? TraceExpression::parse(*test) : std::nullopt;
    if (parsed)
        expression = *parsed;
    else
        usageError(error);
    return parsed.has_value();
}

bool readList(const ListOption &option, const QString &value, TraceExpression &expression)
{
    const QRegularExpression shape(
        QRegularExpression::anchoredPattern(QLatin1String(option.shape)));
    const bool isList = shape.match(value).hasMatch();
    return readTest(isList ? std::optional<QString>(option.test(value)) : std::nullopt,
                    Cli::tr(option.error).arg(value), expression);
}

bool readTimes(const QString &value, TraceExpression &expression)
{
    return readTest(timeSpanTest(value),
                    Cli::tr("--time takes two times in order, as in 12.5..13, "
                            "2026-11-22T10:15:00..2026-11-22T10:20:00 or 10:15:00.., not \"%1\"")
                        .arg(value),
                    expression);
}

struct OptionRow
{
    QStringList names;
    QString description;
    QString value;
};

QList<OptionRow> optionRows()
{
    return {
        {{QStringLiteral("from")},
         Cli::tr("Begin at this position; the first message is at 0."),
         QStringLiteral("N")},
        {{QStringLiteral("until"), QStringLiteral("to")},
         Cli::tr("End with the message at this position."),
         QStringLiteral("N")},
        {{QStringLiteral("count")}, Cli::tr("Take at most N messages."), QStringLiteral("N")},
        {{QStringLiteral("range")},
         Cli::tr("Take only the messages from position A to B, both included."),
         QStringLiteral("A:B")},
        {{QStringLiteral("select")},
         Cli::tr("Take only the messages at these positions."),
         QStringLiteral("N,N,...")},
        {{QStringLiteral("time")},
         Cli::tr("Take only messages from time A to B, both included: seconds, dates in UTC "
                 "(2026-11-22T10:15:00) or times of day (10:15:00); one may be left out."),
         QStringLiteral("A..B")},
        {{QStringLiteral("line")},
         Cli::tr("Take only messages of these bus lines (0 to 255), as in 1,3..5."),
         QStringLiteral("L,...")},
        {{QStringLiteral("id")},
         Cli::tr("Take only messages with these identifiers, as in 1a0,200..2ff."),
         QStringLiteral("HEX,...")},
        {{QStringLiteral("filter")},
         Cli::tr("Take only messages that this filter takes, as \"find\" has it."),
         QStringLiteral("EXPRESSION")},
    };
}

} // namespace

QList<QCommandLineOption> Selection::options(const QStringList &taken)
{
    QList<QCommandLineOption> options;
    for (const OptionRow &row : optionRows()) {
        QStringList names;
        for (const QString &name : row.names) {
            if (!taken.contains(name))
                names.append(name);
        }
        if (!names.isEmpty())
            options.append(QCommandLineOption(names, row.description, row.value));
    }
    return options;
}

bool Selection::read(const QCommandLineParser &parser, const QString &countOption)
{
    return numberOption(parser, countOption, 0, unlimited, unlimited, count) && wanted.read(parser)
        && readTests(parser);
}

bool Selection::readTests(const QCommandLineParser &parser)
{
    for (const ListOption &option : listOptions) {
        TraceExpression expression;
        const QLatin1String name(option.name);
        if (!parser.isSet(name))
            continue;
        if (!readList(option, parser.value(name), expression))
            return false;
        narrow(expression);
    }
    TraceExpression times;
    if (parser.isSet(QStringLiteral("time"))
        && !readTimes(parser.value(QStringLiteral("time")), times))
        return false;
    TraceExpression filter;
    if (!readExpression(parser.value(QStringLiteral("filter")), filter))
        return false;
    narrow(times);
    narrow(filter);
    return true;
}

Selection Selection::withoutPositions() const
{
    Selection everywhere;
    everywhere.taken = taken;
    return everywhere;
}

void Selection::narrow(const TraceExpression &other)
{
    taken = TraceExpression::both(taken, other);
}

bool readExpression(const QString &text, TraceExpression &expression)
{
    TraceExpression::Error error;
    const auto parsed = TraceExpression::parse(text, &error);
    if (parsed)
        expression = *parsed;
    else
        printExpressionError(text, error);
    return parsed.has_value();
}
