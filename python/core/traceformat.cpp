#include "traceformat.h"

#include "texts.h"
#include "traceexport.h"

namespace {

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
        py::dict result;
        result["written"] = text.written();
        result["leftOut"] = text.leftOut();
        result["losses"] = counts;
        return result;
    }

private:
    TraceExport text;
};

} // namespace

std::unique_ptr<TraceFormat> TraceFormat::named(const py::str &name, const py::dict &source)
{
    Q_UNUSED(source)
    const auto format = TraceExport::formatNamed(textFrom(name));
    if (!format)
        throw py::value_error("There is no such format: " + std::string(name));
    return std::make_unique<TextFormat>(*format);
}
