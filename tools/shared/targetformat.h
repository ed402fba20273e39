#pragma once

#include "traceexport.h"

#include <QStringList>

#include <optional>

/// What a trace is written as: a chunk file or a text of ours, a format of another tool, or
/// Parquet.
struct TargetFormat
{
    enum Kind { OwnChunk, OwnText, Foreign, Parquet };
    Kind kind = OwnText;
    TraceExport::Format foreign = TraceExport::Candump; ///< where it is one

    /// Of "dck", "txt", "parquet" or a name that TraceExport knows.
    static std::optional<TargetFormat> named(const QString &name);
    /// By the end of the name.
    static std::optional<TargetFormat> ofFile(const QString &fileName);
    /// Of all formats, with commas between.
    static QString allNames();

    /// Whether it is one of this library's.
    bool isOwn() const { return kind == OwnChunk || kind == OwnText; }

    QString name() const;
    /// What the name of a file of the format ends in.
    QString suffix() const;
};
