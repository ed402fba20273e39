#include "peaktraceimporter.h"

#include "importersink.h"
#include "peakreader.h"

namespace {

class SignalSink : public ImporterSink
{
public:
    SignalSink(PeakTraceImporter &importer, QMap<unsigned int, QString> *notes)
        : ImporterSink(importer, notes), emitter(importer)
    {
    }

    bool message(const CAN::CanRxMessage &message) override
    {
        emit emitter.newMessage(message);
        return !importer.isNull();
    }

private:
    PeakTraceImporter &emitter;
};

} // namespace

PeakTraceImporter::PeakTraceImporter(QObject *parent) : QObject(parent) { }

bool PeakTraceImporter::importFile(QString fileName, DatachunkHelper::ImportFileType type,
                                   QList<CAN::CanRxMessage> *messages,
                                   QMap<unsigned int, QString> *notes)
{
    if (!messages)
        return false;
    SignalSink sink(*this, notes);
    return runImporter(*this, {fileName, peakTraceType(type), QString()}, sink, errorString);
}

QString PeakTraceImporter::getErrorString()
{
    return errorString;
}
