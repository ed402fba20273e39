#pragma once

#include "datachunkhelper.h"

#include <QByteArray>
#include <QString>
#include <QVector>

/// A trace below data/traces and what its import has to give: the hand-written file
/// "<trace>.expected" beside it. Lines of that file that begin with "#" say how to import:
/// "#type NAME" in place of detection, "#description TEXT" for the described layout.
struct TraceFixture
{
    QString name; ///< folder and file
    QString fileName;
    QString expected;
    DatachunkHelper::ImportFileType type = DatachunkHelper::Unknown;
    bool isDetected = true; ///< the type was found by detection
    QString description;
};

/// All fixtures, sorted by name; fails the program when there are none.
QVector<TraceFixture> traceFixtures();
