#pragma once

#include "chunkindexing.h"
#include "chunkmarks.h"
#include "directoryentry.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>

/// Reads as many bytes of an open file as can be had; their number.
qint64 readSome(int descriptor, char *to, qint64 offset, qint64 size);

/// An open file for reading at any place. Any thread.
class ChunkHandle
{
public:
    /// Takes over \a descriptor.
    explicit ChunkHandle(int descriptor) : descriptor(descriptor) { }
    ~ChunkHandle();

    ChunkHandle(const ChunkHandle &) = delete;
    ChunkHandle &operator=(const ChunkHandle &) = delete;

    /// False when not all of the bytes can be had.
    bool read(char *to, qint64 offset, qint64 size) const;
    /// As many bytes as can be had; their number.
    qint64 readSome(char *to, qint64 offset, qint64 size) const;

private:
    const int descriptor;
};

/// The bytes of a chunk, wherever they lie. Any thread.
class ChunkBytes
{
public:
    using KeepGoing = std::function<bool()>;

    virtual ~ChunkBytes() = default;

    /// What the user calls it.
    virtual QString name() const = 0;
    /// Null when the chunk is no longer there, or no longer the one that it was.
    virtual std::shared_ptr<const ChunkHandle> open() const = 0;
    /// Calls \a read with a device at the start of the chunk. False, and nothing is called, when
    /// there is none.
    virtual bool readWith(const std::function<void(QIODevice &)> &read,
                          const KeepGoing &keepGoing) const = 0;

    /// Changes what is written on message \a offset of the chunk, whose index is \a index.
    virtual ChunkMarks::Changed change(const MarkChange &change, const ChunkIndex &index,
                                       quint32 offset) const = 0;

    /// NotOpened when the chunk is no longer there.
    virtual IndexedChunk index(const KeepGoing &keepGoing) const;
    /// The notes and bookmarks; none when they cannot be read.
    ChunkFormat::Maps maps() const;
};

/// A chunk file in the state in which it was found.
class ChunkFileBytes : public ChunkBytes
{
public:
    ChunkFileBytes(QString path, const FileIdentity &identity)
        : path(std::move(path)), identity(identity)
    {
    }

    QString name() const override { return path; }
    std::shared_ptr<const ChunkHandle> open() const override;
    bool readWith(const std::function<void(QIODevice &)> &read,
                  const KeepGoing &keepGoing) const override;
    ChunkMarks::Changed change(const MarkChange &change, const ChunkIndex &index,
                               quint32 offset) const override;

private:
    bool isStillThere(int handle) const;

    const QString path;
    const FileIdentity identity;
};
