#pragma once

#include <QSet>

#include <array>
#include <atomic>

/// The bus lines seen, by the low 8 bits of a record's line. Safe to use from any thread
/// without a lock.
class LineSet
{
public:
    /// True when \a line was not in the set.
    bool insert(unsigned char line)
    {
        const quint64 bit = quint64(1) << (line % 64);
        std::atomic<quint64> &word = words[line / 64];
        // Nearly every message comes from a line seen before, and a plain load is cheaper.
        if (word.load(std::memory_order_relaxed) & bit)
            return false;
        return !(word.fetch_or(bit) & bit);
    }

    void clear()
    {
        for (std::atomic<quint64> &word : words)
            word = 0;
    }

    QSet<unsigned char> toSet() const
    {
        QSet<unsigned char> lines;
        for (int line = 0; line < 256; ++line) {
            if (words[std::size_t(line / 64)] >> (line % 64) & 1)
                lines.insert(static_cast<unsigned char>(line));
        }
        return lines;
    }

private:
    std::array<std::atomic<quint64>, 4> words{};
};
