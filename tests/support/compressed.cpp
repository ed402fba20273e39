#include "compressed.h"

#include <QtEndian>

#include <archive.h>
#include <archive_entry.h>
#include <zlib.h>

namespace {

using AddFilter = int (*)(archive *);

AddFilter filterOf(Compression compression)
{
    switch (compression) {
    case Compression::Gzip:
        return archive_write_add_filter_gzip;
    case Compression::Bzip2:
        return archive_write_add_filter_bzip2;
    case Compression::Xz:
        return archive_write_add_filter_xz;
    case Compression::Zstd:
        return archive_write_add_filter_zstd;
    case Compression::None:
        break;
    }
    return archive_write_add_filter_none;
}

} // namespace

QByteArray compressed(Compression compression, const QByteArray &bytes)
{
    QByteArray packed(bytes.size() * 2 + 4096, '\0');
    std::size_t used = 0;
    archive *const writer = archive_write_new();
    archive_entry *const entry = archive_entry_new();
    archive_entry_set_pathname(entry, "a");
    archive_entry_set_filetype(entry, AE_IFREG);
    const bool good = archive_write_set_format_raw(writer) == ARCHIVE_OK
        && filterOf(compression)(writer) == ARCHIVE_OK
        && archive_write_set_bytes_in_last_block(writer, 1) == ARCHIVE_OK
        && archive_write_open_memory(writer, packed.data(), std::size_t(packed.size()), &used)
            == ARCHIVE_OK
        && archive_write_header(writer, entry) == ARCHIVE_OK
        && archive_write_data(writer, bytes.constData(), std::size_t(bytes.size())) == bytes.size()
        && archive_write_close(writer) == ARCHIVE_OK;
    archive_entry_free(entry);
    archive_write_free(writer);
    if (!good)
        qFatal("the bytes cannot be compressed");
    return packed.left(int(used));
}

QByteArray withLongWindow(Compression compression, QByteArray bytes)
{
    if (compression == Compression::Zstd) {
        constexpr int windowOffset = 5;
        bytes[windowOffset] = '\xA8';
        return bytes;
    }
    // The header of the first block: its size in words but one, flags, the filter with its one
    // property, and a checksum.
    constexpr int header = 12;
    const int size = bytes.at(header) * 4;
    bytes[header + 4] = 37;
    const auto *start = reinterpret_cast<const Bytef *>(bytes.constData() + header);
    qToLittleEndian(quint32(crc32(0, start, uInt(size))), bytes.data() + header + size);
    return bytes;
}
