#include "chunkversion.h"

#include "savefileworker.h"

quint16 SaveFileWorker::dataChunkVersion = 0;

// The member is a plain integer in an installed header, and several threads set it: these accesses
// are atomic.
void setCurrentChunkVersion(quint32 version)
{
    __atomic_store_n(&SaveFileWorker::dataChunkVersion, quint16(version), __ATOMIC_RELAXED);
}

quint32 currentChunkVersion()
{
    return __atomic_load_n(&SaveFileWorker::dataChunkVersion, __ATOMIC_RELAXED);
}
