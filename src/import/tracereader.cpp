#include "tracereader.h"

#include "loadertable.h"
#include "regularfile.h"

#include <QCoreApplication>

ReadResult readTraceFile(const TraceRequest &request, TraceSink &sink)
{
    const TraceReader &reader = traceReaderFor(request.type);
    RegularFile file(request.fileName);
    if (!file.openForReading())
        return ReadResult::notRead();
    LineSource lines(file, reader.carriageReturns);
    ReadResult result = reader.read(lines, sink, request);
    result.systemError = file.readErrorText();
    return result;
}

QString errorText(const ReadResult &result, const TraceRequest &request)
{
    const TraceReader &reader = traceReaderFor(request.type);
    if (!reader.importer)
        return {};
    const auto tr = [&reader](const char *text) {
        return QCoreApplication::translate(reader.importer, text);
    };
    switch (result.status) {
    case ReadResult::Done:
    case ReadResult::Stopped:
        break;
    case ReadResult::NotRead:
        return tr("No error.");
    case ReadResult::LineError:
        return tr("Import error occured at line %1 of file %2.")
            .arg(QString::number(result.line), request.fileName);
    case ReadResult::NoColumns:
        return tr("Import error occured. No valid column description found.");
    }
    return {};
}
