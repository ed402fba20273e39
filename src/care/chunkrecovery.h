#pragma once

#include "datachunkglobal.h"

#include <QString>

#include <functional>

/// What has become of a chunk file that somebody left behind.
struct RecoveredChunk
{
    /// How the work has ended.
    enum Result {
        Saved,      ///< its whole records are in the new file
        Nothing,    ///< it has no whole record, and no new file was made
        Unreadable, ///< nor has one, but it may hold messages all the same
        NotWritten  ///< nor has one, because the system did not take it
    };
    Result result = Unreadable; ///< that of this chunk file
    qint64 messages = 0;        ///< that were saved
    qint64 bytesTrimmed = 0;    ///< that were not
    QString text;               ///< why, in whole sentences; empty when everything was saved
    quint32 firstNumber = 0;    ///< of the first message saved
    quint32 lastNumber = 0;     ///< of the last one
};

/// Copies a chunk file up to the end of its last whole record, with all notes and bookmarks, into
/// the new file \a to, which only its user can read. Records of nothing but zeros at the end, which
/// a loss of power leaves, do not count, and neither does the one in front of them if some of it
/// may be such zeros. \a from is only read; an existing \a to is left alone. \a goesOn is asked
/// again and again; false ends the work, with nothing written. Any thread; nobody may be writing
/// \a from.
DATACHUNK_EXPORT RecoveredChunk recoverChunk(const QString &from, const QString &to,
                                             const std::function<bool()> &goesOn);
