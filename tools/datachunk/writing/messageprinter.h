#pragma once

#include "savefileworker.h"
#include "traceexport.h"

using FoundPlace = TraceExport::Place;

/// Prints messages to standard output, one a line, many lines at a time.
class MessagePrinter
{
public:
    enum Form { Text, Json };

    explicit MessagePrinter(Form form) : form(form) { }

    /// False when nobody takes the output any more. With a \a place, a line of text begins with the
    /// position, and with ":" or, for context, "-".
    bool print(const CAN::CanRxMessage &message, const QString &note,
               const FoundPlace *place = nullptr);
    /// A line that parts messages which do not stand together.
    bool printPart();
    /// Prints what waits. finishOutput() tells when that fails.
    bool flush();

private:
    bool printText(const CAN::CanRxMessage &message, const QString &note, const FoundPlace *place);
    bool flushWhenFull();

    const Form form;
    SaveFileWorker worker; // without notes of its own
    QByteArray block;
};
