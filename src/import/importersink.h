#pragma once

#include "tracereader.h"

#include <QPointer>

/// Brings what a reader finds to the caller of an importer. The event loop is turned meanwhile:
/// once the importer is gone, the reader is told to stop.
class ImporterSink : public TraceSink
{
public:
    /// Without \a notes they are dropped.
    ImporterSink(QObject &importer, QMap<unsigned int, QString> *notes);

    void note(quint32 number, const QString &text) override;
    void appendNote(quint32 number, const QString &text) override;
    void fdFrames(bool seen) override;
    bool turnEventLoop() override;

protected:
    const QPointer<QObject> importer;

private:
    QMap<unsigned int, QString> *const notes;
};

/// Appends the messages to the caller's list.
class ListSink : public ImporterSink
{
public:
    ListSink(QObject &importer, QList<CAN::CanRxMessage> &messages,
             QMap<unsigned int, QString> *notes);

    bool message(const CAN::CanRxMessage &message) override;

private:
    QList<CAN::CanRxMessage> &messages;
};

/// Reads a trace for an importer; false when that failed. What is wrong in a file goes to
/// \a errorString, a member of the importer, which other failures leave alone.
bool runImporter(QObject &importer, const TraceRequest &request, TraceSink &sink,
                 QString &errorString);
