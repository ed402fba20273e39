#pragma once

#include "backgroundjob.h"
#include "importreport.h"
#include "tracesorting.h"
#include "tracestream.h"

class BookmarkHandler;
class DatachunkHandler;

/// Messages of an imported trace that are kept in memory; the rest lies in chunks.
constexpr quint32 importedInMemory = 200000;

/// What became of an import.
struct ImportOutcome
{
    TraceStream::Result result = TraceStream::Failed;
    ImportReport report;
    QStringList errors;   ///< sentences for the user
    quint64 messages = 0; ///< that were brought
};

/// Where the messages of an import go. All of it may be used on the import's thread.
struct ImportTarget
{
    DatachunkHandler &store; ///< with room for importedInMemory messages
    BookmarkHandler &bookmarks;
    const std::atomic<bool> &isFull; ///< the store has failed: nothing more is to come
    std::function<void()> begun;     ///< called once, with the first message
};

/// Reads a foreign trace into a store, no faster than the disk takes it. Any thread.
ImportOutcome importTrace(const ImportSource &source, const ImportTarget &target,
                          JobControl &control);
