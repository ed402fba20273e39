#include "traceoutput.h"

#include "terminal.h"

#include <algorithm>

#include <unistd.h>

TraceOutput::TraceOutput(const QString &fileName, std::unique_ptr<MessageEncoder> encoder)
    : file(fileName), toOutput(fileName.isEmpty()), encoder(std::move(encoder))
{
}

bool TraceOutput::open()
{
    return toOutput || file.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
}

bool TraceOutput::write(const MessageBlock &block)
{
    for (BlockCursor cursor(block); !cursor.isAtEnd(); cursor.moveOn())
        encoder->append(cursor.message(), cursor.note(), bytes);
    bookmarks += block.bookmarks.size();
    constexpr int leastWritten = 256 * 1024;
    return bytes.size() < leastWritten || flush();
}

bool TraceOutput::close()
{
    encoder->finish(bytes);
    const bool isWritten = flush();
    file.close();
    return isWritten && file.error() == QFileDevice::NoError;
}

bool TraceOutput::flush()
{
    const bool isWritten = toOutput ? print() : writeToFile();
    bytes.resize(0);
    return isWritten;
}

// Only a write of which nothing was taken tells why.
bool TraceOutput::writeToFile()
{
    for (qint64 at = 0; at < bytes.size();) {
        const qint64 taken = file.write(bytes.constData() + at, bytes.size() - at);
        if (taken <= 0)
            return false;
        at += taken;
    }
    return true;
}

ConversionLosses TraceOutput::losses() const
{
    ConversionLosses losses = encoder->losses();
    losses.addBookmarks(bookmarks);
    return losses;
}

QString TraceOutput::errorText() const
{
    return file.error() == QFileDevice::NoError ? QString() : file.errorString();
}

// A terminal gets line by line, for notes may hold what steers it.
bool TraceOutput::print()
{
    if (!isatty(STDOUT_FILENO))
        return writeOutput(bytes);
    QList<QByteArray> lines = bytes.split('\n');
    if (lines.last().isEmpty())
        lines.removeLast();
    return std::all_of(lines.begin(), lines.end(), [](const QByteArray &line) {
        return writeLine(QString::fromUtf8(line.endsWith('\r') ? line.chopped(1) : line));
    });
}
