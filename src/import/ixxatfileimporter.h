#pragma once

#include "canrxmessage.h"
#include "datachunkglobal.h"

#include <QList>
#include <QMap>
#include <QObject>

/// Reads an Ixxat trace export. The caller owns it and what it fills; it keeps nothing between
/// imports but the error text. Importing turns the event loop.
class DATACHUNK_EXPORT IxxatFileImporter : public QObject
{
    Q_OBJECT
public:
    /// One that has read nothing yet.
    explicit IxxatFileImporter(QObject *parent = nullptr);

    /// Appends the messages to \a messages, numbered from 0, and adds to \a notes, which may be
    /// null. False when \a messages is null, the file cannot be opened or something in it is
    /// wrong; what was read before that stays.
    bool importFile(QString fileName, QList<CAN::CanRxMessage> *messages,
                    QMap<unsigned int, QString> *notes);

    /// What was last found wrong in a file, "No error." at first.
    QString getErrorString();

private:
    QString errorString = tr("No error.");
};
