#include "ziparchive.h"

#include "archivelimits.h"
#include "fileerrors.h"

#include <quazip.h>
#include <quazipfile.h>
#include <quazipnewinfo.h>
#include <unzip.h>
#include <zip.h>

#include <QSaveFile>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#include <unistd.h>

namespace Zip {

namespace {

constexpr qint64 blockSize = 256LL * 1024;

qint64 boundedClaim(quint64 claim, qint64 bound)
{
    return qint64(std::min(claim, quint64(bound)));
}

bool openArchive(ArchiveFile &file, QuaZip &zip)
{
    return file.openForReading() && zip.open(QuaZip::mdUnzip) && zip.goToFirstFile();
}

} // namespace

EntryDevice::EntryDevice(std::unique_ptr<QuaZipFile> file, qint64 size, WorkProgress &work)
    : file(std::move(file)), size(size), work(work)
{
    open(QIODevice::ReadOnly);
}

EntryDevice::~EntryDevice() = default;

// Reads again until all bytes are there: a stream takes a short read for the end of its device.
qint64 EntryDevice::readData(char *data, qint64 maxSize)
{
    qint64 total = 0;
    while (total < maxSize) {
        const qint64 got = readBlock(data + total, maxSize - total);
        if (got <= 0)
            return total > 0 ? total : got;
        total += got;
    }
    return total;
}

qint64 EntryDevice::readBlock(char *data, qint64 maxSize)
{
    if (done == size || damaged)
        return checkEnd();
    if (!work.goesOn())
        return -1;
    const qint64 wanted = std::min({maxSize, blockSize, size - done});
    const qint64 got = file->read(data, wanted);
    if (got <= 0) {
        damaged = true;
        return -1;
    }
    done += got;
    work.advance(got);
    return got;
}

qint64 EntryDevice::checkEnd()
{
    if (!std::exchange(ended, true) && !damaged) {
        // The library compares the checksum when the entry is closed.
        file->close();
        damaged = file->getZipError() != UNZ_OK;
    }
    return damaged ? -1 : 0;
}

qint64 EntryDevice::writeData(const char *, qint64)
{
    return -1;
}

bool ArchiveFile::openForReading()
{
    if (!file.openForReading())
        return false;
    end = file.size();
    return open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

const ArchiveFile::Block &ArchiveFile::blockAt(qint64 position)
{
    constexpr qint64 size = 64LL * 1024;
    if (blocks[lastUsed].holds(position))
        return blocks[lastUsed];
    lastUsed = 1 - lastUsed;
    Block &block = blocks[lastUsed];
    if (block.holds(position))
        return block;
    block.start = position - position % size;
    block.bytes.clear();
    if (position < end && file.seek(block.start))
        block.bytes = file.read(std::min(size, end - block.start));
    return block;
}

qint64 ArchiveFile::readData(char *data, qint64 maxSize)
{
    qint64 total = 0;
    while (total < maxSize) {
        const qint64 position = pos() + total;
        const Block &block = blockAt(position);
        if (!block.holds(position))
            break;
        const qint64 offset = position - block.start;
        const qint64 got = std::min(maxSize - total, block.bytes.size() - offset);
        std::memcpy(data + total, block.bytes.constData() + offset, std::size_t(got));
        total += got;
    }
    return total > 0 || file.readErrorText().isEmpty() ? total : -1;
}

qint64 ArchiveFile::writeData(const char *, qint64)
{
    return -1;
}

Reader::Reader(const QString &fileName)
    : file(fileName), zip(std::make_unique<QuaZip>(&file)), opened(openArchive(file, *zip))
{
}

Reader::~Reader() = default;

quint64 Reader::entryCount() const
{
    unz_global_info64 info = {};
    return opened && unzGetGlobalInfo64(zip->getUnzFile(), &info) == UNZ_OK ? info.number_entry : 0;
}

std::vector<Entry> Reader::entries() const
{
    std::vector<Entry> found;
    QuaZipFileInfo64 info;
    unz64_file_pos position = {};
    for (bool more = opened && zip->goToFirstFile(); more; more = zip->goToNextFile()) {
        if (!zip->getCurrentFileInfo(&info)
            || unzGetFilePos64(zip->getUnzFile(), &position) != UNZ_OK)
            break;
        found.push_back({info.name, boundedClaim(info.uncompressedSize, maxClaim),
                         boundedClaim(info.compressedSize, size()), position.pos_in_zip_directory,
                         position.num_of_file});
    }
    // Entries are opened through the library below QuaZip, by their positions. QuaZip does not
    // notice that, and would refuse once it has seen the end of the directory.
    if (opened)
        zip->goToFirstFile();
    return found;
}

std::unique_ptr<EntryDevice> Reader::open(const Entry &entry, WorkProgress &work) const
{
    unz64_file_pos position = {};
    position.pos_in_zip_directory = entry.offset;
    position.num_of_file = entry.number;
    if (!opened || unzGoToFilePos64(zip->getUnzFile(), &position) != UNZ_OK)
        return nullptr;
    auto content = std::make_unique<QuaZipFile>(zip.get());
    if (!content->open(QIODevice::ReadOnly))
        return nullptr;
    return std::make_unique<EntryDevice>(std::move(content), entry.size, work);
}

namespace {

enum class Step { Done, Failed, GivenUp };

Step copy(QIODevice &from, QIODevice &to, WorkProgress &work)
{
    QByteArray block(int(blockSize), Qt::Uninitialized);
    for (;;) {
        if (!work.goesOn())
            return Step::GivenUp;
        const qint64 got = from.read(block.data(), block.size());
        if (got == 0)
            return Step::Done;
        if (got < 0 || to.write(block.constData(), got) != got)
            return Step::Failed;
        work.advance(got);
    }
}

bool isAscii(const QString &name)
{
    return std::all_of(name.begin(), name.end(), [](QChar c) { return c.unicode() < 0x80; });
}

// Large entries marked as UTF-8 are too new for some programs, so only names that need the mark
// get it.
void markNameAsUtf8(QuaZip &zip, bool isUtf8)
{
    zip.setUtf8Enabled(isUtf8);
    // The library uses the setting for names at once, but for the mark only when it opens the
    // archive.
    const auto mark = isUtf8 ? zipSetFlags : zipClearFlags;
    mark(zip.getZipFile(), ZIP_ENCODING_UTF8);
}

Step packFile(QuaZip &zip, const QFileInfo &info, WorkProgress &work, QString &readError)
{
    constexpr qint64 zip64From = qint64(1) << 31;
    constexpr int fastest = 1;
    constexpr int windowBits = -15;
    constexpr int memoryLevel = 8;
    constexpr int defaultStrategy = 0;
    RegularFile file(info.filePath());
    if (!file.openForReading()) {
        if (file.isMissing())
            return Step::Done;
        readError = FileErrors::notRead(file.fileName(), file.errorString());
        return Step::Failed;
    }
    zip.setZip64Enabled(file.size() >= zip64From);
    markNameAsUtf8(zip, !isAscii(info.fileName()));
    QuaZipFile entry(&zip);
    // Of a link the file behind it is packed, so the entry must not be marked as a link.
    const QuaZipNewInfo newInfo(info.fileName(), info.canonicalFilePath());
    if (!entry.open(QIODevice::WriteOnly, newInfo, nullptr, 0, Z_DEFLATED, fastest, false,
                    windowBits, memoryLevel, defaultStrategy))
        return Step::Failed;
    const Step step = copy(file, entry, work);
    readError = file.readErrorText();
    entry.close();
    return step == Step::Done && entry.getZipError() != UNZ_OK ? Step::Failed : step;
}

Step packAll(QuaZip &zip, const QFileInfoList &files, WorkProgress &work, QString &readError)
{
    qint64 size = 0;
    for (const QFileInfo &info : files)
        size += info.size();
    work.begin(size);
    for (const QFileInfo &info : files) {
        const Step step = packFile(zip, info, work, readError);
        if (step != Step::Done)
            return step;
    }
    return Step::Done;
}

// Puts the archive in its place. QSaveFile alone would do so even if there was no room for the last
// bytes, or if the disk shows only while it is synchronised that it is full.
QString commit(QSaveFile &file)
{
    // QSaveFile copies the permissions of the file it replaces; it sets none if it cannot read
    // them.
    if (!(file.permissions() & QFileDevice::ReadOwner))
        file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    if (!file.flush())
        return file.errorString();
    if (fsync(file.handle()) != 0)
        return qt_error_string(errno);
    return file.commit() ? QString() : file.errorString();
}

} // namespace

Outcome packFiles(const QString &fileName, const QFileInfoList &files, WorkProgress &work)
{
    const auto notWritten = [&fileName](const QString &reason) {
        return Outcome{Outcome::NotWritten, FileErrors::notWritten(fileName, reason), 0};
    };
    const QFileInfo target(fileName);
    QSaveFile file(fileName);
    // A device or a pipe of that name must not be replaced by a file.
    const bool taken = target.exists() && !target.isFile();
    if (fileName.isEmpty() || taken)
        return Outcome::notOpened();
    if (quint64(files.size()) > ArchiveLimits::maxEntries)
        return notWritten(FileErrors::tooManyFiles(int(ArchiveLimits::maxEntries)));
    if (!file.open(QIODevice::WriteOnly))
        return Outcome::notOpened();
    QuaZip zip(&file);
    zip.setAutoClose(false);
    if (!zip.open(QuaZip::mdCreate))
        return notWritten(file.errorString());
    QString readError;
    Step step = Step::Failed;
    if (!withinMemory([&] { step = packAll(zip, files, work, readError); }))
        readError = FileErrors::outOfMemory(fileName);
    zip.close();
    if (step == Step::GivenUp)
        return Outcome::givenUp();
    const bool whole = step == Step::Done && zip.getZipError() == UNZ_OK;
    const QString error = whole ? commit(file) : file.errorString();
    if (!readError.isEmpty())
        return {Outcome::NotWritten, readError, 0};
    return error.isEmpty() ? Outcome::done() : notWritten(error);
}

} // namespace Zip
