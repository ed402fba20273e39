#include "linesource.h"

#include "lineparts.h"
#include "misreads.h"

#include <QTextCodec>

#include <algorithm>
#include <cstring>

namespace {

constexpr int blockSize = 256 * 1024;
constexpr int maxLineSize = 1024 * 1024;
constexpr std::size_t mostCharacters = ImportReport::mostCharacters;

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
int roomFor(const TextBytes &bytes)
{
    constexpr qint64 smallestRoom = 1024;
    return int(qBound(smallestRoom, bytes.bytesAvailable() + 1, qint64(blockSize)));
}

} // namespace

LineSource::LineSource(QIODevice &device, CarriageReturns carriageReturns, Decoding decoding)
    : bytes(device), carriageReturns(carriageReturns), decoding(decoding),
      misreads(LineFields::misreads()), misreadsAtBegin(misreads)
{
}

LineSource::~LineSource()
{
    // While an import turns the event loop another trace may be read from beginning to end. What
    // it misreads is none of the import's lines.
    misreads = misreadsAtBegin;
}

void LineSource::rewind()
{
    bytes.rewind();
    account = {};
    misreadsBefore = misreads;
    current.isKept = true;
    lineStart = position = size = 0;
    scan(0);
}

// Keeps the unfinished line, makes room behind it and reads on. False at the end.
bool LineSource::fill()
{
    const int kept = std::min(size - lineStart, maxLineSize);
    std::memmove(buffer.data(), buffer.constData() + lineStart, std::size_t(kept));
    lineStart = 0;
    size = kept;
    const int room = roomFor(bytes);
    if (buffer.size() < size + room)
        buffer.resize(size + room);
    const qint64 got = bytes.read(buffer.data() + size, room);
    if (got <= 0)
        return false;
    const int start = size;
    size += int(got);
    scan(start);
    return true;
}

// Finds all line feeds behind start in one pass.
void LineSource::scan(int start)
{
    lineFeeds.clear();
    nextLineFeed = 0;
    const char *const read = buffer.constData() + start;
    const auto count = std::size_t(size - start);
    CharMask::forEach(Text<char>(read, count), CharMask::Is<'\n'>(),
                      [&](std::size_t at) { lineFeeds.push_back(start + int(at)); });
    allAscii = allAscii && isAscii(read, int(count));
    hasCarriageReturns = hasCarriageReturns || std::memchr(read, '\r', count) != nullptr;
}

bool LineSource::next()
{
    if (!current.isKept)
        settle();
    current.isKept = !moveOn();
    if (current.isKept)
        return false;
    ++account.lines;
    return true;
}

const ImportReport &LineSource::finishReport()
{
    if (!current.isKept)
        settle();
    current.isKept = true;
    return account;
}

// Puts a line without a frame to the others of its reason.
void LineSource::settle()
{
    if (current.reason == ImportReport::WrongShape) {
        if (current.plain.size() == maxLineSize)
            current.reason = ImportReport::CutAtLimit;
        else
            visit([this](auto line) {
                const auto text = LineFields::trimmed(line);
                if (text.empty())
                    current.reason = ImportReport::Empty;
                else if (text.front() == '#')
                    current.reason = ImportReport::Comment;
            });
    }
    addTo(account.leftOut[current.reason]);
    current.reason = ImportReport::WrongShape;
    misreadsBefore = misreads;
}

void LineSource::keepUnlikely()
{
    addTo(account.unlikely);
    misreadsBefore = misreads;
}

void LineSource::addTo(ImportReport::Lines &lines) const
{
    if (lines.count == 0)
        lines.text = visit([](auto line) { return toQString(line.substr(0, mostCharacters)); });
    lines.add(number());
}

bool LineSource::moveOn()
{
    lineStart = position;
    while (nextLineFeed == lineFeeds.size()) {
        if (fill())
            continue;
        position = size;
        if (size == 0)
            return false;
        current.hasLineFeed = false;
        setLine({buffer.constData(), std::size_t(size)});
        return true;
    }
    const int end = lineFeeds[nextLineFeed++];
    position = end + 1;
    current.hasLineFeed = true;
    setLine({buffer.constData() + lineStart, std::size_t(std::min(end - lineStart, maxLineSize))});
    return true;
}

Text<char> LineSource::withoutCarriageReturns(Text<char> line)
{
    if (!line.empty() && line.back() == '\r')
        line.remove_suffix(1);
    if (!CharMask::anyOf(line, CharMask::Is<'\r'>()))
        return line;
    current.scratch.resize(int(line.size()));
    const auto end = std::remove_copy(line.begin(), line.end(), current.scratch.begin(), '\r');
    return {current.scratch.constData(), std::size_t(end - current.scratch.begin())};
}

void LineSource::setLine(Text<char> line)
{
    if (hasCarriageReturns && carriageReturns == CarriageReturns::Dropped)
        line = withoutCarriageReturns(line);
    current.plain = line;
    current.isDecoded =
        decoding == Decoding::Always || (!allAscii && !isAscii(line.data(), int(line.size())));
    if (!current.isDecoded)
        return;
    // The line is decoded as it would be in the whole text: its line feed ends a sequence
    // that is cut short, and a byte order mark counts as one at the start of the file only.
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    QByteArray whole(line.data(), int(line.size()));
    if (current.hasLineFeed)
        whole += '\n';
    current.decoded = bytes.codec().toUnicode(whole.constData(), whole.size(), &state);
    if (current.hasLineFeed)
        current.decoded.chop(1);
}
