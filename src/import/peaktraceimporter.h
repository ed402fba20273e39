#pragma once

#include "canrxmessage.h"
#include "datachunkglobal.h"
#include "datachunkhelper.h"

#include <QList>
#include <QMap>
#include <QObject>

/// Reads a PEAK trace of file version 1.1, 1.2, 1.3, 2.0 or 2.1 and emits its messages. It keeps
/// nothing between imports but the error text. Importing turns the event loop.
class DATACHUNK_EXPORT PeakTraceImporter : public QObject
{
    Q_OBJECT
public:
    /// One that has read nothing yet.
    explicit PeakTraceImporter(QObject *parent = nullptr);

    /// Emits newMessage for every message, numbered from 0, and adds the warnings of 1.x traces
    /// to \a notes, which may be null. \a messages stays as it is, but has to be there. False
    /// when it is null, \a type is none of the versions, the file cannot be opened or something
    /// in it is wrong.
    bool importFile(QString fileName, DatachunkHelper::ImportFileType type,
                    QList<CAN::CanRxMessage> *messages, QMap<unsigned int, QString> *notes);

    /// What was last found wrong in a file, "No error." at first.
    QString getErrorString();

signals:
    /// On the thread that imports. A slot may delete the importer, which ends the import.
    void newMessage(CAN::CanRxMessage message);

private:
    QString errorString = tr("No error.");
};
