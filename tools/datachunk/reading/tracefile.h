#pragma once

#include "datachunkhelper.h"

#include <QCommandLineParser>

class QIODevice;
class StandardInput;

/// A trace that the user named, and how to read it.
struct TraceFile
{
    QString name;
    DatachunkHelper::ImportFileType type = DatachunkHelper::Unknown;
    bool detectsType = false; ///< the user told none
    QString formatDescription;
    DatachunkHelper::ImportMode mode = DatachunkHelper::Tolerant;
    bool reportsAsJson = false;
    bool failsOnLoss = false;
    QIODevice *device = nullptr; ///< read instead of the file
};

/// Takes over the type and the layout that the options tell. False, with the usage error printed,
/// for wrong options.
bool readTraceOptions(const QCommandLineParser &parser, TraceFile &trace);

/// Detects the type where none was told. False, with a text printed, when the file cannot be opened
/// or is of no type that can be read.
bool checkTrace(TraceFile &trace);

/// Has the trace read from standard input, and does the same. False also for what is no text.
bool checkStandardInput(TraceFile &trace, StandardInput &input);

/// The names of all types.
QStringList typeNames();
QString typeName(DatachunkHelper::ImportFileType type);
