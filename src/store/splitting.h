#pragma once

#include "browsing.h"
#include "recordingoutput.h"

/// Cuts a chunk file into parts, see DatachunkHandler::splitFile(). The last part becomes what
/// \a output goes on with. Application's thread; the event loop is turned, and the store may be
/// gone afterwards.
bool splitChunkFile(Browsing &browsing, RecordingOutput &output, const QString &fileName,
                    quint32 messagesPerFile);
