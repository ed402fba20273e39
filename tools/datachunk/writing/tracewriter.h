#pragma once

#include "savefileworker.h"

/// What a file holds beside its messages.
struct TraceFrame
{
    CAN::CanRxMessage first;
    CAN::CanRxMessage last;
    QMap<unsigned int, QString> notes;
    QMap<unsigned int, CanMessageBookmark> bookmarks;
    quint64 count = 0; ///< number of the messages
};

/// Writes a chunk file or a text message by message, so that a trace of any size can be written. A
/// text can go to standard output, too.
class TraceWriter
{
public:
    /// \a fileName is also needed, for the beginning of the text, to write to standard output.
    TraceWriter(const QString &fileName, const TraceFrame &frame, bool toOutput);

    // False when that is not written: the file is then incomplete.

    /// Begins the file, replacing one that is there.
    bool open();
    bool write(const CAN::CanRxMessage &message);
    bool close();

private:
    bool openText();

    const QString fileName;
    const bool asChunk;
    const bool toOutput;
    QList<CAN::CanRxMessage> ends; // for the header
    SaveFileWorker worker;
    QFile text;
    quint64 written = 0;
};
