#pragma once

#include "chunkarchive.h"
#include "chunkbytes.h"
#include "locks.h"

#include <list>
#include <memory>
#include <utility>

/// The chunks of an archive. What is looked at is unpacked into a file without a name, so that it
/// takes no memory; a number of them is kept. Any thread.
class ArchiveChunks
{
public:
    using KeepGoing = ChunkBytes::KeepGoing;

    explicit ArchiveChunks(const QString &path);

    QString path() const { return reader.fileName(); }
    /// Why it cannot be read; empty when it can.
    QString problem() const { return error; }
    /// All of them, in order of their start.
    const std::vector<ChunkArchive::Chunk> &chunks() const { return all; }
    QString nameOf(std::size_t chunk) const;
    /// What is wrong with a chunk whose content has been read to its end, but for the chunk itself.
    QString damageOf(std::size_t chunk, const Zip::EntryDevice &content, qint64 messages) const;

    std::shared_ptr<const ChunkHandle> open(std::size_t chunk) EXCLUDES(mutex);
    bool readWith(std::size_t chunk, const std::function<void(Zip::EntryDevice &)> &read,
                  const KeepGoing &keepGoing) EXCLUDES(mutex);

private:
    std::shared_ptr<const ChunkHandle> unpack(std::size_t chunk) REQUIRES(mutex);

    const Zip::Reader reader;
    std::vector<ChunkArchive::Chunk> all;
    QString error;
    Mutex mutex; // the reader reads one entry at a time
    std::list<std::pair<std::size_t, std::shared_ptr<const ChunkHandle>>>
        unpacked GUARDED_BY(mutex);
};

/// One of them.
class ArchiveChunkBytes : public ChunkBytes
{
public:
    ArchiveChunkBytes(std::shared_ptr<ArchiveChunks> archive, std::size_t chunk)
        : archive(std::move(archive)), chunk(chunk)
    {
    }

    QString name() const override { return archive->nameOf(chunk); }
    std::shared_ptr<const ChunkHandle> open() const override { return archive->open(chunk); }
    bool readWith(const std::function<void(QIODevice &)> &read,
                  const KeepGoing &keepGoing) const override;
    IndexedChunk index(const KeepGoing &keepGoing) const override;
    /// Always refused.
    ChunkMarks::Changed change(const MarkChange &change, const ChunkIndex &index,
                               quint32 offset) const override;

private:
    const std::shared_ptr<ArchiveChunks> archive;
    const std::size_t chunk;
};
