#pragma once

#include <QStringList>

/// How the files of a data set are divided into folders, "KEY=VALUE" in one another as Hive has
/// them. A value.
class Partition
{
public:
    /// Takes over "source", "source=NAME" and "date", in their order, with commas between. False,
    /// with the usage error printed, when they are wrong.
    bool read(const QString &text);

    /// Whether messages of different days go to different folders.
    bool hasDate() const { return keys.contains(QLatin1String("date")); }
    /// The day of a time in microseconds, counted from 1970 in UTC.
    static qint64 dayOf(qint64 time);

    /// The folder, within that of the data set, for a day of a trace called \a trace, which is its
    /// source unless the user names one.
    QString folderOf(const QString &trace, qint64 day) const;
    /// Whether a folder within that of a data set is of the same keys.
    bool fits(const QString &folder) const;
    /// The keys, for the user.
    QString text() const { return keys.join(QLatin1Char(',')); }

private:
    QStringList keys;
    QString source; // empty where each trace has its own
};
