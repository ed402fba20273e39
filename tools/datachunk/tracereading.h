#pragma once

#include "bookmarkhandler.h"
#include "canmessagebookmark.h"
#include "canrxmessage.h"
#include "tracefile.h"
#include "workfolder.h"

#include <QDir>
#include <QSet>

#include <functional>
#include <optional>

class DatachunkHandler;

/// A message of a trace with what belongs to it.
struct TraceItem
{
    CAN::CanRxMessage message;
    QString note;
    CanMessageBookmark bookmark;
    int part = 0; ///< which chunk of an archive holds it; they come in order
};

/// Reads a trace of any size from front to back. A text takes the memory of a line, chunk files
/// that of one of them. Of an archive all chunks are read, ordered by their starts; they are
/// unpacked to the disk before.
class TraceReading
{
public:
    enum Result {
        Complete,
        Damaged, ///< some of the trace could not be read; the rest was
        Failed   ///< what was read is not to be used
    };

    /// False to stop reading, which is no failure.
    using Visitor = std::function<bool(const TraceItem &item)>;

    /// \a workParent is the folder in which to unpack.
    explicit TraceReading(const TraceFile &trace, const QString &workParent = QDir::tempPath());
    ~TraceReading();

    /// Makes ready to read. False, with a text printed, when there is nothing to be read.
    bool open();

    DatachunkHelper::ImportFileType type() const { return trace.type; }

    /// Reads the trace from its beginning; may be called again, and tells what goes wrong only
    /// once. A signal counts as failure.
    Result forEachMessage(const Visitor &visit);

private:
    bool openChunks();
    bool unpack();
    Result readText(const Visitor &visit);
    Result readChunks(const Visitor &visit);
    bool readChunk(int part, const Visitor &visit);
    void load(int part);
    void tell(const QString &subject, const QString &text);

    TraceFile trace;
    const QString workParent;
    std::optional<WorkFolder> work;
    std::unique_ptr<DatachunkHandler> unpackingStore; // its chunk folder holds what it has unpacked
    QStringList chunks;
    BookmarkHandler bookmarks;
    std::unique_ptr<DatachunkHandler> store; // shows one of the chunks
    int partShown = -1;
    bool damaged = false;
    bool anyMessage = false; // in the reading under way
    QSet<QString> told;
};
