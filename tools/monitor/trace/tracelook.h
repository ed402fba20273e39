#pragma once

/// How the table writes times and numbers. A plain value, kept in the settings for all tables.
struct TraceLook
{
    /// What times count from.
    enum Time {
        SinceStart,
        SinceRowBefore,
        SinceMark, ///< the message that the user has marked
        DateAndTime,
        Seconds, ///< as the records have them
        timeCount
    };

    Time time = SinceStart;
    int identifierBase = 16; ///< or 10
    int dataBase = 16;       ///< likewise

    static TraceLook load();
    void save() const;

    bool operator==(const TraceLook &other) const
    {
        return time == other.time && identifierBase == other.identifierBase
            && dataBase == other.dataBase;
    }
};
