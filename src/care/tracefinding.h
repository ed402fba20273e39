#pragma once

#include <QString>

/// Something that the check of a trace has found.
struct TraceFinding
{
    /// How bad it is.
    enum Severity {
        Remark, ///< unusual, but legal
        Error   ///< damage, or something is missing
    };
    /// What it is. Each has a name that stays; more may come at the end.
    enum Kind {
        Unreadable,       ///< the file or entry could not be opened, or read to its end
        Empty,            ///< the file has no bytes
        HeaderDamaged,    ///< the texts at the front of the chunk
        VersionUnknown,   ///< the version is no number
        VersionNewer,     ///< a version that this library does not know
        TimeRange,        ///< the header's times are none, or not those of the messages
        MapDamaged,       ///< the map of the notes or that of the bookmarks
        BookmarkDamaged,  ///< one bookmark
        ValueOutOfBounds, ///< a value of a record
        RecordLength,     ///< a record claims a length that there is not
        RecordCut,        ///< the last record is cut short
        Zeros,            ///< records of nothing but zeros, which a loss of power leaves
        NoMessages,       ///< a chunk without records
        NoChunks,         ///< a folder or an archive without chunks
        NumberGap,        ///< message numbers are left out
        NumberRepeat,     ///< a message number is not above the one before
        TimeFalls,        ///< a time is below the one before
        DirectoryUnused,  ///< the folder's directory counts for nothing
        DirectoryDamaged, ///< some of the directory is no entry
        DirectoryStale,   ///< an entry is about an earlier state of its chunk
        DirectoryWrong,   ///< an entry does not say what its chunk holds
        Checksum,         ///< an archive's entry does not match its checksum
        EntryDamaged,     ///< an archive's entry cannot be unpacked to its end
        EntryName,        ///< an archive's entry has a name that no file can have
        ArchiveDirectory, ///< the directory of the archive is damaged
        ArchiveLimit      ///< the archive claims more than is read of one
    };

    Severity severity = Error; ///< that of this finding: one kind may have both
    Kind kind = Unreadable;    ///< what was found
    QString path;              ///< of the file, or of the folder
    QString entry;             ///< the name within an archive; otherwise empty
    qint64 record = -1; ///< which record of the chunk, counted from 0; -1 when it is about none
    qint64 byte = -1;   ///< where in the chunk or the directory; -1 when there is no such place
    QString text;       ///< a sentence for the user
};
