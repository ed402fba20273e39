#include "compression.h"

#include <array>

namespace {

struct Mark
{
    Compression compression;
    QLatin1String name;
    QByteArray start;
};

const std::array<Mark, 4> &marks()
{
    static const std::array<Mark, 4> all{
        {{Compression::Gzip, QLatin1String("gzip"), QByteArrayLiteral("\x1F\x8B\x08")},
         {Compression::Bzip2, QLatin1String("bzip2"), QByteArrayLiteral("BZh")},
         {Compression::Xz, QLatin1String("xz"), QByteArrayLiteral("\xFD\x37zXZ\0")},
         {Compression::Zstd, QLatin1String("zstd"), QByteArrayLiteral("\x28\xB5\x2F\xFD")}}};
    return all;
}

// The three letters alone might begin a text.
bool isBzip2(const QByteArray &start)
{
    constexpr int markSize = 4;
    const QByteArray block = start.mid(markSize, compressionBytes - markSize);
    return start.size() >= markSize && start.at(3) >= '1' && start.at(3) <= '9'
        && (block == QByteArrayLiteral("1AY&SY")
            || block == QByteArrayLiteral("\x17\x72\x45\x38\x50\x90"));
}

} // namespace

Compression compressionOf(const QByteArray &start)
{
    for (const Mark &mark : marks()) {
        if (start.startsWith(mark.start)
            && (mark.compression != Compression::Bzip2 || isBzip2(start)))
            return mark.compression;
    }
    return Compression::None;
}

QString compressionName(Compression compression)
{
    for (const Mark &mark : marks()) {
        if (mark.compression == compression)
            return mark.name;
    }
    return {};
}

QString nameInside(const QString &fileName)
{
    for (const char *ending : {".gz", ".bz2", ".xz", ".zst", ".zstd"}) {
        const QLatin1String text(ending);
        if (fileName.endsWith(text, Qt::CaseInsensitive))
            return fileName.left(fileName.size() - text.size());
    }
    return fileName;
}
