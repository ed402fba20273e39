#include "directoryformat.h"
#include "targets.h"

namespace {

constexpr quint64 key = 0;

// What a directory gives can be relied on, and written again.
std::vector<DirectoryEntry> soundEntries(const QByteArray &directory)
{
    std::vector<DirectoryEntry> entries = DirectoryFormat::entries(directory, key);
    for (const DirectoryEntry &entry : entries) {
        require(entry.index.isSound(entry.file.size), "an entry is sound");
        const auto again = DirectoryFormat::entries(
            DirectoryFormat::head(0, key) + DirectoryFormat::encoded(entry, key), key);
        require(again.size() == 1 && again[0].name == entry.name && again[0].file == entry.file
                    && again[0].index == entry.index,
                "an entry that was written is read");
    }
    return entries;
}

void readDirectory(const QByteArray &bytes)
{
    soundEntries(bytes);
}

// Somebody who knows the key can put anything into an entry. A good one stands behind it.
void readEntry(const QByteArray &payload)
{
    DirectoryEntry good;
    good.name = QStringLiteral("behind");
    const QByteArray bytes = DirectoryFormat::head(0, key) + DirectoryFormat::framed(payload, key)
        + DirectoryFormat::encoded(good, key);
    const auto entries = soundEntries(bytes);
    require(!entries.empty() && entries.back().name == good.name, "the next entry is found");
}

} // namespace

std::vector<FuzzTarget> directoryTargets()
{
    return {{QStringLiteral("directory"), readDirectory},
            {QStringLiteral("directoryentry"), readEntry}};
}
