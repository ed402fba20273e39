#pragma once

#include "messageblock.h"
#include "messageencoder.h"

#include <QFile>

/// Writes messages in the format of another tool, to a file or to standard output.
class TraceOutput
{
public:
    /// An empty \a fileName is standard output.
    TraceOutput(const QString &fileName, std::unique_ptr<MessageEncoder> encoder);

    // False when that is not written: the file is then incomplete.

    /// Begins the file, replacing one that is there.
    bool open();
    bool write(const MessageBlock &block);
    bool close();

    /// Why the file is incomplete; empty of standard output.
    QString errorText() const;

    /// What was written, and what was not: bookmarks have no place in any of these formats.
    ConversionLosses losses() const;

private:
    bool flush();
    bool writeToFile();
    bool print();

    QFile file;
    const bool toOutput;
    const std::unique_ptr<MessageEncoder> encoder;
    QByteArray bytes;
    quint64 bookmarks = 0;
};
