#pragma once

#include "continuousoutput.h"
#include "teller.h"

#include <memory>

/// The continuous output of a store. Tells the user once for each file that is not complete; the
/// store may be gone then. One thread at a time.
class RecordingOutput
{
public:
    explicit RecordingOutput(const Teller &teller) : teller(teller) { }

    /// Ends the file before. False when the new one cannot be created, or the store is gone.
    bool create(const QString &fileName);
    void append(const CAN::CanRxMessage &message);
    /// False when the store is gone.
    bool finish();
    /// Goes on with a file that was begun elsewhere. False when the store is gone.
    bool goOnWith(std::unique_ptr<ContinuousOutput> begun);

private:
    bool tellError();

    const Teller teller;
    std::unique_ptr<ContinuousOutput> output = std::make_unique<ContinuousOutput>();
    bool errorTold = false;
};
