#include "decoder.h"

#include "storetexts.h"

#include <algorithm>

Decoder::~Decoder() = default;

std::unique_ptr<Decoder> StreamDecoder::make(Compression compression, RegularFile &file)
{
    switch (compression) {
    case Compression::Gzip:
        return makeGzipDecoder(file);
    case Compression::Xz:
        return makeXzDecoder(file);
    case Compression::Bzip2:
    case Compression::Zstd:
        return makeArchiveDecoder(compression, file);
    case Compression::None:
        break;
    }
    return nullptr;
}

qint64 StreamDecoder::read(char *data, qint64 maxSize)
{
    constexpr qint64 mostInOneStep = 1LL << 30;
    qint64 done = 0;
    while (done < maxSize && !isAtEnd && !hasFailed())
        done += step(data + done, std::min(maxSize - done, mostInOneStep));
    return done > 0 || !hasFailed() ? done : -1;
}

const StreamDecoder::Bytes &StreamDecoder::input()
{
    return unused.size > 0 ? unused : nextBlock();
}

void StreamDecoder::keepLast(qint64 left)
{
    unused.data += unused.size - left;
    unused.size = left;
}

const StreamDecoder::Bytes &StreamDecoder::nextBlock()
{
    constexpr int blockSize = 64 * 1024;
    block.resize(blockSize);
    const qint64 got = file.read(block.data(), block.size());
    unused = {block.constData(), std::max<qint64>(got, 0)};
    return unused;
}

QString StreamDecoder::cut()
{
    return StoreTexts::tr("It is compressed, and its end is missing.");
}

QString Decoder::damaged()
{
    return StoreTexts::tr("It is compressed and damaged.");
}

QString StreamDecoder::needsMemory()
{
    constexpr qint64 mebibyte = 1024LL * 1024;
    return StoreTexts::tr("Unpacking it takes more than %1 MiB of memory.")
        .arg(mostMemory / mebibyte);
}

QString StreamDecoder::moreBehindEnd()
{
    return StoreTexts::tr("Something else stands behind the end of what is compressed.");
}
