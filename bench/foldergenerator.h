#pragma once

#include <QString>

/// Deterministic traffic in the chunk files of a folder, with their directory: 400 identifiers, a
/// quarter of them extended, on 4 lines. What is rare in it is planted.
namespace FolderGenerator {

/// One message of so many has this identifier and these 8 bytes, or is an error frame.
constexpr qint64 messagesPerRare = 1000003;
constexpr quint32 rareId = 0x7AB;
constexpr quint8 rareByte = 0x5A;
constexpr qint64 messagesPerError = 777777;

/// Usual messages of a chunk.
constexpr int chunkSize = 100000;

/// Writes \a messages into chunks of \a messagesPerChunk. False when that fails.
bool write(const QString &folder, qint64 messages, int messagesPerChunk);

} // namespace FolderGenerator
