#include "traceformat.h"

#include "parquettrace.h"
#include "texts.h"
#include "traceexport.h"

namespace {

py::dict resultOf(quint64 written, quint64 leftOut, const py::dict &losses)
{
    py::dict result;
    result["written"] = written;
    result["leftOut"] = leftOut;
    result["losses"] = losses;
    return result;
}

class TextFormat : public TraceFormat
{
public:
    explicit TextFormat(TraceExport::Format format) : text(format) { }

    void append(const CAN::CanRxMessage &message, const QString &note, QByteArray &block) override
    {
        text.append(message, note, block);
    }
    void finish(QByteArray &block) override { text.finish(block); }
    py::dict losses() const override
    {
        py::dict counts;
        for (const TraceExport::LossCount &loss : text.losses())
            counts[textFor(TraceExport::lossName(loss.loss))] = loss.messages;
        return resultOf(text.written(), text.leftOut(), counts);
    }

private:
    TraceExport text;
};

class ParquetFormat : public TraceFormat
{
public:
    explicit ParquetFormat(const ParquetTrace::Source &source) : source(source), trace(source) { }

    void append(const CAN::CanRxMessage &message, const QString &note, QByteArray &block) override
    {
        trace.append(message, note, block);
    }
    void setReport(const QString &report) override
    {
        source.report = report;
        trace.setSource(source);
    }
    void finish(QByteArray &block) override { trace.finish(block); }
    py::dict losses() const override
    {
        py::dict counts;
        if (trace.notesCut() > 0)
            counts[textFor(TraceExport::lossName(TraceExport::NoteCut))] = trace.notesCut();
        return resultOf(trace.written(), 0, counts);
    }

private:
    ParquetTrace::Source source;
    ParquetTrace trace;
};

QString textIn(const py::dict &texts, const char *name)
{
    return texts.contains(name) ? textFrom(texts[name]) : QString();
}

} // namespace

std::unique_ptr<TraceFormat> TraceFormat::named(const py::str &name, const py::dict &source)
{
    if (textFrom(name) == QLatin1String("parquet"))
        return std::make_unique<ParquetFormat>(ParquetTrace::Source{
            textIn(source, "name"), textIn(source, "sha256").toLatin1(), textIn(source, "report")});
    const auto format = TraceExport::formatNamed(textFrom(name));
    if (!format)
        throw py::value_error("There is no such format: " + std::string(name));
    return std::make_unique<TextFormat>(*format);
}
