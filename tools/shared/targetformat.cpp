#include "targetformat.h"

#include "chunknames.h"

namespace {

const QString chunk = QStringLiteral("dck");
const QString text = QStringLiteral("txt");
const QString parquet = QStringLiteral("parquet");

std::optional<TargetFormat> foreignFormat(std::optional<TraceExport::Format> format)
{
    return format ? std::optional<TargetFormat>({TargetFormat::Foreign, *format}) : std::nullopt;
}

} // namespace

std::optional<TargetFormat> TargetFormat::named(const QString &name)
{
    if (name.compare(chunk, Qt::CaseInsensitive) == 0)
        return TargetFormat{OwnChunk};
    if (name.compare(text, Qt::CaseInsensitive) == 0)
        return TargetFormat{OwnText};
    if (name.compare(parquet, Qt::CaseInsensitive) == 0)
        return TargetFormat{Parquet};
    return foreignFormat(TraceExport::formatNamed(name));
}

std::optional<TargetFormat> TargetFormat::ofFile(const QString &fileName)
{
    if (isChunkName(fileName))
        return TargetFormat{OwnChunk};
    if (fileName.endsWith(QLatin1Char('.') + text, Qt::CaseInsensitive))
        return TargetFormat{OwnText};
    if (fileName.endsWith(QLatin1Char('.') + parquet, Qt::CaseInsensitive))
        return TargetFormat{Parquet};
    return foreignFormat(TraceExport::formatOfFile(fileName));
}

QString TargetFormat::allNames()
{
    return (QStringList{chunk, text} + TraceExport::formatNames() + QStringList(parquet))
        .join(QLatin1String(", "));
}

QString TargetFormat::name() const
{
    if (kind != Foreign)
        return kind == OwnChunk ? chunk : kind == OwnText ? text : parquet;
    return TraceExport::formatNames().at(foreign);
}

QString TargetFormat::suffix() const
{
    if (kind != Foreign)
        return name();
    switch (foreign) {
    case TraceExport::Candump:
        return QStringLiteral("log");
    case TraceExport::CandumpScreen:
        return text;
    case TraceExport::PeakTrc11:
    case TraceExport::PeakTrc21:
        return QStringLiteral("trc");
    default:
        return name();
    }
}
