#include "tracereader.h"

#include "loadertable.h"
#include "unpackedfile.h"

#include <QCoreApplication>

namespace {

// What is behind the end of a trace is counted, but not read.
Outcome leaveOutRest(LineSource &lines, TraceSink &sink)
{
    constexpr quint64 linesBetweenTurns = 100000;
    while (lines.next()) {
        lines.leaveOut(ImportReport::BehindEnd);
        if (lines.number() % linesBetweenTurns == 0 && !sink.turnEventLoop())
            return Outcome::givenUp();
    }
    return Outcome::done();
}

// Without what may have gone wrong with the bytes.
Outcome readLines(QIODevice &content, const TraceRequest &request, TraceSink &sink)
{
    const TraceReader reader = traceReaderFor(request);
    LineSource lines(content, reader.carriageReturns);
    Outcome result = reader.read(lines, sink, request);
    if (result.isDone())
        result = leaveOutRest(lines, sink);
    if (result.kind != Outcome::GivenUp)
        sink.report(lines.finishReport());
    return result;
}

Outcome readDevice(QIODevice &device, const TraceRequest &request, TraceSink &sink)
{
    Outcome result = Outcome::notOpened();
    const bool isAtBeginning = device.seek(0);
    if (isAtBeginning)
        result = readLines(device, request, sink);
    // A reader that refuses the trace leaves bytes behind with which nothing is wrong.
    if (!isAtBeginning || (result.isDone() && !device.atEnd()))
        result.text = device.errorString();
    return result;
}

} // namespace

Outcome readTraceFile(const TraceRequest &request, TraceSink &sink)
{
    if (request.device)
        return readDevice(*request.device, request, sink);
    const auto unpacking =
        request.readsCompressed() ? UnpackedFile::WhereCompressed : UnpackedFile::Never;
    UnpackedFile file(request.fileName, unpacking);
    if (!file.openForReading())
        return Outcome::notOpened(file.refusal());
    sink.begin(file);
    Outcome result = readLines(file, request, sink);
    result.text = file.readErrorText();
    return result;
}

QString errorText(const Outcome &result, const TraceRequest &request)
{
    const ImporterTexts *importer = traceReaderFor(request.type).importer;
    if (!importer)
        return {};
    const auto translated = [importer](const char *text) {
        return QCoreApplication::translate(importer->context, text);
    };
    switch (result.kind) {
    case Outcome::NotOpened:
        return translated("No error.");
    case Outcome::WrongLine:
        return translated(importer->wrongLine)
            .arg(QString::number(result.number), request.fileName);
    case Outcome::NoColumns:
        return translated(importer->noColumns);
    default:
        return {};
    }
}
