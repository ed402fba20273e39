#include "decoder.h"

#include <zlib.h>

namespace {

// By zlib itself: of the libraries around it not all compare the checksum at the end of a member.
class GzipDecoder : public StreamDecoder
{
public:
    explicit GzipDecoder(RegularFile &file) : StreamDecoder(file)
    {
        constexpr int longestWindow = 15;
        constexpr int gzipAlone = 16;
        if (inflateInit2(&stream, longestWindow + gzipAlone) != Z_OK)
            failed(needsMemory());
    }
    ~GzipDecoder() override { inflateEnd(&stream); }

protected:
    qint64 step(char *to, qint64 room) override;

private:
    void judge(int result);

    z_stream stream = {};
    bool isInMember = true;
};

qint64 GzipDecoder::step(char *to, qint64 room)
{
    const Bytes from = input();
    if (from.size == 0) {
        if (isInMember)
            failed(cut());
        ended();
        return 0;
    }
    // A member behind another one has to begin as one.
    constexpr char firstByte = '\x1F';
    if (!isInMember && *from.data != firstByte) {
        failed(moreBehindEnd());
        return 0;
    }
    isInMember = true;
    stream.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(from.data));
    stream.avail_in = uInt(from.size);
    stream.next_out = reinterpret_cast<Bytef *>(to);
    stream.avail_out = uInt(room);
    judge(inflate(&stream, Z_NO_FLUSH));
    keepLast(stream.avail_in);
    return room - stream.avail_out;
}

void GzipDecoder::judge(int result)
{
    if (result == Z_STREAM_END) {
        isInMember = false;
        inflateReset(&stream);
    } else if (result != Z_OK) {
        failed(result == Z_MEM_ERROR ? needsMemory() : damaged());
    }
}

} // namespace

std::unique_ptr<Decoder> makeGzipDecoder(RegularFile &file)
{
    return std::make_unique<GzipDecoder>(file);
}
