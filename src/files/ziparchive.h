#pragma once

#include "outcome.h"
#include "regularfile.h"
#include "workprogress.h"

#include <QFileInfo>
#include <QIODevice>
#include <QString>

#include <memory>
#include <vector>

class QuaZip;
class QuaZipFile;

/// ZIP archives as names and bytes. The one place that knows the ZIP library; what the entries
/// hold, and which of them to trust, is decided by its callers.
namespace Zip {

struct Entry
{
    QString name;
    qint64 size = 0;       ///< unpacked, as the archive claims; never above maxClaim
    qint64 packedSize = 0; ///< as the archive claims; never above the size of the archive
    quint64 offset = 0;    ///< where the directory of the archive has it
    quint64 number = 0;
};

/// Claims above are cut to this, far beyond anything that is ever unpacked, so that they can be
/// added up.
constexpr qint64 maxClaim = qint64(1) << 40;

/// The content of one entry, read from its start to its end. Reading fails, instead of ending,
/// where the entry is damaged: when it cannot be unpacked any further, or when all that it
/// claims to hold has been read and the checksum does not match. Never gives more bytes than
/// the entry claims to have. Each byte advances the work that it was opened for, which has to
/// outlive it. Belongs to the Reader that opened it.
class EntryDevice : public QIODevice
{
public:
    EntryDevice(std::unique_ptr<QuaZipFile> file, qint64 size, WorkProgress &work);
    ~EntryDevice() override;

    bool isSequential() const override { return true; }

    /// As the entry claims.
    qint64 bytesAvailable() const override { return size - done + QIODevice::bytesAvailable(); }

    /// The bytes unpacked so far, including those that have not been read yet.
    qint64 unpackedSize() const { return done; }

    /// Whether all that the entry claims to hold has been unpacked.
    bool isWhole() const { return done == size; }

    /// Whether the content read so far ended in damage.
    bool isDamaged() const { return damaged; }

protected:
    qint64 readData(char *data, qint64 maxSize) override;
    qint64 writeData(const char *data, qint64 maxSize) override;

private:
    qint64 readBlock(char *data, qint64 maxSize);
    qint64 checkEnd();

    const std::unique_ptr<QuaZipFile> file;
    const qint64 size;
    WorkProgress &work;
    qint64 done = 0;
    bool ended = false;
    bool damaged = false;
};

/// The file of an archive. Of each entry its place in the directory and its content are read in
/// turn, so the blocks around two places are kept. Knows its end: a directory may claim fields far
/// behind it, which are looked for byte by byte.
class ArchiveFile : public QIODevice
{
public:
    explicit ArchiveFile(const QString &fileName) : file(fileName) { }

    bool openForReading();
    qint64 size() const override { return end; }
    QString fileName() const { return file.fileName(); }

    /// What the user is told when reading has failed; empty when it has not.
    QString readErrorText() const { return file.readErrorText(); }

protected:
    qint64 readData(char *data, qint64 maxSize) override;
    qint64 writeData(const char *data, qint64 maxSize) override;

private:
    struct Block
    {
        qint64 start = 0;
        QByteArray bytes;
        bool holds(qint64 position) const
        {
            return position >= start && position < start + bytes.size();
        }
    };
    /// The block that holds \a position; empty behind the end and on a read error.
    const Block &blockAt(qint64 position);

    RegularFile file;
    qint64 end = 0;
    Block blocks[2];
    int lastUsed = 0;
};

/// An archive that is read.
class Reader
{
public:
    explicit Reader(const QString &fileName);
    ~Reader();

    /// False when the file cannot be read, is no regular file or no archive.
    bool isOpen() const { return opened; }

    QString fileName() const { return file.fileName(); }

    /// Size of the archive's file in bytes.
    qint64 size() const { return file.size(); }

    /// What the user is told when the file could not be read to its end; mostly empty.
    QString readErrorText() const { return file.readErrorText(); }

    /// How many entries the directory claims to have.
    quint64 entryCount() const;

    /// All entries in the order of the archive's directory, equal names included. Fewer than
    /// claimed when the directory is broken.
    std::vector<Entry> entries() const;

    /// Opens one entry, whatever others are called like it. Null when it is damaged or packed
    /// in an unknown way. One entry may be open at a time.
    std::unique_ptr<EntryDevice> open(const Entry &entry, WorkProgress &work) const;

private:
    ArchiveFile file;
    const std::unique_ptr<QuaZip> zip;
    const bool opened;
};

/// Packs \a files under their bare names into the archive \a fileName. The archive is written
/// beside its place and put there, at one stroke, when it is whole; otherwise an earlier archive
/// stays as it is. Files that are gone by now are left out. The outcome is done, GivenUp, NotOpened
/// when the archive cannot even be begun, of which the user is told nothing, or NotWritten.
Outcome packFiles(const QString &fileName, const QFileInfoList &files, WorkProgress &work);

} // namespace Zip
