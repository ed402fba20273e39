#pragma once

#include "datachunkhelper.h"

#include <QCommandLineParser>

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
};

/// Takes over the type and the layout that the options tell. False, with the usage error printed,
/// for wrong options.
bool readTraceOptions(const QCommandLineParser &parser, TraceFile &trace);

/// Detects the type where none was told. False, with a text printed, when the file cannot be opened
/// or is of no type that can be read.
bool checkTrace(TraceFile &trace);

/// The names of all types.
QStringList typeNames();
QString typeName(DatachunkHelper::ImportFileType type);
