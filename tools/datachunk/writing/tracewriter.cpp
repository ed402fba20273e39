#include "tracewriter.h"

#include "chunknames.h"
#include "terminal.h"

namespace {

// This many records fit into the buffer of the file, so that it is never written out between two
// checks for errors.
constexpr quint64 recordsBetweenFlushes = 128;

} // namespace

// A worker that is given no messages writes just the header line of a text.
TraceWriter::TraceWriter(const QString &fileName, const TraceFrame &frame, bool toOutput)
    : fileName(fileName), asChunk(isChunkName(fileName)), toOutput(toOutput),
      ends({frame.first, frame.last}), worker(fileName, &ends, DatachunkHelper::CurrentMessages, 0,
                                              0, frame.notes, frame.bookmarks, 0, {}),
      text(fileName)
{
}

bool TraceWriter::open()
{
    if (asChunk)
        return worker.createContinuousOutputFile(fileName);
    worker.saveToFile();
    return worker.errorText().isEmpty() && openText();
}

bool TraceWriter::openText()
{
    if (!toOutput)
        return text.open(QIODevice::WriteOnly | QIODevice::Append);
    return text.open(QIODevice::ReadOnly) && writeOutput(text.readAll());
}

bool TraceWriter::write(const CAN::CanRxMessage &message)
{
    if (asChunk) {
        worker.appendToContinuousOutputFile(message);
        if (++written % recordsBetweenFlushes == 0)
            worker.flushContinuousOutput();
        return worker.errorText().isEmpty();
    }
    const QString line = worker.getOldStyleTxtOutput(message);
    if (toOutput)
        return writeLine(line.chopped(1));
    const QByteArray bytes = line.toLocal8Bit();
    return text.write(bytes) == bytes.size();
}

bool TraceWriter::close()
{
    worker.finishContinousOutput();
    const bool complete = asChunk || toOutput || text.flush();
    text.close();
    return complete && text.error() == QFileDevice::NoError && worker.errorText().isEmpty();
}
