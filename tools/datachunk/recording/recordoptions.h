#pragma once

#include "canbussource.h"
#include "recorder.h"

#include <QCommandLineParser>

/// What the user wants of a recording.
struct RecordOptions
{
    QString into;
    bool newFolder = false; ///< a folder of its own inside
    CanBusOptions bus;      ///< candump lines without a plug-in
    ChunkLimits limits;
    CaptureRules rules;
    qint64 every = 0;              ///< milliseconds of the clock in one chunk file; 0 for any
    std::optional<qint64> reserve; ///< bytes of the disk to be left
};

/// Nothing, with the usage error printed, when the options are wrong.
std::optional<RecordOptions> readRecordOptions(const QCommandLineParser &parser);
