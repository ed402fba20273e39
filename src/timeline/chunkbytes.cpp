#include "chunkbytes.h"

#include "archivelimits.h"
#include "chunkdirectory.h"
#include "chunkremark.h"
#include "fileerrors.h"
#include "regularfile.h"
#include "uninterrupted.h"

#include <QFileInfo>

#include <fcntl.h>
#include <unistd.h>

namespace {

bool alwaysGoesOn()
{
    return true;
}

} // namespace

ChunkHandle::~ChunkHandle()
{
    close(descriptor);
}

qint64 readSome(int descriptor, char *to, qint64 offset, qint64 size)
{
    qint64 done = 0;
    while (done < size) {
        const int got = uninterrupted([&] {
            return int(
                pread64(descriptor, to + done, std::size_t(size - done), off64_t(offset + done)));
        });
        if (got <= 0)
            break;
        done += got;
    }
    return done;
}

qint64 ChunkHandle::readSome(char *to, qint64 offset, qint64 size) const
{
    return ::readSome(descriptor, to, offset, size);
}

bool ChunkHandle::read(char *to, qint64 offset, qint64 size) const
{
    return readSome(to, offset, size) == size;
}

IndexedChunk ChunkBytes::index(const KeepGoing &keepGoing) const
{
    IndexedChunk chunk;
    const ChunkReading::Bounds bounds{ArchiveLimits::memoryLimit(), keepGoing};
    const auto read = [&](QIODevice &device) { chunk = indexChunk(device, bounds); };
    if (!withinMemory([&] { readWith(read, keepGoing); }))
        chunk.result = Outcome::TooLarge;
    return chunk;
}

ChunkFormat::Maps ChunkBytes::maps() const
{
    ChunkReading::Front front;
    const ChunkReading::Bounds bounds{ArchiveLimits::memoryLimit(), alwaysGoesOn};
    const auto read = [&](QIODevice &device) {
        ChunkReading::readFront(device, ChunkFormat::BookmarkMap::Read, bounds, front);
    };
    if (!withinMemory([&] { readWith(read, alwaysGoesOn); }))
        return {};
    return front.maps;
}

// A file that has only grown still has what it had. One whose notes and bookmarks have changed is
// another one, even if it gets the number of one before it; what was written to it is as old.
bool ChunkFileBytes::isStillThere(int handle) const
{
    const std::optional<FileIdentity> now = FileIdentity::of(handle);
    return now && now->inode == identity.inode
        && (*now == identity || (now->size > identity.size && now->modified != identity.modified)
            || (now->size == identity.size && now->modified == identity.modified));
}

std::shared_ptr<const ChunkHandle> ChunkFileBytes::open() const
{
    const QByteArray encoded = QFile::encodeName(path);
    const int handle = uninterrupted([&encoded] {
        return open64(encoded.constData(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
    });
    if (handle < 0)
        return {};
    auto opened = std::make_shared<const ChunkHandle>(handle);
    return isStillThere(handle) ? opened : nullptr;
}

bool ChunkFileBytes::readWith(const std::function<void(QIODevice &)> &read,
                              const KeepGoing & /*keepGoing*/) const
{
    RegularFile file(path);
    if (!file.openForReading() || !isStillThere(file.handle()))
        return false;
    read(file);
    return true;
}

ChunkMarks::Changed ChunkFileBytes::change(const MarkChange &change, const ChunkIndex &index,
                                           quint32 offset) const
{
    std::optional<ChunkIndex> now;
    const auto findNumber = [&](int handle, const ChunkReading::Front &front) {
        const auto file = FileIdentity::of(handle);
        now = file ? remarkedIndex(index, identity, *file, front) : std::nullopt;
        return now ? numberAt(path, *file, *now, offset) : std::nullopt;
    };
    const auto placed = [&](int handle, const ChunkReading::Front &front) {
        const QFileInfo file(path);
        const auto there = FileIdentity::of(handle);
        if (!there || !QFile::exists(ChunkDirectory::path(file.path())))
            return;
        putBehind(front, *now);
        ChunkDirectory::add(file.path(), {file.fileName(), *there, *now});
    };
    return ChunkMarks::change(path, change, findNumber, placed);
}
