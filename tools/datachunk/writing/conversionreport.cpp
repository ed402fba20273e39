#include "conversionreport.h"

#include "conversion.h"
#include "jsontext.h"
#include "terminal.h"

#include <QJsonArray>
#include <QJsonObject>

#include <cstdio>

namespace {

QString countText(const ConversionLosses &losses)
{
    const QString written = Cli::tr("%1 messages").arg(losses.written);
    return losses.leftOut == 0 ? written : written + Cli::tr(", %1 left out").arg(losses.leftOut);
}

void printJson(const ConversionLosses &losses, const Conversion &conversion)
{
    QJsonArray rows;
    for (const ConversionLosses::Row &row : losses.rows)
        rows.append(QJsonObject{{QStringLiteral("what"), row.name},
                                {QStringLiteral("count"), qint64(row.messages)}});
    const QJsonObject object{{QStringLiteral("file"), conversion.target},
                             {QStringLiteral("format"), conversion.format.name()},
                             {QStringLiteral("written"), qint64(losses.written)},
                             {QStringLiteral("leftOut"), qint64(losses.leftOut)},
                             {QStringLiteral("losses"), rows}};
    const QByteArray json = jsonText(QJsonDocument(object)) + '\n';
    std::fwrite(json.constData(), 1, std::size_t(json.size()), stderr);
}

QString nameOf(const Conversion &conversion)
{
    return conversion.goesToOutput() ? Cli::tr("standard output") : conversion.target;
}

} // namespace

ConversionLosses::ConversionLosses(const TraceExport &trace)
    : written(trace.written()), leftOut(trace.leftOut())
{
    const QVector<TraceExport::LossCount> losses = trace.losses();
    for (const auto &[loss, messages] : losses)
        rows.append({TraceExport::lossText(loss, messages), TraceExport::lossName(loss), messages});
}

ConversionLosses::ConversionLosses(quint64 written, quint64 notesCut) : written(written)
{
    if (notesCut > 0)
        rows.append({TraceExport::lossText(TraceExport::NoteCut, notesCut),
                     TraceExport::lossName(TraceExport::NoteCut), notesCut});
}

void ConversionLosses::addBookmarks(quint64 bookmarks)
{
    if (bookmarks > 0)
        rows.append({Cli::tr("Not written: bookmarks (%1).").arg(bookmarks),
                     QStringLiteral("bookmark"), bookmarks});
}

QString ConversionLosses::line() const
{
    QStringList parts(countText(*this) + QLatin1Char('.'));
    for (const Row &row : rows)
        parts.append(row.text);
    return parts.join(QLatin1Char(' '));
}

void tellLosses(const ConversionLosses &losses, const Conversion &conversion)
{
    if (conversion.reportsAsJson) {
        printJson(losses, conversion);
        return;
    }
    if (!losses.areAny() || conversion.tellsCounts)
        return;
    QString text = Cli::tr("%1; the format %2 cannot say all:")
                       .arg(countText(losses), conversion.format.name());
    for (const ConversionLosses::Row &row : losses.rows)
        text += QLatin1Char('\n') + row.text;
    printError(nameOf(conversion), text);
}

void tellNotWritten(const QString &target, const QString &reason)
{
    if (target != QLatin1String("-"))
        printError(target,
                   Cli::tr("The file could not be written completely.")
                       + (reason.isEmpty() ? QString() : QLatin1Char(' ') + reason));
}
