#pragma once

#include "tracestream.h"

#include <utility>
#include <vector>

/// Messages one behind the other, with what belongs to some of them.
struct MessageBlock
{
    /// Whether it should take no more messages: a text may have a note of a million characters on
    /// every line.
    bool isFull(std::size_t mostMessages) const
    {
        constexpr std::size_t mostNoteCharacters = std::size_t(256) * 1024;
        return messages.size() >= mostMessages || noteCharacters >= mostNoteCharacters;
    }

    std::vector<CAN::CanRxMessage> messages;
    /// By the place in the block, rising.
    std::vector<std::pair<std::size_t, QString>> notes;
    std::vector<std::pair<std::size_t, CanMessageBookmark>> bookmarks;
    std::size_t noteCharacters = 0;

    void add(const CAN::CanRxMessage &message) { messages.push_back(message); }
    /// The note and the bookmark of the message added last, unless they are empty.
    void addNote(const QString &note)
    {
        if (note.isEmpty())
            return;
        notes.emplace_back(messages.size() - 1, note);
        noteCharacters += std::size_t(note.size());
    }
    void addBookmark(const CanMessageBookmark &bookmark)
    {
        if (bookmark.isValid())
            bookmarks.emplace_back(messages.size() - 1, bookmark);
    }
    void clear()
    {
        messages.clear();
        notes.clear();
        bookmarks.clear();
        noteCharacters = 0;
    }
};

/// Goes along with the messages of a block, and knows what belongs to each.
class BlockCursor
{
public:
    /// \a block must live as long.
    explicit BlockCursor(const MessageBlock &block) : block(block) { }

    bool isAtEnd() const { return at == block.messages.size(); }
    const CAN::CanRxMessage &message() const { return block.messages[at]; }
    const QString &note() const { return hasNote() ? block.notes[nextNote].second : none; }
    CanMessageBookmark bookmark() const
    {
        return hasBookmark() ? block.bookmarks[nextBookmark].second : CanMessageBookmark();
    }
    void moveOn()
    {
        nextNote += hasNote() ? 1 : 0;
        nextBookmark += hasBookmark() ? 1 : 0;
        ++at;
    }
    void reset() { at = nextNote = nextBookmark = 0; }

private:
    bool hasNote() const
    {
        return nextNote < block.notes.size() && block.notes[nextNote].first == at;
    }
    bool hasBookmark() const
    {
        return nextBookmark < block.bookmarks.size() && block.bookmarks[nextBookmark].first == at;
    }

    const MessageBlock &block;
    const QString none;
    std::size_t at = 0;
    std::size_t nextNote = 0;
    std::size_t nextBookmark = 0;
};
