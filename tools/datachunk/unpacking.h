#pragma once

#include <QStringList>

class DatachunkHandler;

/// What was unpacked of an archive.
struct Unpacked
{
    QStringList chunks;   ///< the files, ordered by their starts
    bool damaged = false; ///< something of it is missing, which was printed
};

/// Unpacks the chunks of an archive, which the store keeps in its chunk folder. Nothing when a
/// signal came meanwhile.
Unpacked unpackArchive(DatachunkHandler &store, const QString &zipName);
