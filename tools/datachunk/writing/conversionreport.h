#pragma once

#include "traceexport.h"

struct Conversion;

/// What was written of a trace, and what its format could not say.
struct ConversionLosses
{
    ConversionLosses() = default;
    explicit ConversionLosses(const TraceExport &trace);
    /// Those of a Parquet file.
    ConversionLosses(quint64 written, quint64 notesCut);

    /// Bookmarks that have no place in the format.
    void addBookmarks(quint64 bookmarks);

    struct Row
    {
        QString text; ///< a sentence with the number
        QString name; ///< a word for programs
        quint64 messages;
    };

    bool areAny() const { return !rows.isEmpty(); }
    /// All of it in one line.
    QString line() const;

    quint64 written = 0;
    quint64 leftOut = 0;
    QVector<Row> rows;
};

/// Prints them to standard error, where there are any, or as JSON where the user wants that.
void tellLosses(const ConversionLosses &losses, const Conversion &conversion);

/// Tells that a file is not written; an error of standard output is told at the end of the program.
void tellNotWritten(const QString &target, const QString &reason = {});
