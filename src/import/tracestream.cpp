#include "tracestream.h"

#include "chunkstream.h"
#include "fileerrors.h"
#include "loadertable.h"
#include "notes.h"
#include "storetexts.h"
#include "tracereader.h"

#include <QMap>

#include <utility>

namespace {

// Drops every message; reading into it shows whether the trace can be read to its end.
class CheckingSink : public TraceSink
{
public:
    CheckingSink(const TraceStream::GoesOn &goesOn, ReadingPlace &place)
        : goesOn(goesOn), place(place)
    {
    }

    void begin(const UnpackedFile &file) override { place = placeIn(file); }

    bool message(const CAN::CanRxMessage &) override { return true; }
    void note(quint32, const QString &) override { }
    void appendNote(quint32, const QString &) override { }
    void fdFrames(bool) override { }
    bool turnEventLoop() override { return goesOn(); }

private:
    const TraceStream::GoesOn &goesOn;
    ReadingPlace &place;
};

// Readers report a note before its message, so only the notes of the next message wait here.
class HandingSink : public CheckingSink
{
public:
    HandingSink(const TraceStream::Take &take, const TraceStream::GoesOn &goesOn,
                ReadingPlace &place, ImportReport &lastReport)
        : CheckingSink(goesOn, place), take(take), lastReport(lastReport)
    {
    }

    bool message(const CAN::CanRxMessage &message) override
    {
        any = true;
        item.message = message;
        item.note = notes.take(message.messageNumber);
        return take(item);
    }
    void note(quint32 number, const QString &text) override { notes.insert(number, text); }
    void appendNote(quint32 number, const QString &text) override { joinNote(notes, number, text); }

    void report(const ImportReport &report) override { lastReport = report; }

    bool hasMessages() const { return any; }

private:
    const TraceStream::Take &take;
    ImportReport &lastReport;
    QMap<unsigned int, QString> notes;
    TraceItem item;
    bool any = false;
};

QString failureText(const Outcome &result, const TraceRequest &request)
{
    if (!result.text.isEmpty())
        return result.text;
    const QString text = errorText(result, request);
    return text.isEmpty() ? StoreTexts::tr("Unknown import error") : text;
}

} // namespace

TraceStream::TraceStream(QString fileName, DatachunkHelper::ImportFileType type,
                         QString formatDescription)
    : fileName(std::move(fileName)), type(type), formatDescription(std::move(formatDescription))
{
}

TraceStream::Result TraceStream::read(const Take &take, const GoesOn &goesOn)
{
    errors.clear();
    lastReport = {};
    Result result = Failed;
    const bool hasMemory = withinMemory([&] { result = readWithinMemory(take, goesOn); });
    place = {};
    if (!hasMemory) {
        errors = QStringList(FileErrors::outOfMemory(fileName));
        return Failed;
    }
    return result;
}

TraceStream::Result TraceStream::readWithinMemory(const Take &take, const GoesOn &goesOn)
{
    const bool isArchive = type == DatachunkHelper::ZipArchive;
    if (!isArchive && type != DatachunkHelper::ChunkFile)
        return readText(take, goesOn);
    const auto read = isArchive ? ChunkStream::readArchive : ChunkStream::readFile;
    return read(fileName, take, goesOn, place, errors);
}

TraceStream::Result TraceStream::readText(const Take &take, const GoesOn &goesOn)
{
    const TraceRequest request{fileName, type, formatDescription, mode, true, device};
    const TraceReader reader = traceReaderFor(request);
    if (!isTraceText(type) || reader.verdict == TraceReader::CountsAsFailed) {
        errors.append(StoreTexts::tr("Unknown import error"));
        return Failed;
    }
    Outcome read;
    if (reader.delivery == TraceReader::WhenWhole) {
        CheckingSink check(goesOn, place);
        read = readTraceFile(request, check);
    }
    HandingSink sink(take, goesOn, place, lastReport);
    if (read.isDone())
        read = readTraceFile(request, sink);
    if (read.kind == Outcome::GivenUp)
        return Stopped;
    if (!read.isDone()) {
        errors.append(failureText(read, request));
        return Failed;
    }
    if (!read.text.isEmpty())
        errors.append(read.text);
    else if (!sink.hasMessages())
        errors.append(FileErrors::nothingImported());
    if (errors.isEmpty())
        return Complete;
    return sink.hasMessages() ? Incomplete : Failed;
}
