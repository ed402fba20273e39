#pragma once

#include <QtGlobal>

/// The process-wide chunk version that SaveFileWorker::dataChunkVersion shows. What this library
/// reads and writes itself does not go by it. Any thread.
void setCurrentChunkVersion(quint32 version);
quint32 currentChunkVersion();
