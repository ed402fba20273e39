#include "tracewriter.h"

namespace {

// So many records fit into the buffer of the file: it never gets full between two looks at what
// became of them.
constexpr quint64 recordsBetweenFlushes = 128;

} // namespace

bool isChunkName(const QString &fileName)
{
    return fileName.endsWith(QLatin1String("dck"));
}

// Told to write no messages, the worker begins a text with its header line and stops there.
TraceWriter::TraceWriter(const QString &fileName, const TraceFrame &frame)
    : fileName(fileName), asChunk(isChunkName(fileName)), ends({frame.first, frame.last}),
      worker(fileName, &ends, DatachunkHelper::CurrentMessages, 0, 0, frame.notes, frame.bookmarks,
             0, {}),
      text(fileName)
{
}

bool TraceWriter::open()
{
    if (asChunk)
        return worker.createContinuousOutputFile(fileName);
    worker.saveToFile();
    return worker.errorText().isEmpty() && text.open(QIODevice::WriteOnly | QIODevice::Append);
}

bool TraceWriter::write(const CAN::CanRxMessage &message)
{
    if (asChunk) {
        worker.appendToContinuousOutputFile(message);
        if (++written % recordsBetweenFlushes == 0)
            worker.flushContinuousOutput();
        return worker.errorText().isEmpty();
    }
    const QByteArray line = worker.getOldStyleTxtOutput(message).toLocal8Bit();
    return text.write(line) == line.size();
}

bool TraceWriter::close()
{
    worker.finishContinousOutput();
    const bool complete = asChunk || text.flush();
    text.close();
    return complete && text.error() == QFileDevice::NoError && worker.errorText().isEmpty();
}
