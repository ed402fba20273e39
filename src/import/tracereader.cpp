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

} // namespace

Outcome readTraceFile(const TraceRequest &request, TraceSink &sink)
{
    const TraceReader reader = traceReaderFor(request);
    const auto unpacking =
        request.readsCompressed() ? UnpackedFile::WhereCompressed : UnpackedFile::Never;
    UnpackedFile file(request.fileName, unpacking);
    if (!file.openForReading())
        return Outcome::notOpened(file.refusal());
    sink.begin(file);
    LineSource lines(file, reader.carriageReturns);
    Outcome result = reader.read(lines, sink, request);
    if (result.isDone())
        result = leaveOutRest(lines, sink);
    if (result.kind != Outcome::GivenUp)
        sink.report(lines.finishReport());
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
