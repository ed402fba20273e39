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

/// What a TraceStream reads, and what it has to tell of it.
struct StreamedTrace
{
    TraceRequest request;
    ReadingPlace place; // while something is read
    ImportReport report;
    QStringList errors;

    TraceStream::Result read(const TraceStream::Take &take, const TraceStream::GoesOn &goesOn);
    TraceStream::Result readText(const TraceStream::Take &take, const TraceStream::GoesOn &goesOn);
};

TraceStream::TraceStream(QString fileName, DatachunkHelper::ImportFileType type,
                         QString formatDescription)
    : d(std::make_unique<StreamedTrace>())
{
    d->request = {std::move(fileName), type, std::move(formatDescription)};
    d->request.unpacks = true;
}

TraceStream::~TraceStream() = default;

void TraceStream::setDevice(QIODevice *device)
{
    d->request.device = device;
}

void TraceStream::setMode(DatachunkHelper::ImportMode mode)
{
    d->request.mode = mode;
}

ImportProgress TraceStream::progress() const
{
    return d->place ? d->place() : ImportProgress();
}

const ImportReport &TraceStream::report() const
{
    return d->report;
}

QStringList TraceStream::errorTexts() const
{
    return d->errors;
}

TraceStream::Result TraceStream::read(const Take &take, const GoesOn &goesOn)
{
    d->errors.clear();
    d->report = {};
    Result result = Failed;
    const bool hasMemory = withinMemory([&] { result = d->read(take, goesOn); });
    d->place = {};
    if (!hasMemory) {
        d->errors = QStringList(FileErrors::outOfMemory(d->request.fileName));
        return Failed;
    }
    return result;
}

TraceStream::Result StreamedTrace::read(const TraceStream::Take &take,
                                        const TraceStream::GoesOn &goesOn)
{
    const bool isArchive = request.type == DatachunkHelper::ZipArchive;
    if (!isArchive && request.type != DatachunkHelper::ChunkFile)
        return readText(take, goesOn);
    const auto readChunks = isArchive ? ChunkStream::readArchive : ChunkStream::readFile;
    return readChunks(request.fileName, take, goesOn, place, errors);
}

TraceStream::Result StreamedTrace::readText(const TraceStream::Take &take,
                                            const TraceStream::GoesOn &goesOn)
{
    const TraceReader reader = traceReaderFor(request);
    if (!isTraceText(request.type) || reader.verdict == TraceReader::CountsAsFailed) {
        errors.append(StoreTexts::tr("Unknown import error"));
        return TraceStream::Failed;
    }
    Outcome read;
    if (reader.delivery == TraceReader::WhenWhole) {
        CheckingSink check(goesOn, place);
        read = readTraceFile(request, check);
    }
    HandingSink sink(take, goesOn, place, report);
    if (read.isDone())
        read = readTraceFile(request, sink);
    if (read.kind == Outcome::GivenUp)
        return TraceStream::Stopped;
    if (!read.isDone()) {
        errors.append(failureText(read, request));
        return TraceStream::Failed;
    }
    if (!read.text.isEmpty())
        errors.append(read.text);
    else if (!sink.hasMessages())
        errors.append(FileErrors::nothingImported());
    if (errors.isEmpty())
        return TraceStream::Complete;
    return sink.hasMessages() ? TraceStream::Incomplete : TraceStream::Failed;
}
