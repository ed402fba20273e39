#include "directoryformat.h"

#include "directorybytes.h"
#include "directorypayload.h"
#include "directorywindow.h"

#include <QHash>
#include <QSysInfo>
#include <QtEndian>

#include <cstring>

#include <unistd.h>

// Inlined, so that the library needs no other one for it.
#define XXH_INLINE_ALL
#include <xxhash.h>

namespace DirectoryFormat {

namespace {

constexpr char magic[] = "\xD1"
                         "direct\n";
constexpr char mark[] = "\xD1"
                        "chunk\r\n";
constexpr int markSize = 8;
constexpr int sealSize = 16;
constexpr int frontSize = markSize + 4; // with the size of the payload

using DirectoryBytes::get;
using DirectoryBytes::Writer;

XXH128_canonical_t sealOf(const char *from, qint64 size, quint64 key)
{
    XXH128_canonical_t seal;
    XXH128_canonicalFromHash(&seal, XXH3_128bits_withSeed(from, std::size_t(size), key));
    return seal;
}

// Ends what is written with the seal of it.
QByteArray withSeal(Writer &out, quint64 key)
{
    const XXH128_canonical_t seal = sealOf(out.room().constData(), out.size(), key);
    out.putBytes(&seal, sealSize);
    return out.room();
}

bool hasSeal(const char *from, qint64 size, quint64 key)
{
    const XXH128_canonical_t seal = sealOf(from, size, key);
    return std::memcmp(&seal, from + size, sealSize) == 0;
}

/// Goes through what lies behind the head of a directory.
class Search
{
public:
    Search(const ReadAt &read, qint64 size, quint64 key)
        : window(read, size), size(size), key(key), mostInVain(4 * size)
    {
    }

    /// The next entry that is whole; false at the end.
    bool next(DirectoryEntry &entry);

    /// The first byte passed over so far; -1 for none.
    qint64 damagedAt() const { return firstDamage; }

private:
    const char *findMark();
    void passOver(qint64 end);

    DirectoryWindow window;
    const qint64 size;
    qint64 offset = headSize;
    qint64 wholeEnd = headSize; // behind the last entry
    qint64 firstDamage = -1;
    const quint64 key;
    // Marks that promise much and hold nothing must not take for ever.
    qint64 mostInVain; // bytes
    DirectoryPayload::Reader payloads;
};

// Null at the end.
const char *Search::findMark()
{
    while (const char *from = window.at(offset, frontSize + sealSize)) {
        const qint64 bytes = window.bytesAt(offset);
        const void *found = memmem(from, std::size_t(bytes), mark, markSize);
        if (found == from)
            return from;
        offset += found ? static_cast<const char *>(found) - from : bytes - (markSize - 1);
    }
    return nullptr;
}

// What lies between the last entry and \a end belongs to none.
void Search::passOver(qint64 end)
{
    if (firstDamage < 0 && end > wholeEnd)
        firstDamage = wholeEnd;
}

bool Search::next(DirectoryEntry &entry)
{
    while (mostInVain > 0) {
        const char *front = findMark();
        if (!front)
            break;
        const auto size = qFromLittleEndian<quint32>(front + markSize);
        const qint64 sealed = frontSize + qint64(size);
        front = size > DirectoryPayload::mostBytes ? nullptr : window.at(offset, sealed + sealSize);
        if (!front || !hasSeal(front, sealed, key)) {
            mostInVain -= front ? sealed : 0;
            offset += markSize;
            continue;
        }
        const qint64 begin = offset;
        offset += sealed + sealSize;
        entry = {};
        if (!payloads.read(front + frontSize, size, entry))
            continue;
        passOver(begin);
        wholeEnd = offset;
        return true;
    }
    passOver(size);
    return false;
}

} // namespace

quint64 ownKey()
{
    static const quint64 key = [] {
        const QByteArray owner = QSysInfo::machineUniqueId() + '\n' + QByteArray::number(getuid())
            + '\n' + QByteArray::number(version);
        return XXH3_64bits(owner.constData(), std::size_t(owner.size()));
    }();
    return key;
}

QByteArray head(qint64 compactBytes, quint64 key)
{
    Writer out(headSize);
    out.putBytes(magic, markSize);
    out.put(version);
    out.put(compactBytes);
    return withSeal(out, key);
}

std::optional<qint64> compactBytes(const QByteArray &bytes, quint64 key)
{
    if (bytes.size() < headSize || std::memcmp(bytes.constData(), magic, markSize) != 0
        || !hasSeal(bytes.constData(), headSize - sealSize, key))
        return {};
    const char *at = bytes.constData() + markSize;
    if (get<quint32>(at) != version)
        return {};
    const auto compact = get<qint64>(at);
    if (compact < 0 || compact > mostBytes)
        return {};
    return compact;
}

QByteArray encoded(const DirectoryEntry &entry, quint64 key)
{
    const QByteArray payload = DirectoryPayload::encoded(entry);
    return payload.isEmpty() ? payload : framed(payload, key);
}

QByteArray framed(const QByteArray &payload, quint64 key)
{
    Writer out(frontSize + payload.size() + sealSize);
    out.putBytes(mark, markSize);
    out.put(quint32(payload.size()));
    out.putBytes(payload.constData(), payload.size());
    return withSeal(out, key);
}

std::vector<DirectoryEntry> entries(const ReadAt &read, qint64 size, quint64 key, qint64 *damagedAt)
{
    std::vector<DirectoryEntry> all;
    qint64 ignored = 0;
    qint64 &damage = damagedAt ? *damagedAt : ignored;
    damage = 0;
    QByteArray front(headSize, Qt::Uninitialized);
    front.truncate(int(read(front.data(), 0, std::min<qint64>(size, headSize))));
    if (size > mostBytes || !compactBytes(front, key))
        return all;
    QHash<QString, std::size_t> places;
    Search search(read, size, key);
    for (DirectoryEntry entry; search.next(entry);) {
        const auto known = places.constFind(entry.name);
        if (known != places.constEnd()) {
            all[*known] = std::move(entry);
            continue;
        }
        places.insert(entry.name, all.size());
        all.push_back(std::move(entry));
    }
    damage = search.damagedAt();
    return all;
}

std::vector<DirectoryEntry> entries(const QByteArray &bytes, quint64 key)
{
    const auto read = [&bytes](char *to, qint64 offset, qint64 size) {
        std::memcpy(to, bytes.constData() + offset, std::size_t(size));
        return size;
    };
    return entries(read, bytes.size(), key);
}

} // namespace DirectoryFormat
