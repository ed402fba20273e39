#include "tracestream.h"

#include "fileerrors.h"
#include "tracereader.h"

#include <QCoreApplication>
#include <QMap>

#include <utility>

namespace {

QString storeText(const char *text)
{
    return QCoreApplication::translate("DatachunkHandler", text);
}

bool isText(DatachunkHelper::ImportFileType type)
{
    return quint32(type) <= DatachunkHelper::GenericFormat && type != DatachunkHelper::ChunkFile
        && type != DatachunkHelper::ZipArchive && type != DatachunkHelper::Unassigned
        && type != DatachunkHelper::EmptyTxtFile;
}

// Takes nothing: tells only whether the trace can be read to its end.
class CheckingSink : public TraceSink
{
public:
    explicit CheckingSink(const TraceStream::GoesOn &goesOn) : goesOn(goesOn) { }

    bool message(const CAN::CanRxMessage &) override { return true; }
    void note(quint32, const QString &) override { }
    void appendNote(quint32, const QString &) override { }
    void fdFrames(bool) override { }
    bool turnEventLoop() override { return goesOn(); }

private:
    const TraceStream::GoesOn &goesOn;
};

// Readers tell a note before its message, so that only those of the next one wait here.
class HandingSink : public CheckingSink
{
public:
    HandingSink(const TraceStream::Take &take, const TraceStream::GoesOn &goesOn)
        : CheckingSink(goesOn), take(take)
    {
    }

    bool message(const CAN::CanRxMessage &message) override
    {
        any = true;
        const QString note = notes.isEmpty() ? QString() : notes.take(message.messageNumber);
        return take(message, note);
    }
    void note(quint32 number, const QString &text) override { notes.insert(number, text); }
    void appendNote(quint32 number, const QString &text) override { joinNote(notes, number, text); }

    bool hasMessages() const { return any; }

private:
    const TraceStream::Take &take;
    QMap<unsigned int, QString> notes;
    bool any = false;
};

QString failureText(const ReadResult &result, const TraceRequest &request)
{
    if (!result.systemError.isEmpty())
        return result.systemError;
    const QString text = errorText(result, request);
    return text.isEmpty() ? storeText("Unknown import error") : text;
}

} // namespace

TraceStream::TraceStream(QString fileName, DatachunkHelper::ImportFileType type,
                         QString formatDescription)
    : fileName(std::move(fileName)), type(type), formatDescription(std::move(formatDescription))
{
}

TraceStream::Result TraceStream::read(const Take &take, const GoesOn &goesOn)
{
    error.clear();
    Result result = Failed;
    if (!withinMemory([&] { result = readWithinMemory(take, goesOn); })) {
        error = FileErrors::outOfMemory(fileName);
        return Failed;
    }
    return result;
}

TraceStream::Result TraceStream::readWithinMemory(const Take &take, const GoesOn &goesOn)
{
    const TraceRequest request{fileName, type, formatDescription};
    const TraceReader &reader = traceReaderFor(type);
    if (!isText(type) || reader.outcome == TraceReader::CountsAsFailed) {
        error = storeText("Unknown import error");
        return Failed;
    }
    ReadResult read;
    if (reader.delivery == TraceReader::WhenWhole) {
        CheckingSink check(goesOn);
        read = readTraceFile(request, check);
    }
    HandingSink sink(take, goesOn);
    if (read.isDone())
        read = readTraceFile(request, sink);
    if (read.status == ReadResult::Stopped)
        return Stopped;
    if (!read.isDone()) {
        error = failureText(read, request);
        return Failed;
    }
    error = read.systemError;
    if (!sink.hasMessages() && error.isEmpty())
        error = storeText("File seems to be empty or broken, nothing imported.");
    if (error.isEmpty())
        return Complete;
    return sink.hasMessages() ? Incomplete : Failed;
}
