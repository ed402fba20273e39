#pragma once

/// \file
/// Making a cut chunk file whole.

#include "datachunkglobal.h"

#include <QString>

/// Cuts off what stands behind the last whole record of a chunk file, which is how a disk that gets
/// full leaves one, so that it holds exactly what can be read. Returns the number of its records;
/// 0, with the file left as it is, when there is none, and -1 when it cannot be read or cut. Nobody
/// may be writing the file. Any thread.
DATACHUNK_EXPORT qint64 cutToWholeRecords(const QString &fileName);
