#include "importersink.h"

#include "notes.h"

#include <QCoreApplication>

ImporterSink::ImporterSink(QObject &importer, QMap<unsigned int, QString> *notes)
    : importer(&importer), notes(notes)
{
}

void ImporterSink::note(quint32 number, const QString &text)
{
    if (notes)
        notes->insert(number, text);
}

void ImporterSink::appendNote(quint32 number, const QString &text)
{
    if (notes)
        joinNote(*notes, number, text);
}

void ImporterSink::fdFrames(bool) { }

bool ImporterSink::turnEventLoop()
{
    QCoreApplication::processEvents();
    return !importer.isNull();
}

ListSink::ListSink(QObject &importer, QList<CAN::CanRxMessage> &messages,
                   QMap<unsigned int, QString> *notes)
    : ImporterSink(importer, notes), messages(messages)
{
}

bool ListSink::message(const CAN::CanRxMessage &message)
{
    messages.append(message);
    return true;
}

bool runImporter(QObject &importer, const TraceRequest &request, TraceSink &sink,
                 QString &errorString)
{
    const QPointer<QObject> guard(&importer);
    const Outcome result = readTraceFile(request, sink);
    if (guard && result.isFileError())
        errorString = errorText(result, request);
    if (guard && !result.text.isEmpty())
        errorString = result.text;
    return result.isDone() && result.text.isEmpty();
}
