#include "yardsticks.h"

#include "canrxmessage.h"

#include <QCoreApplication>
#include <QFile>

#include <array>
#include <cstring>
#include <vector>

namespace {

constexpr int blockSize = 256 * 1024;

// Calls handle(line, end) for every line of a file.
template <typename Handle> void forEachLine(const QString &fileName, const Handle &handle)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        qFatal("cannot read %s", qPrintable(fileName));
    std::vector<char> buffer(2 * blockSize);
    std::size_t kept = 0;
    qint64 got = 0;
    while ((got = file.read(buffer.data() + kept, blockSize)) > 0) {
        const char *at = buffer.data();
        const char *const end = at + kept + got;
        while (const void *found = std::memchr(at, '\n', std::size_t(end - at))) {
            handle(at, static_cast<const char *>(found));
            at = static_cast<const char *>(found) + 1;
        }
        kept = std::size_t(end - at);
        std::memmove(buffer.data(), at, kept);
    }
}

const std::array<quint8, 256> &hexDigits()
{
    static const std::array<quint8, 256> table = [] {
        std::array<quint8, 256> digits{};
        for (int i = 0; i < 10; ++i)
            digits[std::size_t('0' + i)] = quint8(i);
        for (int i = 0; i < 6; ++i)
            digits[std::size_t('A' + i)] = digits[std::size_t('a' + i)] = quint8(10 + i);
        return digits;
    }();
    return table;
}

} // namespace

qint64 scanLines(const QString &fileName)
{
    qint64 lines = 0;
    forEachLine(fileName, [&lines](const char *, const char *) { ++lines; });
    return lines;
}

qint64 parseCandumpFlat(const QString &fileName)
{
    const std::array<quint8, 256> &hex = hexDigits();
    // Kept from call to call, so that only parsing is measured and not the kernel's making of room.
    static std::vector<CAN::CanRxMessage> frames;
    frames.clear();
    forEachLine(fileName, [&](const char *at, const char *end) {
        CAN::CanRxMessage &frame = frames.emplace_back();
        for (++at; *at != '.'; ++at)
            frame.seconds = frame.seconds * 10 + (*at - '0');
        for (++at; *at != ')'; ++at)
            frame.microseconds = frame.microseconds * 10 + (*at - '0');
        for (at += 2; *at != ' '; ++at) { }
        for (++at; *at != '#'; ++at)
            frame.id = frame.id * 16 + hex[quint8(*at)];
        frame.extended = frame.id > 0x7FF;
        for (++at; at < end; at += 2)
            frame.data[frame.length++] = quint8(hex[quint8(at[0])] * 16 + hex[quint8(at[1])]);
    });
    return qint64(frames.size());
}

void turnEvents(int count)
{
    for (int i = 0; i < count; ++i)
        QCoreApplication::processEvents();
}

void writePlain(const QString &fileName, qint64 bytes)
{
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        qFatal("cannot write %s", qPrintable(fileName));
    const std::vector<char> block(blockSize, 'x');
    for (; bytes > 0; bytes -= blockSize)
        file.write(block.data(), qMin<qint64>(bytes, blockSize));
}

qint64 readPlain(const QStringList &fileNames)
{
    static std::vector<char> buffer(8 * 1024 * 1024);
    qint64 bytes = 0;
    for (const QString &fileName : fileNames) {
        QFile file(fileName);
        if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
            qFatal("cannot read %s", qPrintable(fileName));
        for (qint64 got = 1; got > 0; bytes += std::max<qint64>(got, 0))
            got = file.read(buffer.data(), qint64(buffer.size()));
    }
    return bytes;
}
