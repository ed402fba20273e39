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
    qint64 bytes = 0;     ///< of the file, or of all chunks; 0 when nothing is imported
    quint64 messages = 0;
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
    static constexpr int reasonCount = CutAtLimit + 1;

    /// What of a frame is not as it is written.
    enum Change { ChangedPayload, ChangedLength, ChangedIdentifier, ChangedTime };
    static constexpr int changeCount = ChangedTime + 1;

    /// Lines of one kind.
    struct Lines
    {
        quint64 count = 0;
        QVector<quint64> first; ///< the numbers of the first of them, up to mostNumbers
        QString text;           ///< the first of them, its first mostCharacters

        void add(quint64 number);
    };
    static constexpr int mostNumbers = 20;
    static constexpr int mostCharacters = 200;

    /// A channel as it is written, and the bus line that it became.
    struct Channel
    {
        QString name;
        quint16 line = 0;
    };

    quint64 lines = 0;
    quint64 frames = 0;
    quint64 notes = 0;
    std::array<Lines, reasonCount> leftOut;
    std::array<Lines, changeCount> changed;
    /// Lines that became frames although they do not look like one: a field that has to be a number
    /// is none and was taken for 0, or the reader knows the frame only in part. They count as
    /// frames. Tolerant readers leave such lines out.
    Lines unlikely;
    QDateTime start;  ///< when the trace was begun; not valid where the file does not tell
    QString timeBase; ///< what times are counted from, as the file says it; mostly empty
    QVector<Channel> channels;

    quint64 linesLeftOut() const;
    /// Those of them that were expected to be frames, which empty lines, headers, comments and
    /// statistics are not.
    quint64 linesLost() const;
    static bool isLoss(Reason reason) { return reason >= TooFewFields; }
    /// Whether any line was lost, anything of a frame was changed or a frame is unlikely.
    bool hasLoss() const;

    /// "not the shape of a frame" and so on, for the user, in the language that is installed.
    static QString reasonText(Reason reason);
    static QString changeText(Change change);
    /// The same in English always, for what other programs read; empty where there is no such one.
    static const char *reasonName(Reason reason);
    static const char *changeName(Change change);
};
