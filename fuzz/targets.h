#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <vector>

/// One thing to feed with arbitrary bytes. A run ends the process when what has to hold does not.
struct FuzzTarget
{
    QString name;
    std::function<void(const QByteArray &bytes)> run;
};

/// All targets; their names are the folders of the corpus. Needs a QCoreApplication.
std::vector<FuzzTarget> fuzzTargets();

std::vector<FuzzTarget> readerTargets();
std::vector<FuzzTarget> chunkTargets();
std::vector<FuzzTarget> archiveTargets();
std::vector<FuzzTarget> compressedTargets();
std::vector<FuzzTarget> careTargets();
std::vector<FuzzTarget> expressionTargets();
std::vector<FuzzTarget> directoryTargets();
std::vector<FuzzTarget> parquetTargets();

/// Ends the process with \a what unless it \a holds.
void require(bool holds, const char *what);

/// Where a target may have the file \a name; gone when the process ends well.
QString workPath(const QString &name);

/// Writes the file \a name there and returns its path.
QString inputFile(const QString &name, const QByteArray &bytes);
