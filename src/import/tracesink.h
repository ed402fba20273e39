#pragma once

#include "canrxmessage.h"
#include "importreport.h"

#include <QString>

class UnpackedFile;

/// Takes what a reader finds in a trace, in the order of the file.
class TraceSink
{
public:
    virtual ~TraceSink() = default;

    /// False when the reader has to stop.
    virtual bool message(const CAN::CanRxMessage &message) = 0;

    /// A note on the message with \a number, in place of an earlier one.
    virtual void note(quint32 number, const QString &text) = 0;

    /// A note on the message with \a number, behind an earlier one and " | ".
    virtual void appendNote(quint32 number, const QString &text) = 0;

    /// Tells whether the trace holds CAN FD frames; only some formats say so.
    virtual void fdFrames(bool seen) = 0;

    /// Reading a file begins. It lives until the end of the reading, of which it tells how far it
    /// has come.
    virtual void begin(const UnpackedFile &) { }

    /// What became of the lines, once all are read.
    virtual void report(const ImportReport &) { }

    /// Lets a waiting application handle its events. False when the reader has to stop.
    virtual bool turnEventLoop() = 0;
};
