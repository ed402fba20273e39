#pragma once

#include "chunkformat.h"

#include <QFile>

/// A chunk file that takes messages one by one. One thread at a time.
class ContinuousOutput
{
public:
    ~ContinuousOutput();

    /// Begins a file, replacing an existing one and ending the one before. False, and nothing is
    /// opened, when the name does not end in "dck" or the file cannot be created.
    bool create(const QString &fileName, const QString &timeText, const ChunkFormat::Notes &notes,
                const ChunkFormat::Bookmarks &bookmarks);
    /// The same with the header of two default records, and no notes or bookmarks.
    bool create(const QString &fileName);

    /// Adds one message; does nothing without an open file.
    void append(const CAN::CanRxMessage &message);

    /// Hands what was appended so far to the operating system.
    void flush();

    void finish();

    QString fileName() const { return file.fileName(); }

    /// Why the file is missing or incomplete; empty when all is written.
    QString errorText() const { return error; }

private:
    void noteError();

    QFile file;
    QString error;
};
