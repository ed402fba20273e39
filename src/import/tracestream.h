#pragma once

#include "canrxmessage.h"
#include "datachunkglobal.h"
#include "datachunkhelper.h"

#include <QString>

#include <functional>

/// Goes through a text trace of another tool from front to back and keeps nothing of it, so that a
/// trace of any size takes the memory of a line and no room on the disk. Uses neither a store nor
/// an event loop; any thread, one at a time.
class DATACHUNK_EXPORT TraceStream
{
public:
    enum Result {
        Complete,   ///< every message was handed on
        Stopped,    ///< the caller wanted it
        Incomplete, ///< the system failed within the file; what stands before was handed on
        Failed      ///< not a trace of the type, or one without messages
    };

    /// Takes the next message, numbered from 0, with its note, which is mostly empty. False to
    /// stop.
    using Take = std::function<bool(const CAN::CanRxMessage &message, const QString &note)>;

    /// Asked at least once in 1000 messages. False to stop.
    using GoesOn = std::function<bool()>;

    /// \a formatDescription is for GenericFormat, see GenericFileImporter. Chunk files and archives
    /// are no texts: reading them fails, as does a type that importMessages counts as failed.
    TraceStream(QString fileName, DatachunkHelper::ImportFileType type,
                QString formatDescription = QString());

    /// Reads the file from its beginning; may be called again. When it fails, what was handed on
    /// before is void; of a CoCTT log, an Ixxat trace and a described layout it is then nothing,
    /// for which such files are read twice.
    Result read(const Take &take, const GoesOn &goesOn);

    /// Why the last read was Incomplete or Failed, for the user; otherwise empty.
    QString errorText() const { return error; }

private:
    Result readWithinMemory(const Take &take, const GoesOn &goesOn);

    QString fileName;
    DatachunkHelper::ImportFileType type;
    QString formatDescription;
    QString error;
};
