#pragma once

#include "canrxmessage.h"
#include "datachunkglobal.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

#include <memory>
#include <optional>

class ExportWriter;

/// Writes messages in the format of another tool, into blocks of bytes that the caller puts where
/// they belong; opens no file itself. Takes the memory of one message, or of its note. One trace
/// for each object; any thread, one at a time.
///
/// What a format has no place for is counted and never fails the export; docs/convert.md says what
/// each format takes.
class DATACHUNK_EXPORT TraceExport
{
public:
    /// What is written.
    enum Format {
        Candump,       ///< candump's log, "(1436509052.249713) can0 123#1122"
        CandumpScreen, ///< what candump shows with -x, "can0  RX - -  123   [2]  11 22"
        VectorAsc,     ///< Vector ASC, classic and CAN FD
        PeakTrc11,     ///< PEAK trace 1.1, without CAN FD
        PeakTrc21,     ///< PEAK trace 2.1
        Csv,           ///< comma-separated values below a line of titles
        JsonLines,     ///< a JSON object for each message, as `datachunk dump --json` prints it
        Pcapng         ///< capture of the link type SocketCAN, with notes as comments
    };

    /// What CandumpScreen and VectorAsc count times from; the other formats know one way.
    enum Times {
        Absolute, ///< from the start of the trace, or from 1970
        Delta     ///< from the message before
    };

    /// What may not come out as it went in.
    enum Loss {
        FdFrame,            ///< left out: the format has no CAN FD
        Identifier,         ///< left out: more than 29 bits are no identifier
        Direction,          ///< that a message was sent by this node
        Note,               ///< the note on a message
        NoteCut,            ///< the end of a note, which is longer than the format allows
        Line,               ///< a bus line other than 0
        ErrorType,          ///< the payload of an error frame, which tells its type
        StandardIdentifier, ///< written as extended: a standard identifier above 7FF
        LongFrame,          ///< written as CAN FD: more than 8 bytes without its flag
        RemoteFd,           ///< written as classic: CAN FD has no remote frames
        RemotePayload,      ///< the payload of a remote frame, which has none
        Length,             ///< a length that no frame has; the nearest one is written
        Flags,              ///< flags that the frame or the format does not have
        StartTime,          ///< times count from a start instead of from 1970
        Time,               ///< a time outside the format's range; the nearest one is written
        TimeDigits,         ///< digits of a time behind those of the format
        lossCount
    };

    /// How many messages a loss is about.
    struct LossCount
    {
        Loss loss;        ///< its kind
        quint64 messages; ///< never 0
    };

    /// The names of the formats in their order: "candump", "candump-screen", "asc", "trc11",
    /// "trc21", "csv", "jsonl", "pcapng".
    static QStringList formatNames();
    /// The format of such a name, or of "log", "trc", "json" or "ndjson", in letters of any size.
    static std::optional<Format> formatNamed(const QString &name);
    /// The format that the end of a file's name stands for: .log, .candump, .asc, .trc (2.1), .csv,
    /// .jsonl, .ndjson, .json or .pcapng.
    static std::optional<Format> formatOfFile(const QString &fileName);
    /// False for Pcapng, which no terminal should get.
    static bool isText(Format format);
    /// Where an object of the JSON lines stands in what was searched.
    struct Place
    {
        quint64 position = 0;   ///< of the message, from 0
        bool isContext = false; ///< whether it stands around what was found
    };
    /// Adds the line that JsonLines writes for a message; \a place may be null.
    static void appendJson(QByteArray &text, const CAN::CanRxMessage &message, const QString &note,
                           const Place *place = nullptr);

    /// Begins a trace; formats that know one way to write times pass over \a times.
    explicit TraceExport(Format format, Times times = Absolute);
    ~TraceExport();

    /// Adds to \a block what stands for the message, behind the header if it is the first one.
    /// False, and nothing is added, when the format cannot say the frame, which is left out and
    /// counted.
    bool append(const CAN::CanRxMessage &message, const QString &note, QByteArray &block);
    /// Adds the end of the trace, and the header of one without messages. Nothing may follow.
    void finish(QByteArray &block);

    /// How many messages were added so far.
    quint64 written() const { return writtenCount; }
    /// How many the format could not say, so that append() returned false.
    quint64 leftOut() const { return leftOutCount; }
    /// The losses so far, in the order of the enumeration; only those that occurred.
    QVector<LossCount> losses() const;
    /// What such a loss means, with the number of messages, as a sentence for the user.
    static QString lossText(Loss loss, quint64 messages);
    /// The same for programs: a word such as "note-cut", the same in every language.
    static QString lossName(Loss loss);

private:
    Q_DISABLE_COPY(TraceExport)

    std::unique_ptr<ExportWriter> writer;
    quint64 writtenCount = 0;
    quint64 leftOutCount = 0;
};
