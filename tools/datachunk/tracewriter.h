#pragma once

#include "savefileworker.h"

/// What a file holds beside its messages.
struct TraceFrame
{
    CAN::CanRxMessage first;
    CAN::CanRxMessage last;
    QMap<unsigned int, QString> notes;
    QMap<unsigned int, CanMessageBookmark> bookmarks;
};

/// Whether files of that name are chunk files; others are texts.
bool isChunkName(const QString &fileName);

/// Writes a chunk file or a text message by message, so that a trace of any size can be written.
class TraceWriter
{
public:
    TraceWriter(const QString &fileName, const TraceFrame &frame);

    // False when that is not written: the file is then incomplete.

    /// Begins the file, replacing one that is there.
    bool open();
    bool write(const CAN::CanRxMessage &message);
    bool close();

private:
    const QString fileName;
    const bool asChunk;
    QList<CAN::CanRxMessage> ends; // for the header
    SaveFileWorker worker;
    QFile text;
    quint64 written = 0;
};
