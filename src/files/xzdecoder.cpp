#include "decoder.h"

#include <lzma.h>

namespace {

// By liblzma itself, where the memory can be bounded: a file may ask for a dictionary of 1.5 GiB.
class XzDecoder : public StreamDecoder
{
public:
    explicit XzDecoder(RegularFile &file) : StreamDecoder(file)
    {
        constexpr quint64 besidesWindow = 1024ULL * 1024;
        if (lzma_stream_decoder(&stream, mostMemory + besidesWindow, LZMA_CONCATENATED) != LZMA_OK)
            failed(needsMemory());
    }
    ~XzDecoder() override { lzma_end(&stream); }

protected:
    qint64 step(char *to, qint64 room) override;

private:
    void judge(lzma_ret result);

    lzma_stream stream = LZMA_STREAM_INIT;
};

qint64 XzDecoder::step(char *to, qint64 room)
{
    const Bytes from = input();
    stream.next_in = reinterpret_cast<const uint8_t *>(from.data);
    stream.avail_in = std::size_t(from.size);
    stream.next_out = reinterpret_cast<uint8_t *>(to);
    stream.avail_out = std::size_t(room);
    judge(lzma_code(&stream, from.size == 0 ? LZMA_FINISH : LZMA_RUN));
    keepLast(qint64(stream.avail_in));
    return room - qint64(stream.avail_out);
}

void XzDecoder::judge(lzma_ret result)
{
    switch (result) {
    case LZMA_OK:
        return;
    case LZMA_STREAM_END:
        return ended();
    case LZMA_MEMLIMIT_ERROR:
    case LZMA_MEM_ERROR:
        return failed(needsMemory());
    case LZMA_BUF_ERROR:
        return failed(cut());
    case LZMA_FORMAT_ERROR: // of a stream behind the first one
        return failed(moreBehindEnd());
    default:
        return failed(damaged());
    }
}

} // namespace

std::unique_ptr<Decoder> makeXzDecoder(RegularFile &file)
{
    return std::make_unique<XzDecoder>(file);
}
