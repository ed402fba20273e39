#pragma once

#include "savejob.h"

#include <QPointer>

class DatachunkHandler;

/// One load or import from its beginning to its end, on the stack of the function that does it.
/// The event loop is turned meanwhile, so that the store may be told to cancel, or be deleted,
/// under the hands of everybody who works for it: whoever has turned the loop asks goesOn()
/// before the next use of the store.
class ImportRun
{
public:
    /// Runs inside the one already going on, if any.
    explicit ImportRun(DatachunkHandler *store);
    ~ImportRun();

    ImportRun(const ImportRun &) = delete;
    ImportRun &operator=(const ImportRun &) = delete;

    bool storeExists() const { return !store.isNull(); }

    /// False when the store is gone or the import was cancelled.
    bool goesOn() const;

    /// Turns the event loop once; goesOn().
    bool turn() const;

    /// Turns the event loop until the job has ended and its reports are delivered; goesOn().
    bool waitFor(const SharedSaveJob &job) const;

private:
    const QPointer<DatachunkHandler> store;
    const bool outermost;
};
