#pragma once

#include "messageblock.h"
#include "parquettrace.h"
#include "partition.h"
#include "workfolder.h"

#include <QFile>

#include <map>

/// A file of a data set that is written, but not in its place yet.
struct DatasetPart
{
    QString fileName;
    QString folder; ///< its place within the data set
    quint64 messages;
};

/// Divides the messages of one trace among the files of a data set: one for each day, or one for
/// all. A few of them are open at a time, each with the memory of a row group.
class DatasetParts
{
public:
    /// \a work, where the files are, and \a partition must live as long; no other parts in that
    /// folder have a name that begins with \a prefix.
    DatasetParts(const WorkFolder &work, const Partition &partition, const QString &trace,
                 const QString &prefix);
    ~DatasetParts();

    enum Result {
        Written,
        TooManyDays, ///< the times of the trace are not those of a recording
        NotWritten   ///< the disk is full, or the like; errorText() tells
    };
    Result append(const MessageBlock &block);
    /// Ends all files.
    Result finish(const ParquetTrace::Source &source);

    std::vector<DatasetPart> parts() const;
    quint64 notesCut() const;
    QString errorText() const { return error; }

private:
    struct Part;

    Result partOf(qint64 day, Part *&part);
    bool closeOldest();
    bool open(Part &part);
    bool flush(Part &part);

    const WorkFolder &work;
    const Partition &partition;
    const QString trace;
    const QString prefix;
    std::map<qint64, std::unique_ptr<Part>> days;
    int openParts = 0;
    int timesOpened = 0;
    quint64 turn = 0; // counts the uses of parts
    QString error;
};
