#include "linesource.h"

#include <QTextCodec>

#include <algorithm>
#include <cstring>

namespace {

constexpr int blockSize = 256 * 1024;
constexpr int maxLineSize = 1024 * 1024;

bool isAscii(const char *bytes, int size)
{
    quint64 bits = 0;
    int i = 0;
    for (; i + 8 <= size; i += 8) {
        quint64 word;
        std::memcpy(&word, bytes + i, sizeof word);
        bits |= word;
    }
    for (; i < size; ++i)
        bits |= static_cast<unsigned char>(bytes[i]);
    return !(bits & Q_UINT64_C(0x8080808080808080));
}

// The size of a block, or for a small file only what it needs.
int roomFor(const QIODevice &device)
{
    constexpr qint64 smallestRoom = 1024;
    return int(qBound(smallestRoom, device.bytesAvailable() + 1, qint64(blockSize)));
}

} // namespace

LineSource::LineSource(QIODevice &device, CarriageReturns carriageReturns, Decoding decoding)
    : device(device), carriageReturns(carriageReturns), decoding(decoding)
{
    detectEncoding();
}

LineSource::~LineSource() = default;

void LineSource::detectEncoding()
{
    const QByteArray mark = device.peek(4);
    codec = QTextCodec::codecForUtfText(mark, QTextCodec::codecForLocale());
    decoder.reset();
    transcoded.clear();
    halfCharacter.clear();
    if (mark.startsWith("\xEF\xBB\xBF")) {
        device.skip(3);
    } else if (codec->name().startsWith("UTF-16") || codec->name().startsWith("UTF-32")) {
        decoder.reset(codec->makeDecoder());
        codec = QTextCodec::codecForName("UTF-8");
    }
}

void LineSource::rewind()
{
    device.seek(0);
    lineStart = position = size = 0;
    scan(0);
    detectEncoding();
}

qint64 LineSource::readBytes(char *to, int maximum)
{
    if (!decoder)
        return device.read(to, maximum);
    while (transcoded.isEmpty()) {
        const QByteArray block = device.read(blockSize);
        if (block.isEmpty())
            return 0;
        QString text = halfCharacter + decoder->toUnicode(block);
        halfCharacter.clear();
        // A character beyond 16 bits may be cut by the end of the block.
        if (!text.isEmpty() && text.at(text.size() - 1).isHighSurrogate()) {
            halfCharacter = text.right(1);
            text.chop(1);
        }
        transcoded = text.toUtf8();
    }
    const int bytes = std::min(maximum, transcoded.size());
    std::memcpy(to, transcoded.constData(), std::size_t(bytes));
    transcoded.remove(0, bytes);
    return bytes;
}

// Keeps the unfinished line, makes room behind it and reads on. False at the end.
bool LineSource::fill()
{
    const int kept = std::min(size - lineStart, maxLineSize);
    std::memmove(buffer.data(), buffer.constData() + lineStart, std::size_t(kept));
    lineStart = 0;
    size = kept;
    const int room = roomFor(device);
    if (buffer.size() < size + room)
        buffer.resize(size + room);
    const qint64 bytes = readBytes(buffer.data() + size, room);
    if (bytes <= 0)
        return false;
    const int start = size;
    size += int(bytes);
    scan(start);
    return true;
}

// Finds all line feeds behind start in one pass.
void LineSource::scan(int start)
{
    lineFeeds.clear();
    nextLineFeed = 0;
    const char *const bytes = buffer.constData() + start;
    const auto count = std::size_t(size - start);
    CharMask::forEach(Text<char>(bytes, count), CharMask::Is<'\n'>(),
                      [&](std::size_t at) { lineFeeds.push_back(start + int(at)); });
    allAscii = allAscii && isAscii(bytes, int(count));
    hasCarriageReturns = hasCarriageReturns || std::memchr(bytes, '\r', count) != nullptr;
}

bool LineSource::next()
{
    lineStart = position;
    while (nextLineFeed == lineFeeds.size()) {
        if (fill())
            continue;
        position = size;
        if (size == 0)
            return false;
        hasLineFeed = false;
        setLine({buffer.constData(), std::size_t(size)});
        return true;
    }
    const int end = lineFeeds[nextLineFeed++];
    position = end + 1;
    hasLineFeed = true;
    setLine({buffer.constData() + lineStart, std::size_t(std::min(end - lineStart, maxLineSize))});
    return true;
}

Text<char> LineSource::withoutCarriageReturns(Text<char> line)
{
    if (!line.empty() && line.back() == '\r')
        line.remove_suffix(1);
    if (!CharMask::anyOf(line, CharMask::Is<'\r'>()))
        return line;
    scratch.resize(int(line.size()));
    const auto end = std::remove_copy(line.begin(), line.end(), scratch.begin(), '\r');
    return {scratch.constData(), std::size_t(end - scratch.begin())};
}

void LineSource::setLine(Text<char> line)
{
    if (hasCarriageReturns && carriageReturns == CarriageReturns::Dropped)
        line = withoutCarriageReturns(line);
    plain = line;
    isDecoded =
        decoding == Decoding::Always || (!allAscii && !isAscii(line.data(), int(line.size())));
    if (!isDecoded)
        return;
    // The line is decoded as it would be in the whole text: its line feed ends a sequence that is
    // cut short, and a byte order mark counts as one at the start of the file only.
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    QByteArray bytes(line.data(), int(line.size()));
    if (hasLineFeed)
        bytes += '\n';
    decoded = codec->toUnicode(bytes.constData(), bytes.size(), &state);
    if (hasLineFeed)
        decoded.chop(1);
}
