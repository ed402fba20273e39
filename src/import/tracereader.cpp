#include "tracereader.h"

#include "loadertable.h"
#include "regularfile.h"

#include <QCoreApplication>

Outcome readTraceFile(const TraceRequest &request, TraceSink &sink)
{
    const TraceReader &reader = traceReaderFor(request.type);
    RegularFile file(request.fileName);
    if (!file.openForReading())
        return Outcome::notOpened();
    LineSource lines(file, reader.carriageReturns);
    Outcome result = reader.read(lines, sink, request);
    result.text = file.readErrorText();
    return result;
}

QString errorText(const Outcome &result, const TraceRequest &request)
{
    const TraceReader &reader = traceReaderFor(request.type);
    if (!reader.importer)
        return {};
    const auto tr = [&reader](const char *text) {
        return QCoreApplication::translate(reader.importer, text);
    };
    switch (result.kind) {
    case Outcome::NotOpened:
        return tr("No error.");
    case Outcome::WrongLine:
        return tr("Import error occured at line %1 of file %2.")
            .arg(QString::number(result.number), request.fileName);
    case Outcome::NoColumns:
        return tr("Import error occured. No valid column description found.");
    default:
        return {};
    }
}
