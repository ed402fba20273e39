#include "tracereading.h"

#include "lossreport.h"
#include "stopsignals.h"
#include "terminal.h"

TraceReading::Result TraceReading::forEachMessage(const TraceStream::Take &visit)
{
    TraceStream stream(trace.name, trace.type, trace.formatDescription);
    stream.setMode(trace.mode);
    stream.setDevice(trace.device);
    const TraceStream::Result result = stream.read(visit, [&] {
        readPart = partOf(stream.progress());
        QCoreApplication::processEvents();
        return !StopSignals::received();
    });
    lastReport = reportJson(trace, stream.report());
    const QStringList errors = stream.errorTexts();
    for (const QString &error : errors) {
        if (!printed.contains(error))
            printError(trace.name, error);
        printed.insert(error);
    }
    if (interrupted(trace.name) || result == TraceStream::Failed)
        return Failed;
    if (!reported)
        printReport(trace, stream.report());
    reported = true;
    if (failsOnLoss(trace, stream.report()))
        return Damaged;
    return errors.isEmpty() ? Complete : Damaged;
}
