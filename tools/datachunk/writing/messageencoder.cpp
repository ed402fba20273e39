#include "messageencoder.h"

namespace {

class TextEncoder : public MessageEncoder
{
public:
    TextEncoder(TraceExport::Format format, TraceExport::Times times) : trace(format, times) { }

    void append(const CAN::CanRxMessage &message, const QString &note, QByteArray &bytes) override
    {
        trace.append(message, note, bytes);
    }
    void finish(QByteArray &bytes) override { trace.finish(bytes); }
    ConversionLosses losses() const override { return ConversionLosses(trace); }

private:
    TraceExport trace;
};

class ParquetEncoder : public MessageEncoder
{
public:
    explicit ParquetEncoder(std::function<ParquetTrace::Source()> source)
        : source(std::move(source))
    {
    }

    void append(const CAN::CanRxMessage &message, const QString &note, QByteArray &bytes) override
    {
        trace.append(message, note, bytes);
    }
    void finish(QByteArray &bytes) override
    {
        trace.setSource(source());
        trace.finish(bytes);
    }
    ConversionLosses losses() const override
    {
        return ConversionLosses(trace.written(), trace.notesCut());
    }

private:
    const std::function<ParquetTrace::Source()> source;
    ParquetTrace trace;
};

} // namespace

std::unique_ptr<MessageEncoder> textEncoder(TraceExport::Format format, TraceExport::Times times)
{
    return std::make_unique<TextEncoder>(format, times);
}

std::unique_ptr<MessageEncoder> parquetEncoder(std::function<ParquetTrace::Source()> source)
{
    return std::make_unique<ParquetEncoder>(std::move(source));
}
