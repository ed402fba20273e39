#pragma once

#include "browsing.h"
#include "savejob.h"

class PartialChunks;

/// One load or import from its beginning to its end, on the stack of the function that does it.
/// The event loop is turned meanwhile, so that the store may be told to cancel, or be deleted,
/// under the hands of everybody who works for it: whoever has turned the loop asks goesOn()
/// before the next use of the store. Application's thread.
class ImportRun
{
public:
    /// Runs inside the one already going on, if any. Otherwise it takes the chunks that it has left
    /// in \a chunks away when it ends, if it has been discarded.
    explicit ImportRun(Browsing &browsing, PartialChunks *chunks = nullptr);
    ~ImportRun();

    ImportRun(const ImportRun &) = delete;
    ImportRun &operator=(const ImportRun &) = delete;

    bool storeExists() const { return teller.storeExists(); }

    /// False when the store is gone or the import was cancelled.
    bool goesOn() const;

    /// Turns the event loop once; goesOn().
    bool turn() const;

    /// Turns the event loop until the job, if there is one, has ended, and delivers the reports
    /// that are on their way; goesOn().
    bool waitFor(const SharedSaveJob &job) const;

    // Each of these ends the run, and the store may be gone then.

    /// Shows the browsing list, and has it saved in \a chunks unless that is null. False, and back
    /// in live mode, when the list is empty or the import was cancelled.
    bool finish(PartialChunks *chunks) const;
    /// Goes live and returns false.
    bool cancelled() const;
    /// The same, and tells the last error.
    bool failed() const;

private:
    bool show(PartialChunks *chunks) const;

    Browsing &browsing;
    PartialChunks *const chunksToDiscard;
    const Teller teller;
    const bool outermost;
};
