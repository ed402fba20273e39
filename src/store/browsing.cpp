#include "browsing.h"

#include "fileerrors.h"

void Browsing::leaveLive()
{
    newWish();
    if (!teller.tell(&DatachunkHandler::informAboutClearStart))
        return;
    trace.leaveLive();
    expectError();
}

void Browsing::showLive()
{
    if (trace.isLive())
        return;
    // A slot may have been faster.
    if (!teller.tell(&DatachunkHandler::informAboutClearStart) || !trace.showLive())
        return;
    if (teller.tell(&DatachunkHandler::informAboutCleared, trace.isLive()))
        teller.tellLast(&DatachunkHandler::liveModeChanged, trace.isLive());
}

void Browsing::goLive()
{
    if (trace.isLive() && !importing)
        return;
    importCancelled = true;
    newWish();
    showLive();
}

bool Browsing::refuseDuringImport()
{
    if (!importing)
        return false;
    teller.tellLast(&DatachunkHandler::messagesImported, QString());
    return true;
}

bool Browsing::beginImport()
{
    if (importing.exchange(true))
        return false;
    importCancelled = false;
    importDiscarded = false;
    setProgress({});
    return true;
}

void Browsing::setProgress(const ImportProgress &progress)
{
    bytesRead = progress.bytesRead;
    bytesOfFile = progress.bytes;
    messagesRead = progress.messages;
}

ImportProgress Browsing::progress() const
{
    return importing ? ImportProgress{bytesRead, bytesOfFile, messagesRead} : ImportProgress();
}

void Browsing::discardImport()
{
    if (!importing)
        return;
    importDiscarded = true;
    goLive();
}

void Browsing::tellNothingImported()
{
    lastError = FileErrors::nothingImported();
    tellLastError();
}
