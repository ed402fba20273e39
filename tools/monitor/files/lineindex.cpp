#include "lineindex.h"

#include <QCoreApplication>
#include <QIODevice>

#include <algorithm>
#include <cstring>

namespace {

struct Source
{
    Q_DECLARE_TR_FUNCTIONS(Source)
};

// Some 2 MiB of places at the most.
constexpr qint64 leastStep = 64LL * 1024;
constexpr qint64 mostPlaces = 100000;

// Of a line that goes on behind the step only the beginning is read.
constexpr qint64 beyondStep = 4LL * LineIndex::mostShown;

} // namespace

LineIndex::LineIndex(qint64 bytes, const QByteArray &beginning)
    : step(std::max(leastStep, bytes / mostPlaces)), isWide(beginning.startsWith("\xFF\xFE")),
      isBigEndian(beginning.startsWith("\xFE\xFF")), places{{1, 0}}
{
    isWide = isWide || isBigEndian;
}

// The index behind the next line end, or -1.
int LineIndex::findEnd(const char *bytes, int from, int size) const
{
    const int width = isWide ? 2 : 1;
    while (from < size) {
        const void *found = std::memchr(bytes + from, '\n', std::size_t(size - from));
        if (!found)
            return -1;
        const int at = int(static_cast<const char *>(found) - bytes);
        const int begin = isBigEndian ? at - 1 : at;
        const int other = isBigEndian ? at - 1 : at + 1;
        if (!isWide || (begin >= 0 && begin % 2 == 0 && other < size && bytes[other] == 0))
            return begin + width;
        from = at + 1;
    }
    return -1;
}

void LineIndex::add(const char *bytes, qint64 count)
{
    for (int at = 0; (at = findEnd(bytes, at, int(count))) >= 0;) {
        ++lineCount;
        lastEnd = end + at;
        if (lastEnd - places.back().offset >= step)
            places.push_back({lineCount, lastEnd});
    }
    end += count;
}

std::size_t LineIndex::placeOf(quint64 line) const
{
    const auto behind =
        std::upper_bound(places.begin(), places.end(), line,
                         [](quint64 number, const Place &place) { return number < place.line; });
    return std::size_t(behind - places.begin()) - 1;
}

QString LineIndex::textOf(const QByteArray &bytes) const
{
    QString text;
    if (isWide) {
        for (int i = 0; i + 1 < bytes.size(); i += 2) {
            const auto low = uchar(bytes.at(isBigEndian ? i + 1 : i));
            const auto high = uchar(bytes.at(isBigEndian ? i : i + 1));
            text += QChar(low, high);
        }
    } else {
        text = QString::fromUtf8(bytes);
        // Cutting a line may have split its last character.
        if (text.chopped(text.isEmpty() ? 0 : 1).contains(QChar::ReplacementCharacter))
            text = QString::fromLatin1(bytes);
    }
    while (text.endsWith(QLatin1Char('\n')) || text.endsWith(QLatin1Char('\r')))
        text.chop(1);
    return text.size() > mostShown ? text.left(mostShown) + QChar(0x2026) : text;
}

// The lines from next on that begin between a place and the one behind it, and before line behind.
QStringList LineIndex::linesAt(QIODevice &file, std::size_t place, quint64 &next,
                               quint64 behind) const
{
    const Place &from = places[place];
    const bool isLast = place + 1 == places.size();
    const quint64 endLine = isLast ? lineCount + 1 : places[place + 1].line;
    const qint64 endOffset = isLast ? end : places[place + 1].offset;
    QByteArray bytes;
    if (file.seek(from.offset))
        bytes = file.read(std::min(endOffset - from.offset, step + beyondStep));
    QStringList texts;
    quint64 line = from.line;
    const quint64 last = std::min(endLine, behind);
    for (int at = 0; line < last && at <= bytes.size(); ++line) {
        const int found = findEnd(bytes.constData(), at, bytes.size());
        const int lineEnd = found < 0 ? bytes.size() : found;
        if (line >= next)
            texts += textOf(bytes.mid(at, int(std::min<qint64>(lineEnd - at, beyondStep))));
        at = found < 0 ? bytes.size() + 1 : found;
    }
    // The file has become shorter.
    for (line = std::max(line, next); line < last; ++line)
        texts += Source::tr("(cannot be read any more)");
    next = std::max(next, last);
    return texts;
}

QStringList LineIndex::read(QIODevice &file, quint64 first, int count) const
{
    QStringList texts;
    quint64 next = std::max<quint64>(1, first);
    const quint64 behind = std::min(next + quint64(count), lineCount + 1);
    for (std::size_t place = placeOf(next); place < places.size() && next < behind; ++place)
        texts += linesAt(file, place, next, behind);
    return texts;
}
