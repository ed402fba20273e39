#pragma once

#include "canrxmessage.h"
#include "datachunkglobal.h"

#include <QList>
#include <QMap>
#include <QObject>

/// Reads a text trace whose lines are fields between blanks, laid out as formatDescription says.
/// The caller owns it and what it fills. Importing turns the event loop.
class DATACHUNK_EXPORT GenericFileImporter : public QObject
{
    Q_OBJECT
public:
    /// One that has read nothing yet.
    explicit GenericFileImporter(QObject *parent = nullptr);

    /// Appends the messages to \a messages, numbered from 0, and adds to \a notes, which may be
    /// null. False when \a messages is null, the file cannot be opened or something in it is
    /// wrong; what was read before that stays.
    bool importFile(QString fileName, QList<CAN::CanRxMessage> *messages,
                    QMap<unsigned int, QString> *notes);

    /// What was last found wrong in a file, "No error." at first.
    QString getErrorString();

    /// One code for each field, with a blank between: "t" time stamp, "n" bus line, "i", "I" and
    /// "0xi" identifier in hexadecimal, decimal or as its prefix tells, "l" payload length, "d"
    /// payload from this field to the end; anything else stands for a field that is ignored.
    QString formatDescription = QStringLiteral("t n i ? ? l d");

private:
    QString errorString = tr("No error.");
};
