#pragma once

#include "datachunkglobal.h"

#include <QDateTime>
#include <QString>
#include <QVector>

#include <array>

/// How far an import, or the work on an archive, has come.
struct ImportProgress
{
    qint64 bytesRead = 0; ///< also those packed
    qint64 bytes = 0; ///< of the file, compressed or not, or of all that is in an archive; 0 when
                      ///< nothing is imported
    quint64 messages = 0; ///< brought so far
};

/// What became of the lines of a trace that was read as text. A plain value; lines are counted from
/// 1. Every physical line is a frame or left out for one reason, so that the frames and the lines
/// left out add up to the lines, in every format that tells one frame a line.
struct DATACHUNK_EXPORT ImportReport
{
    /// Why a line is no frame.
    enum Reason {
        Empty,
        Header,
        Comment, ///< also lines that become notes
        Statistics,
        TooFewFields,
        WrongShape,
        UnparsableNumber,
        UnkeptFrameKind, ///< a frame of a kind that a record cannot hold
        BehindEnd,       ///< behind the mark that ends the trace
        CutAtLimit       ///< longer than the first MiB, of which no frame came
    };
    static constexpr int reasonCount = CutAtLimit + 1; ///< for arrays with one place for each

    /// What of a frame is not as it is written.
    enum Change { ChangedPayload, ChangedLength, ChangedIdentifier, ChangedTime };
    static constexpr int changeCount = ChangedTime + 1; ///< the same for changes

    /// Lines of one kind.
    struct Lines
    {
        quint64 count = 0;      ///< of all lines of the kind
        QVector<quint64> first; ///< the numbers of the first of them, up to mostNumbers
        QString text;           ///< the first of them, its first mostCharacters

        /// Counts line \a number, and keeps the number while there is room for it.
        void add(quint64 number);
    };
    static constexpr int mostNumbers = 20;     ///< line numbers kept of each kind
    static constexpr int mostCharacters = 200; ///< of a line that is kept; more are cut off

    /// A channel as it is written, and the bus line that it became.
    struct Channel
    {
        QString name;     ///< as the file has it
        quint16 line = 0; ///< in the messages
    };

    quint64 lines = 0;                      ///< of the file, as far as it was read
    quint64 frames = 0;                     ///< lines that became messages
    quint64 notes = 0;                      ///< taken from the file, by whatever line
    std::array<Lines, reasonCount> leftOut; ///< by Reason
    std::array<Lines, changeCount> changed; ///< by Change; these lines are frames
    /// Lines that became frames although they do not look like one: a field that has to be a number
    /// is none and was taken for 0, or the reader knows the frame only in part. They count as
    /// frames. Tolerant readers leave such lines out.
    Lines unlikely;
    QDateTime start;           ///< when the trace was begun; not valid where the file does not tell
    QString timeBase;          ///< what times are counted from, as the file says it; mostly empty
    QVector<Channel> channels; ///< those that frames came from, in order of the first

    /// All lines that are no frames.
    quint64 linesLeftOut() const;
    /// Those of them that were expected to be frames, which empty lines, headers, comments and
    /// statistics are not.
    quint64 linesLost() const;
    /// Whether a line left out for \a reason was expected to be a frame.
    static bool isLoss(Reason reason) { return reason >= TooFewFields; }
    /// Whether any line was lost, anything of a frame was changed or a frame is unlikely.
    bool hasLoss() const;

    /// "not the shape of a frame" and so on, for the user, in the language that is installed.
    static QString reasonText(Reason reason);
    /// The same of a change: "length changed" and so on.
    static QString changeText(Change change);
    /// The same in English always, for what other programs read; empty where there is no such one.
    static const char *reasonName(Reason reason);
    /// The same of a change.
    static const char *changeName(Change change);
};
