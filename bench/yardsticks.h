#pragma once

#include <QString>
#include <QStringList>

/// What a benchmark is measured against in the same process: work that cannot be done in less.

/// Counts the lines of a file with memchr over large blocks.
qint64 scanLines(const QString &fileName);

/// Parses a compact candump log into a flat array, trusting every byte of it; returns the number
/// of frames.
qint64 parseCandumpFlat(const QString &fileName);

/// Turns the event loop so often.
void turnEvents(int count);

/// Writes so many bytes with plain write() in blocks.
void writePlain(const QString &fileName, qint64 bytes);

/// Reads all bytes of the files with read(2) into one buffer of 8 MiB; returns their number.
qint64 readPlain(const QStringList &fileNames);
