#pragma once

#include "teller.h"
#include "trace.h"

#include <QString>

#include <atomic>

/// Leaving the live messages for others, and coming back to them: what is shown, by whose wish, and
/// why nothing came of it. Application's thread where nothing else is said.
class Browsing
{
public:
    Browsing(const Teller &teller, Trace &trace) : teller(teller), trace(trace) { }

    /// Everything that decides what is shown is a wish; the newest counts. Any thread.
    quint32 newWish() { return ++wishes; }
    bool isNewestWish(quint32 wish) const { return wishes == wish; }

    /// Sets the live notes and bookmarks aside and empties the browsing list.
    void leaveLive();
    /// Back to the live messages, unless they are shown already.
    void showLive();
    /// The same as a wish of the user, which cancels an import.
    void goLive();

    // Imports and loads; one at a time. Any thread.

    bool isImporting() const { return importing; }
    /// Tells the application so and returns true while an import runs.
    bool refuseDuringImport();
    /// False when one runs already. endImport() follows.
    bool beginImport();
    void endImport() { importing = false; }
    bool isImportCancelled() const { return importCancelled; }
    /// Cancels the import that runs, as goLive() does, and wants nothing of it to stay.
    void discardImport();
    bool isImportDiscarded() const { return importDiscarded; }

    // What the user is told of an import that failed.

    void expectError() { lastError = DatachunkHandler::tr("Unknown import error"); }
    void setLastError(const QString &text) { lastError = text; }
    void tellLastError() { teller.tellLast(&DatachunkHandler::newErrorMessage, lastError); }
    void tellNothingImported();

    void setProgress(const ImportProgress &progress);
    /// Zeros while nothing is imported. Any thread.
    ImportProgress progress() const;

    // How texts are read, and what became of the last one.

    void setImportMode(DatachunkHelper::ImportMode mode) { modeOfImports = mode; }
    DatachunkHelper::ImportMode importMode() const { return modeOfImports; }
    void setReadsCompressed(bool always) { readsCompressedAlways = always; }
    bool readsCompressed() const { return readsCompressedAlways; }
    void setImportReport(const ImportReport &report) { lastReport = report; }
    ImportReport importReport() const { return lastReport; }

    const Teller teller;
    Trace &trace;

private:
    std::atomic<quint32> wishes{0};
    std::atomic<bool> importing{false};
    std::atomic<bool> importCancelled{false};
    std::atomic<bool> importDiscarded{false};
    QString lastError;
    DatachunkHelper::ImportMode modeOfImports = DatachunkHelper::Strict;
    bool readsCompressedAlways = false;
    std::atomic<qint64> bytesRead{0};
    std::atomic<qint64> bytesOfFile{0};
    std::atomic<quint64> messagesRead{0};
    ImportReport lastReport;
};
