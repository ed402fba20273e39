#pragma once

#include "compression.h"
#include "regularfile.h"

#include <QIODevice>

#include <memory>

class Decoder;
class ZippedFile;

/// A regular file for reading, or what is inside it where it is compressed: one file in gzip,
/// bzip2, xz or zstd, or the only one of a ZIP archive that holds no chunks. Read from front to
/// back, in the memory of a block and of the window that the compression has, and unpacked nowhere
/// else. Reading fails where nothing more can be unpacked, and where more comes than a bomb's
/// limit.
class UnpackedFile : public QIODevice
{
public:
    enum Unpacking { WhereCompressed, Never };

    explicit UnpackedFile(const QString &fileName, Unpacking unpacking = WhereCompressed);
    ~UnpackedFile() override;

    /// False, with nothing opened, as RegularFile::openForReading(), or with a refusal.
    bool openForReading();

    /// A sentence for the user, when the file can be read but what is inside is no single file.
    QString refusal() const { return refused; }

    bool isCompressed() const { return decoder != nullptr; }
    /// "gzip", "zip" and so on.
    QString compression() const;
    /// What the file is called, or what is inside it.
    QString name() const;
    /// The file as it is. Must not be read while this is.
    RegularFile &packed() { return file; }

    /// What the user is told when reading has failed; empty when it has not.
    QString readErrorText() const;

    /// How far the reading has come, and of how much: in bytes of the file, of a ZIP archive
    /// unpacked ones.
    qint64 bytesRead() const;
    qint64 bytes() const;

    bool isSequential() const override { return true; }
    /// Reads from the beginning again; no other place can be gone to.
    bool seek(qint64 position) override;
    /// Of a compressed file the most that it can hold and is not read yet.
    qint64 bytesAvailable() const override;

protected:
    qint64 readData(char *data, qint64 maxSize) override;
    qint64 writeData(const char *data, qint64 maxSize) override;

private:
    bool begin();
    bool beginZip();
    bool refuse(const QString &sentence);
    bool refuseInside();

    RegularFile file;
    const Unpacking unpacking;
    Compression kind = Compression::None;
    std::unique_ptr<Decoder> decoder;
    ZippedFile *zip = nullptr; // the decoder of an archive
    qint64 unpacked = 0;
    bool isOver = false;
    QString refused;
    QString error;
};
