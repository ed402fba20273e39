#include "unpackedfile.h"

#include "archivelimits.h"
#include "decoder.h"
#include "fileerrors.h"
#include "storetexts.h"
#include "zippedfile.h"

#include <algorithm>

namespace {

constexpr char zipStart[] = "PK\x03\x04";

bool isTar(const QByteArray &start)
{
    constexpr int markOffset = 257;
    return start.mid(markOffset).startsWith("ustar");
}

QString severalFiles(const QString &archive)
{
    return StoreTexts::tr("The archive %1 holds several files and no chunk. Unpack it first.")
        .arg(archive);
}

QString unknownPacking(const QString &archive)
{
    return StoreTexts::tr(
               "The file in the archive %1 is encrypted or packed in a way that is not known.")
        .arg(archive);
}

QString compressedTwice(const QString &fileName)
{
    return StoreTexts::tr("The file %1 is compressed more than once. Unpack it first.")
        .arg(fileName);
}

QString archiveInside(const QString &fileName)
{
    return StoreTexts::tr("The file %1 holds an archive of several files. Unpack it first.")
        .arg(fileName);
}

} // namespace

UnpackedFile::UnpackedFile(const QString &fileName, Unpacking unpacking)
    : file(fileName), unpacking(unpacking)
{
}

UnpackedFile::~UnpackedFile() = default;

bool UnpackedFile::openForReading()
{
    if (!file.openForReading()) {
        setErrorString(file.errorString());
        return false;
    }
    return open(QIODevice::ReadOnly | QIODevice::Unbuffered) && begin();
}

bool UnpackedFile::begin()
{
    if (unpacking == Never)
        return true;
    const QByteArray start = file.peek(compressionBytes);
    if (start.startsWith(zipStart))
        return beginZip();
    kind = compressionOf(start);
    decoder = StreamDecoder::make(kind, file);
    return !decoder || !refuseInside();
}

bool UnpackedFile::beginZip()
{
    auto archive = std::make_unique<ZippedFile>(file.fileName());
    if (archive->kind() == ZippedFile::Other)
        return true;
    if (archive->kind() == ZippedFile::Several)
        return refuse(severalFiles(file.fileName()));
    if (archive->isBomb())
        return refuse(FileErrors::bomb(file.fileName()));
    if (!archive->open())
        return refuse(unknownPacking(file.fileName()));
    zip = archive.get();
    decoder = std::move(archive);
    return !refuseInside();
}

bool UnpackedFile::refuse(const QString &sentence)
{
    close();
    refused = sentence;
    return false;
}

// Of one layer the work is bounded by the size of the file, of several it is not.
bool UnpackedFile::refuseInside()
{
    constexpr int tarBlock = 512;
    const QByteArray start = peek(tarBlock);
    if (compressionOf(start) != Compression::None)
        return !refuse(compressedTwice(file.fileName()));
    if (isTar(start) || start.startsWith(zipStart))
        return !refuse(archiveInside(file.fileName()));
    return false;
}

QString UnpackedFile::compression() const
{
    return zip ? QStringLiteral("zip") : compressionName(kind);
}

QString UnpackedFile::name() const
{
    if (zip)
        return zip->name();
    return decoder ? nameInside(file.fileName()) : file.fileName();
}

QString UnpackedFile::readErrorText() const
{
    for (const QString &told : {file.readErrorText(), zip ? zip->readErrorText() : QString()}) {
        if (!told.isEmpty())
            return told;
    }
    return error.isEmpty() ? QString() : FileErrors::notRead(file.fileName(), error);
}

qint64 UnpackedFile::bytesRead() const
{
    return zip ? zip->bytesRead() : file.pos();
}

qint64 UnpackedFile::bytes() const
{
    return zip ? zip->bytes() : file.size();
}

bool UnpackedFile::seek(qint64 position)
{
    if (position != 0 || !isOpen())
        return false;
    // Drops what was read ahead.
    close();
    error.clear();
    unpacked = 0;
    isOver = false;
    if (zip)
        return zip->open() && open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    const bool isThere = file.seek(0);
    if (decoder)
        decoder = StreamDecoder::make(kind, file);
    return isThere && open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

qint64 UnpackedFile::bytesAvailable() const
{
    const qint64 ahead = QIODevice::bytesAvailable();
    if (!decoder)
        return ahead + file.bytesAvailable();
    if (isOver)
        return ahead;
    const qint64 most = zip ? zip->bytes() : ArchiveLimits::mostUnpacked(file.size());
    return ahead + std::max<qint64>(most - unpacked, 0);
}

qint64 UnpackedFile::readData(char *data, qint64 maxSize)
{
    if (!decoder)
        return file.read(data, maxSize);
    if (!error.isEmpty())
        return -1;
    const qint64 got = decoder->read(data, maxSize);
    isOver = got <= 0;
    unpacked += std::max<qint64>(got, 0);
    error = got < 0 ? decoder->errorText() : QString();
    if (!zip && ArchiveLimits::isBomb(file.size(), unpacked))
        error = StoreTexts::tr("It unpacks to more than 1000 times its size.");
    return error.isEmpty() ? got : -1;
}

qint64 UnpackedFile::writeData(const char *, qint64)
{
    return -1;
}
