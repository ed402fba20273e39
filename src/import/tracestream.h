#pragma once

#include "canmessagebookmark.h"
#include "canrxmessage.h"
#include "datachunkglobal.h"
#include "datachunkhelper.h"
#include "importreport.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

class QIODevice;
struct StreamedTrace;

/// A message of a trace with what belongs to it.
struct TraceItem
{
    CAN::CanRxMessage message;   ///< with its number, which is its key for notes
    QString note;                ///< mostly empty
    CanMessageBookmark bookmark; ///< mostly not valid
    int part = 0; ///< which chunk of an archive it is from; message numbers are unique within one
};

/// Goes through a trace from front to back and keeps nothing of it, so that one of any size takes
/// the memory of a line, or of the notes and bookmarks of a chunk, and no room on the disk. Uses
/// neither a store nor an event loop; any thread, one at a time.
///
/// Reads chunk files, archives of them and texts; chunk files and texts in gzip, bzip2, xz and
/// zstd, too, and a text that is alone in a ZIP archive. Of an archive every chunk is read, ordered
/// by the starts; those with equal starts come in the order of the archive.
class DATACHUNK_EXPORT TraceStream
{
public:
    /// How reading a trace has ended.
    enum Result {
        Complete,   ///< every message was handed on
        Stopped,    ///< the caller wanted it
        Incomplete, ///< some of the trace could not be read; the rest was handed on
        Failed      ///< not a trace of the type, or one without messages
    };

    /// Takes the next message. False to stop.
    using Take = std::function<bool(const TraceItem &item)>;

    /// Asked at least once in 1000 messages. False to stop.
    using GoesOn = std::function<bool()>;

    /// \a formatDescription is for GenericFormat, see GenericFileImporter. A type that
    /// importMessages counts as failed cannot be read.
    TraceStream(QString fileName, DatachunkHelper::ImportFileType type,
                QString formatDescription = QString());
    ~TraceStream();

    TraceStream(const TraceStream &) = delete;
    TraceStream &operator=(const TraceStream &) = delete;

    /// Reads the file from its beginning; may be called again. When it fails, what was handed on
    /// before is void; of a CoCTT log, an Ixxat trace and a described layout it is then nothing,
    /// for which such files are read twice. Messages of texts are numbered from 0.
    Result read(const Take &take, const GoesOn &goesOn);

    /// Has a text read from a device instead of the file, which then is a name only. The device is
    /// open, lives as long, and has failed where it is not atEnd() once nothing more can be read;
    /// its errorString() is told then. It need not know its size, but has to go back to its
    /// beginning as long as no more than 2 MiB of it were read; nearly every type is read in one go
    /// from there. Used by the thread that reads.
    void setDevice(QIODevice *device);

    /// How a text is read; strictly at first.
    void setMode(DatachunkHelper::ImportMode mode);

    /// How far the read has come that runs now, in bytes as DatachunkHandler::importProgress() has
    /// them; zeros when none runs, and of a device. To be asked from \a take and \a goesOn.
    ImportProgress progress() const;

    /// What became of the lines of the text that was read last; nothing for chunks and archives.
    const ImportReport &report() const;

    /// What the last read has to tell the user: why it failed, or what it could not read. Empty for
    /// a trace that is complete.
    QStringList errorTexts() const;

private:
    std::unique_ptr<StreamedTrace> d;
};
