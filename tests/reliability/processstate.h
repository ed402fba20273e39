#pragma once

#include <QString>

/// What a process holds of the things that a store may forget to give back.
struct ProcessState
{
    int threads = 0;
    int files = 0;
    int objects = 0;      ///< QObjects, counted since countObjects()
    int folders = 0;      ///< of stores
    qint64 heapBytes = 0; ///< 0 where the allocator does not tell
};

/// Starts counting QObjects.
void countObjects();

/// Ends the global pool's idle threads first.
ProcessState processState();

/// What there is more of than before; empty when everything was given back. Waits for threads
/// that are on their way out.
QString leftBehind(const ProcessState &before);
