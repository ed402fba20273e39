#pragma once

#include <QtGlobal>

#include <utility>

/// The application's wish to have the chunks packed after an export. An export carries the wish it
/// was ordered with, because a chunk that is saved meanwhile uses the wish up. One thread at a
/// time.
class PackWish
{
public:
    void set(bool wanted)
    {
        isWanted = wanted;
        ++number;
    }

    /// What an export that is ordered now carries; 0 for no wish.
    quint32 forExport() const { return isWanted ? number : 0; }

    void chunkSaved() { isWanted = false; }

    /// An export has ended that carried \a wish. Whether the chunks are to be packed now; the
    /// exports behind it have carried the same wish, which is then fulfilled for all of them.
    bool exportEnded(quint32 wish)
    {
        if (wish != 0 && wish == number)
            isWanted = true;
        if (!std::exchange(isWanted, false))
            return false;
        ++number;
        return true;
    }

private:
    bool isWanted = false;
    quint32 number = 0; // of wishes so far
};
