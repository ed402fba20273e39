#pragma once

#include "exporting.h"

#include <memory>

/// Files to be written in another format.
struct ConvertOrder
{
    QStringList paths;
    QString target; ///< a folder that gets a file for each of them, or the file of all, by time
    bool isMerged = false;
    ExportOrder form; ///< but for its target
};

/// What became of it.
struct ConvertResult
{
    int written = 0;      ///< files
    QStringList problems; ///< a sentence each, with the name of the file
    bool isCancelled = false;
};

/// Reads each of the files and folders, and writes what is in them. Any thread.
ConvertResult convertFiles(const ConvertOrder &order, JobControl &control);

/// The messages of a path; null, with the reason in \a problem, where it is no trace.
std::unique_ptr<TraceItems> itemsOf(const QString &path, const JobControl &control,
                                    QString &problem);
