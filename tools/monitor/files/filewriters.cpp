#include "filewriters.h"

#include "chunknames.h"

#include <QCoreApplication>

namespace {

struct Writers
{
    Q_DECLARE_TR_FUNCTIONS(Writers)
};

} // namespace

// A worker that is given the ends alone writes just what stands in front of the messages.
OwnWriter::OwnWriter(const QString &fileName, const TraceFrame &frame, bool withNotes)
    : asChunk(isChunkName(fileName)), ends({frame.first, frame.last}),
      worker(fileName, &ends, DatachunkHelper::CurrentMessages, 0, 0,
             asChunk || withNotes ? frame.notes : QMap<unsigned int, QString>(), frame.bookmarks, 0,
             {}),
      text(fileName)
{
}

bool OwnWriter::open()
{
    if (asChunk)
        return worker.createContinuousOutputFile(text.fileName());
    worker.saveToFile();
    return worker.errorText().isEmpty() && text.open(QIODevice::WriteOnly | QIODevice::Append);
}

bool OwnWriter::write(const TraceItem &item)
{
    if (!asChunk) {
        const QByteArray bytes = worker.getOldStyleTxtOutput(item.message).toLocal8Bit();
        return text.write(bytes) == bytes.size();
    }
    // So many records fit into the buffer of the file: it is not written out, and no error is
    // overlooked, between two questions for one.
    constexpr quint64 recordsBetweenFlushes = 128;
    worker.appendToContinuousOutputFile(item.message);
    if (++written % recordsBetweenFlushes == 0)
        worker.flushContinuousOutput();
    return worker.errorText().isEmpty();
}

bool OwnWriter::close()
{
    worker.finishContinousOutput();
    const bool isFlushed = asChunk || text.flush();
    text.close();
    return isFlushed && text.error() == QFileDevice::NoError && worker.errorText().isEmpty();
}

QString OwnWriter::errorText() const
{
    return worker.errorText().isEmpty() ? text.errorString() : worker.errorText();
}

bool BlockWriter::open()
{
    return file.open(QIODevice::WriteOnly);
}

bool BlockWriter::write(const TraceItem &item)
{
    constexpr int leastWritten = 256 * 1024;
    append(item, bytes);
    bookmarks += item.bookmark.isValid() ? 1 : 0;
    return bytes.size() < leastWritten || flush();
}

bool BlockWriter::flush()
{
    const bool isWritten = file.write(bytes) == bytes.size();
    bytes.resize(0);
    return isWritten;
}

bool BlockWriter::close()
{
    finish(bytes);
    const bool isWritten = flush() && file.flush();
    file.close();
    return isWritten && file.error() == QFileDevice::NoError;
}

QStringList BlockWriter::losses() const
{
    if (bookmarks == 0)
        return {};
    return {Writers::tr("Not written: bookmarks (%1).").arg(bookmarks)};
}

ForeignWriter::ForeignWriter(const QString &fileName, TraceExport::Format format,
                             TraceExport::Times times)
    : BlockWriter(fileName), trace(format, times)
{
}

void ForeignWriter::append(const TraceItem &item, QByteArray &block)
{
    trace.append(item.message, item.note, block);
}

void ForeignWriter::finish(QByteArray &block)
{
    trace.finish(block);
}

QStringList ForeignWriter::losses() const
{
    QStringList all;
    const QVector<TraceExport::LossCount> losses = trace.losses();
    for (const auto &[loss, messages] : losses)
        all += TraceExport::lossText(loss, messages);
    return all + BlockWriter::losses();
}

void ParquetWriter::append(const TraceItem &item, QByteArray &block)
{
    trace.append(item.message, item.note, block);
}

void ParquetWriter::finish(QByteArray &block)
{
    trace.finish(block);
}
