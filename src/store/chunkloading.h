#pragma once

#include "browsing.h"
#include "chunkformat.h"
#include "chunkreading.h"
#include "savejob.h"

/// Loading chunks into the browsing list. Application's thread; the event loop is turned, and the
/// store may be gone afterwards.
namespace ChunkLoading {

/// Adds the messages of a chunk file to the browsing list and takes over its notes and bookmarks.
/// False when nothing was read; the user has been told why unless the file cannot be opened.
bool readFile(Browsing &browsing, const QString &fileName, ChunkFormat::BookmarkMap bookmarkMap);

/// Shows a chunk whose file is not complete as the file will show it.
void showPending(Browsing &browsing, const SaveJob &job);

/// Tells why a chunk is not read and goes live.
void refuse(Browsing &browsing, Outcome::Kind result, quint32 messagesAtMost);

} // namespace ChunkLoading
