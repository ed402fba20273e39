#pragma once

#include "datachunkhandler.h"
#include "stopsignals.h"
#include "workfolder.h"

#include <QCommandLineParser>
#include <QDir>
#include <QStringList>

#include <functional>

class Progress;

/// A trace that the user named, and how to read it.
struct TraceFile
{
    QString name;
    DatachunkHelper::ImportFileType type = DatachunkHelper::Unknown;
    QString formatDescription;
};

/// Fills in the type: the one that the options tell, or the one that is detected. False, with
/// the usage error printed, for wrong options.
bool chooseType(const QCommandLineParser &parser, TraceFile &trace);

QString typeName(DatachunkHelper::ImportFileType type);

/// False, with the store's text printed, when the file cannot be opened.
bool checkReadable(const QString &fileName);

/// The same for a file that is no chunk file.
bool checkChunkFile(const QString &fileName);

/// Reads a trace of any size: what does not fit into memory at once comes in parts. The
/// chunks of an archive come as one list.
class TraceReading
{
public:
    /// Called with a store that shows one part of the trace; false to stop reading.
    using Visitor = std::function<bool(DatachunkHandler &part)>;

    /// \a workParent is the folder in which to keep the parts.
    TraceReading(const TraceFile &trace, const QString &workParent = QDir::tempPath(),
                 quint32 messagesPerPart = 250000);
    ~TraceReading();

    /// Reads the file. False, with a text printed, when that fails or a signal stops it.
    bool import();

    /// The chunk files that the import wrote, in order. They go with this object.
    const QStringList &parts() const { return partNames; }

    /// Shows the parts one after the other; import() comes first. False, with a text printed,
    /// when a part cannot be read back or a signal came.
    bool forEachPart(const Visitor &visit);

private:
    bool checkType() const;
    void printStoreErrors(DatachunkHandler &store);
    bool importFile(Progress &progress);
    bool importArchive();
    bool pageParts(const Visitor &visit);

    const TraceFile trace;
    const quint32 messagesPerPart;
    WorkFolder work;
    StopSignals stopSignals;
    BookmarkHandler bookmarks;
    std::unique_ptr<DatachunkHandler> store; // null without a place for it
    QStringList partNames;
    bool errorPrinted = false;
};
