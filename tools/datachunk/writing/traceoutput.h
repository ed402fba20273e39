#pragma once

#include "messageblock.h"
#include "traceexport.h"

#include <QFile>

/// Writes messages in the format of another tool, to a file or to standard output.
class TraceOutput
{
public:
    /// An empty \a fileName is standard output.
    TraceOutput(const QString &fileName, TraceExport::Format format, TraceExport::Times times);

    // False when that is not written: the file is then incomplete.

    /// Begins the file, replacing one that is there.
    bool open();
    bool write(const MessageBlock &block);
    bool close();

    /// Why the file is incomplete; empty of standard output.
    QString errorText() const;

    const TraceExport &trace() const { return text; }
    /// Bookmarks have no place in any of these formats.
    quint64 bookmarksLost() const { return bookmarks; }

private:
    bool flush();
    bool writeToFile();
    bool print();

    QFile file;
    const bool toOutput;
    TraceExport text;
    QByteArray bytes;
    quint64 bookmarks = 0;
};
