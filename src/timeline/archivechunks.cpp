#include "archivechunks.h"

#include "archivelimits.h"
#include "fileerrors.h"
#include "storetexts.h"

#include <QDir>
#include <QTemporaryFile>

#include <fcntl.h>

namespace {

bool copyAll(QIODevice &from, QIODevice &to)
{
    QByteArray block(256 * 1024, Qt::Uninitialized);
    for (;;) {
        const qint64 got = from.read(block.data(), block.size());
        if (got <= 0)
            return true; // what is behind damage is left out
        if (!FileErrors::write(to, block.constData(), got))
            return false;
    }
}

} // namespace

ArchiveChunks::ArchiveChunks(const QString &path) : reader(path)
{
    const Outcome checked = ChunkArchive::checkDirectory(reader);
    if (!checked.isDone()) {
        error = checked.text.isEmpty() ? FileErrors::nothingImported() : checked.text;
        return;
    }
    Damage::List damage;
    WorkProgress work;
    all = ChunkArchive::chunksByStart(reader, work, damage);
    if (ChunkArchive::isBomb(reader, all)) {
        all.clear();
        error = FileErrors::bomb(path);
        return;
    }
    error = damage.sentences(path).join(QLatin1Char('\n'));
}

QString ArchiveChunks::nameOf(std::size_t chunk) const
{
    return Damage::entryName(all[chunk].entry.name, reader.fileName());
}

QString ArchiveChunks::damageOf(std::size_t chunk, const Zip::EntryDevice &content,
                                qint64 messages) const
{
    return content.isDamaged()
        ? ChunkArchive::damageOf(reader, all[chunk], content, Damage::messagesRead(messages))
        : QString();
}

bool ArchiveChunks::readWith(std::size_t chunk, const std::function<void(Zip::EntryDevice &)> &read,
                             const KeepGoing &keepGoing)
{
    const MutexLock locker(mutex);
    WorkProgress work(keepGoing);
    const auto content = reader.open(all[chunk].entry, work);
    if (content)
        read(*content);
    return content != nullptr;
}

std::shared_ptr<const ChunkHandle> ArchiveChunks::open(std::size_t chunk)
{
    constexpr std::size_t mostUnpacked = 16;
    const MutexLock locker(mutex);
    const auto known = std::find_if(unpacked.begin(), unpacked.end(),
                                    [chunk](const auto &entry) { return entry.first == chunk; });
    if (known != unpacked.end()) {
        unpacked.splice(unpacked.begin(), unpacked, known);
        return known->second;
    }
    const auto handle = unpack(chunk);
    if (handle)
        unpacked.emplace_front(chunk, handle);
    if (unpacked.size() > mostUnpacked)
        unpacked.pop_back();
    return handle;
}

std::shared_ptr<const ChunkHandle> ArchiveChunks::unpack(std::size_t chunk)
{
    QTemporaryFile file(QDir::tempPath() + QLatin1String("/datachunk-XXXXXX"));
    WorkProgress work;
    const auto content = reader.open(all[chunk].entry, work);
    if (!content || !file.open() || !copyAll(*content, file) || !file.flush())
        return {};
    // The file goes with its name when this ends; the handle keeps its bytes.
    const int handle = fcntl(file.handle(), F_DUPFD_CLOEXEC, 0);
    return handle < 0 ? nullptr : std::make_shared<const ChunkHandle>(handle);
}

bool ArchiveChunkBytes::readWith(const std::function<void(QIODevice &)> &read,
                                 const KeepGoing &keepGoing) const
{
    return archive->readWith(
        chunk, [&read](Zip::EntryDevice &content) { read(content); }, keepGoing);
}

IndexedChunk ArchiveChunkBytes::index(const KeepGoing &keepGoing) const
{
    IndexedChunk indexed;
    const ChunkReading::Bounds bounds{ArchiveLimits::memoryLimit(), keepGoing};
    const auto read = [&](Zip::EntryDevice &content) {
        // What damage cuts short is no record.
        indexed = indexChunk(content, bounds, [&content] { return content.isDamaged(); });
        indexed.damage = archive->damageOf(chunk, content, indexed.index.count);
    };
    bool isOpen = true;
    if (!withinMemory([&] { isOpen = archive->readWith(chunk, read, keepGoing); }))
        indexed.result = Outcome::TooLarge;
    if (!isOpen)
        indexed.damage = Damage::notOpened(name());
    return indexed;
}

ChunkMarks::Changed ArchiveChunkBytes::change(const MarkChange & /*change*/,
                                              const ChunkIndex & /*index*/,
                                              quint32 /*offset*/) const
{
    return {ChunkMarks::Changed::Failed,
            StoreTexts::tr("What is in the archive %1 stays as it is. Unpack the archive and open "
                           "its chunks to change notes and bookmarks.")
                .arg(archive->path())};
}
