#pragma once

#include "targetformat.h"
#include "traceitems.h"

/// What is to be written where.
struct ExportOrder
{
    QString target; ///< replaced when the new file is complete
    TargetFormat format;
    TraceExport::Times times = TraceExport::Absolute;
    bool withNotes = true; ///< in our own text; all others have them where they can
};

/// What became of it.
struct ExportResult
{
    bool isWritten = false;
    bool isCancelled = false;
    quint64 messages = 0; ///< that were handed to the format
    QString error;        ///< why it is not written
    QStringList losses;   ///< what is not in the file, a sentence each
};

/// Writes the items into a file that is there only when it is complete. Any thread.
ExportResult exportItems(TraceItems &items, const ExportOrder &order, JobControl &control);

/// The same as a file that need not be kept from others, and is left as it is when it fails.
ExportResult writeItems(TraceItems &items, const QString &fileName, const ExportOrder &order,
                        JobControl &control);

/// For the user.
Notice exportNotice(const ExportOrder &order, const ExportResult &result);
