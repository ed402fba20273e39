#include "decoder.h"

#include <archive.h>
#include <archive_entry.h>

#include <cstring>

namespace {

struct FreeArchive
{
    void operator()(archive *reader) const { archive_read_free(reader); }
};

// The one filter that is wanted, and no other: what is compressed in turn is refused by others.
class ArchiveDecoder : public StreamDecoder
{
public:
    ArchiveDecoder(int filter, RegularFile &file) : StreamDecoder(file), filter(filter) { }

protected:
    qint64 step(char *to, qint64 room) override;

private:
    static la_ssize_t readNext(archive *, void *self, const void **block);
    bool begin();
    void checkEnd();
    void failedIn();

    const int filter;
    std::unique_ptr<archive, FreeArchive> reader;
    bool asksBehindEnd = false;
};

qint64 ArchiveDecoder::step(char *to, qint64 room)
{
    if (!reader && !begin())
        return 0;
    const la_ssize_t got = archive_read_data(reader.get(), to, std::size_t(room));
    if (got < 0)
        failedIn();
    else if (got == 0)
        checkEnd();
    return got < 0 ? 0 : got;
}

// What is too short for a member is passed over by the reader.
void ArchiveDecoder::checkEnd()
{
    const qint64 used = archive_filter_bytes(reader.get(), -1);
    if (used < fileSize())
        failed(used > 0 ? moreBehindEnd() : cut());
    ended();
}

// The reader unpacks the first block while it is opened, and takes a failure for an empty file.
bool ArchiveDecoder::begin()
{
    reader.reset(archive_read_new());
    archive *const from = reader.get();
    archive_entry *entry = nullptr;
    // Any other answer than OK means that another program would have to unpack it.
    const bool isOpen = from && archive_read_append_filter(from, filter) == ARCHIVE_OK
        && archive_read_support_format_raw(from) == ARCHIVE_OK
        && archive_read_support_format_empty(from) == ARCHIVE_OK
        && archive_read_open(from, this, nullptr, readNext, nullptr) == ARCHIVE_OK
        && archive_errno(from) == 0;
    const int header = isOpen ? archive_read_next_header(from, &entry) : ARCHIVE_FATAL;
    if (header == ARCHIVE_EOF)
        checkEnd();
    else if (header != ARCHIVE_OK)
        failedIn();
    return header == ARCHIVE_OK;
}

la_ssize_t ArchiveDecoder::readNext(archive *, void *self, const void **block)
{
    auto *decoder = static_cast<ArchiveDecoder *>(self);
    const Bytes &bytes = decoder->nextBlock();
    decoder->asksBehindEnd = bytes.size == 0;
    *block = bytes.data;
    return la_ssize_t(bytes.size);
}

void ArchiveDecoder::failedIn()
{
    const char *reason = reader ? archive_error_string(reader.get()) : nullptr;
    if (!reader || (reason && std::strstr(reason, "memory")))
        return failed(needsMemory());
    failed(asksBehindEnd ? cut() : damaged());
}

} // namespace

std::unique_ptr<Decoder> makeArchiveDecoder(Compression compression, RegularFile &file)
{
    const bool isZstd = compression == Compression::Zstd;
    return std::make_unique<ArchiveDecoder>(isZstd ? ARCHIVE_FILTER_ZSTD : ARCHIVE_FILTER_BZIP2,
                                            file);
}
