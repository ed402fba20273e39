#pragma once

#include "conversionreport.h"
#include "parquettrace.h"

#include <functional>
#include <memory>

/// Turns messages into the bytes of a format.
class MessageEncoder
{
public:
    virtual ~MessageEncoder() = default;

    virtual void append(const CAN::CanRxMessage &message, const QString &note,
                        QByteArray &bytes) = 0;
    /// Adds the end; nothing may follow.
    virtual void finish(QByteArray &bytes) = 0;
    /// What was written so far, and what could not be said.
    virtual ConversionLosses losses() const = 0;
};

std::unique_ptr<MessageEncoder> textEncoder(TraceExport::Format format, TraceExport::Times times);

/// \a source is asked at the end, when the trace is read.
std::unique_ptr<MessageEncoder> parquetEncoder(std::function<ParquetTrace::Source()> source);
