#pragma once

#include "canrxmessage.h"
#include "chunkformat.h"

#include <QVector>

/// Stands in a note for each character of a time of day, which only the store knows.
constexpr char16_t unknownTime = 0xE000;

/// Whether \a actual is \a expected but for the times of day.
bool sameText(const QString &expected, const QString &actual);

/// Messages in a row whose contents follow from their serial numbers. A serial number is never used
/// twice, unlike a message number.
struct MessageRun
{
    enum Kind { Received, Imported };

    quint32 serial = 0; ///< of the first message
    quint32 number = 0; ///< message number of the first message
    quint32 count = 0;
    Kind kind = Received;

    /// A default record outside the run.
    CAN::CanRxMessage at(qint64 position) const;
};

/// One message of a kind, without its number.
CAN::CanRxMessage messageOf(quint32 serial, MessageRun::Kind kind);

/// Whether a record is whole: a default one, or the one that its time stamp belongs to.
bool isWhole(const CAN::CanRxMessage &message);

/// A file that a store has been told to write, or has to read. The form of records and lines is the
/// library's, which tests of its own compare with bytes and texts.
struct ModelFile
{
    QString name;
    MessageRun messages;
    qint64 start = 0;
    qint64 end = 0;
    QList<unsigned int> selected;
    ChunkFormat::Notes notes;
    ChunkFormat::Bookmarks bookmarks;
    bool removed = false; ///< by the disk budget

    QVector<CAN::CanRxMessage> records(qint64 from) const;
    QString timeText() const;
    bool hasFdFrame() const;
    QByteArray chunkBytes() const;
    QString text() const;
};
