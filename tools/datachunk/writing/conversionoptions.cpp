#include "conversion.h"
#include "terminal.h"

namespace {

bool readTimes(const QCommandLineParser &parser, Conversion &conversion)
{
    const QString times = parser.value(QStringLiteral("times"));
    const bool isDelta = times == QLatin1String("delta");
    conversion.times = isDelta ? TraceExport::Delta : TraceExport::Absolute;
    if (!parser.isSet(QStringLiteral("times")) || isDelta || times == QLatin1String("absolute"))
        return true;
    usageError(Cli::tr("--times takes absolute or delta, not \"%1\"").arg(times));
    return false;
}

bool readFormat(const QCommandLineParser &parser, const std::optional<TargetFormat> &otherwise,
                Conversion &conversion)
{
    const QString name = parser.value(QStringLiteral("as"));
    auto format =
        name.isEmpty() ? TargetFormat::ofFile(conversion.target) : TargetFormat::named(name);
    if (!format && name.isEmpty())
        format = otherwise;
    if (format)
        conversion.format = *format;
    else if (!name.isEmpty())
        usageError(Cli::tr("there is no format \"%1\"; the formats are %2")
                       .arg(name, TargetFormat::allNames()));
    else
        usageError(Cli::tr("\"%1\" does not end in the name of a format; tell it with --as: %2")
                       .arg(conversion.target, TargetFormat::allNames()));
    return format.has_value();
}

} // namespace

QList<QCommandLineOption> conversionOptions()
{
    return {{QStringLiteral("as"),
             Cli::tr("Write this format instead of the one that the name ends in: %1.")
                 .arg(TargetFormat::allNames()),
             QStringLiteral("NAME")},
            {QStringLiteral("times"),
             Cli::tr("Write times as absolute ones, or as delta to the message before, where the "
                     "format knows both (asc, candump-screen)."),
             QStringLiteral("absolute|delta")},
            {QStringLiteral("notes"),
             Cli::tr("Write the notes into a text (txt), too; all other formats that can have "
                     "them, do.")}};
}

bool readConversion(const QCommandLineParser &parser, const TraceFile &trace,
                    const std::optional<TargetFormat> &otherwise, Conversion &conversion)
{
    conversion.withNotes = parser.isSet(QStringLiteral("notes"));
    conversion.reportsAsJson = trace.reportsAsJson;
    conversion.failsOnLoss = trace.failsOnLoss;
    return readTimes(parser, conversion) && readFormat(parser, otherwise, conversion)
        && conversion.selection.read(parser);
}
