#pragma once

#include <QMap>
#include <QProcess>
#include <QStringList>

/// Another process with a store, and what it has announced. The test program itself, started with
/// the arguments "record", the archive and a trace to import, which has to call recordAndImport().
class StoreProcess : public QProcess
{
public:
    static constexpr quint32 chunkSize = 200; ///< messages
    static constexpr quint32 traceSize = 500; ///< of the trace, from candumpLines

    StoreProcess(const QString &archive, const QString &trace);

    /// Reads on until this many chunks have been announced; false when that takes too long.
    bool waitForChunks(int count);

    /// Waits for its end, which has been brought about; whether that came without a crash.
    bool hasEnded();

    /// Whether everything announced is there, whole and exact.
    bool isKept();

    QString folder() { return told["folder"].value(0); }

    QMap<QString, QStringList> told;

private:
    void readLines();
};

/// What the other process does: it records, imports and packs without end. Writes a line for all
/// that the store announces; ends cleanly when its standard input is closed. Returns the exit
/// status.
int recordAndImport(const QString &archive, const QString &trace);
