#pragma once

#include "tracedump.h"
#include "tracereader.h"

#include <QBuffer>
#include <QStringList>

/// Keeps what a reader reports as texts, in order.
class RecordingSink : public TraceSink
{
public:
    bool message(const CAN::CanRxMessage &message) override
    {
        messages.append(message);
        events.append(messageDump(message));
        return true;
    }
    void note(quint32 number, const QString &text) override
    {
        events.append(QStringLiteral("%1: ").arg(number) + text);
    }
    void appendNote(quint32 number, const QString &text) override
    {
        events.append(QStringLiteral("%1: | ").arg(number) + text);
    }
    void fdFrames(bool seen) override { events.append(seen ? "fd: true" : "fd: false"); }
    bool turnEventLoop() override
    {
        ++turns;
        return true;
    }

    QVector<CAN::CanRxMessage> messages;
    QStringList events; ///< messages, notes and FD reports in the form of the .expected files
    int turns = 0;
};

/// Reads \a text as a trace of a type without any file.
inline ReadResult readTrace(QByteArray text, const TraceRequest &request, TraceSink &sink,
                            LineSource::Decoding decoding = LineSource::Decoding::WhereNeeded)
{
    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    const TraceReader &reader = traceReaderFor(request.type);
    LineSource lines(buffer, reader.carriageReturns, decoding);
    return reader.read(lines, sink, request);
}
