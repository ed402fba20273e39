#pragma once

#include <QString>

/// How a piece of work has ended, and what the user is told of it.
struct Outcome
{
    enum Kind {
        Done,    ///< with a text: not completely
        GivenUp, ///< because somebody wanted that
        NothingToDo,
        NotOpened, ///< a file, or it is of another kind
        NotWritten,
        NewerVersion,   ///< a chunk is of a version that we do not know
        TooLarge,       ///< for the memory; the number says how many messages there may be
        NoRoom,         ///< on the disk
        TooManyWaiting, ///< given up because the disk is too slow
        WrongLine,      ///< the number says which, counted from 1
        NoColumns       ///< nothing usable tells what the columns are
    };
    Kind kind = Done;
    QString text; ///< why; mostly empty
    quint64 number = 0;

    static Outcome done() { return {}; }
    static Outcome givenUp() { return {GivenUp, {}, 0}; }
    static Outcome notOpened(const QString &why = {}) { return {NotOpened, why, 0}; }
    static Outcome wrongLine(quint64 line = 0) { return {WrongLine, {}, line}; }
    static Outcome noColumns() { return {NoColumns, {}, 0}; }

    bool isDone() const { return kind == Done; }
    /// Whether what stands in the file is wrong.
    bool isFileError() const { return kind == WrongLine || kind == NoColumns; }
};
