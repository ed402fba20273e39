#pragma once

#include "canframe.h"
#include "notes.h"

#include <QByteArray>
#include <QDataStream>
#include <QIODevice>
#include <QMap>
#include <QString>

/// Reading and writing chunk files, byte for byte as docs/chunk-format.md describes them.
/// Plain functions and values; the caller opens, names and closes the files.
namespace ChunkFormat {

using ::Bookmarks;
using ::Notes;

constexpr quint32 notesSince = 101;
constexpr quint32 lineFieldSince = 103;
constexpr quint32 bookmarksSince = 104;
constexpr quint32 currentVersion = 104;

/// A stream in the layout of chunk files, which is the same with each Qt that writes them.
class Stream : public QDataStream
{
public:
    explicit Stream(QIODevice *device) : QDataStream(device) { setVersion(Qt_5_15); }
    explicit Stream(const QByteArray &bytes) : QDataStream(bytes) { setVersion(Qt_5_15); }
};

/// Size of a record with a full payload in the current version.
constexpr int maxRecordSize = 25 + CAN::maxDataBytes;

/// The header text: "%1.%2 - %3.%4", the time stamps of the first and the last message.
QString timeText(const CAN::CanRxMessage &first, const CAN::CanRxMessage &last);

/// Writes everything in front of the records, in the current version.
void writeHeader(QDataStream &stream, const QString &timeText, const Notes &notes,
                 const Bookmarks &bookmarks);

/// What stands at the front of every chunk file.
struct Preamble
{
    QString timeText;
    quint32 version = 0; ///< 0 when the version text is no number
};
Preamble readPreamble(QDataStream &stream);

/// What stands between the preamble and the records.
struct Maps
{
    Notes notes;
    Bookmarks bookmarks;
};
enum class BookmarkMap { Read, NotRead };

/// The same in the version of \a preamble, with what that has of \a maps.
void writeHeader(QDataStream &stream, const Preamble &preamble, const Maps &maps);

/// Stores one record at \a out, which has room for maxRecordSize bytes; returns its size.
int encodeRecord(char *out, const CAN::CanRxMessage &message, quint32 version);
/// Writes one record in the stream's byte order; that of chunk files is the default one.
void writeRecord(QDataStream &stream, const CAN::CanRxMessage &message, quint32 version);

/// Takes over the whole record at \a in, whose length is within 0..64.
void decodeRecord(const char *in, CAN::CanRxMessage &message, quint32 version);

/// What is left of a message in a chunk of the current version.
CAN::CanRxMessage asInChunk(const CAN::CanRxMessage &message);

/// Reads one record in the stream's byte order over \a message: fields behind the end of the stream
/// become 0, payload bytes there and a line that the version does not carry keep their values.
/// Returns false, with the stream's status set to ReadCorruptData, for a length outside 0..64.
bool readRecord(QDataStream &stream, CAN::CanRxMessage &message, quint32 version);

/// How the reading of records has ended.
struct RecordsEnd
{
    enum Cause {
        Whole,    ///< with the end of a record
        Cut,      ///< in the middle of one
        BadLength ///< in front of one whose length is none
    };
    Cause cause = Whole;
    qint64 offset = 0; ///< where the last whole record ends, counted from the first record's start
    int length = 0;    ///< what the record there claims, for BadLength
};

/// Reads the records from a device's position to its end, in blocks.
class RecordReader
{
public:
    RecordReader(QIODevice &device, quint32 version);

    /// Reads the next record over \a message, as readRecord does; a record cut short by the
    /// end counts. False at the end, on a read error and at a length outside 0..64.
    bool next(CAN::CanRxMessage &message);

    /// Whether the last record was cut short.
    bool lastIsCut() const { return cause == RecordsEnd::Cut; }

    /// To be asked once next() has returned false.
    RecordsEnd end() const { return {cause, wholeBytes, badLength}; }

private:
    void refill();
    bool readCutRecord(CAN::CanRxMessage &message);

    QIODevice &device;
    const quint32 version;
    QByteArray buffer;
    int position = 0;
    int size = 0;
    qint64 wholeBytes = 0;
    bool atEnd = false;
    RecordsEnd::Cause cause = RecordsEnd::Whole;
    int badLength = 0;
};

/// Collects records and writes them in blocks.
class RecordWriter
{
public:
    RecordWriter(QIODevice &device, quint32 version);

    /// False when the device did not take everything; the rest of the records is then dropped.
    bool write(const CAN::CanRxMessage &message);
    bool flush();

private:
    QIODevice &device;
    const quint32 version;
    QByteArray buffer;
    int used = 0;
    bool failed = false;
};

} // namespace ChunkFormat
