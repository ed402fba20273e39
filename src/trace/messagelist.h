#pragma once

#include "canrxmessage.h"

#include <QList>

#include <memory>
#include <vector>

/// The messages of a trace in arrival order, in blocks of a fixed number of records, so that an
/// append neither moves a record nor allocates one by one. A value type: a copy shares the
/// blocks and takes time with their number only.
///
/// Different objects may be used by different threads even while they share blocks: the one
/// that was copied from keeps filling its last block behind what the copies know of.
class MessageList
{
public:
    MessageList() = default;
    MessageList(const MessageList &other);
    MessageList(MessageList &&other) noexcept;
    MessageList &operator=(const MessageList &other);
    MessageList &operator=(MessageList &&other) noexcept;

    int size() const { return end - begin; }
    bool isEmpty() const { return end == begin; }

    /// \a index must be within 0..size()-1.
    const CAN::CanRxMessage &at(int index) const
    {
        const int position = begin + index;
        return blocks[std::size_t(position / blockSize)].get()[position % blockSize];
    }

    /// A default record when there is no message \a index.
    CAN::CanRxMessage value(qint64 index) const
    {
        return index >= 0 && index < size() ? at(int(index)) : CAN::CanRxMessage();
    }

    void append(const CAN::CanRxMessage &message);
    void removeFirst();
    void clear();

    /// Position of the first message with \a number, or -1. Takes constant time while the
    /// numbers rise by one from message to message.
    int indexOfNumber(quint32 number) const;

private:
    static constexpr int blockSize = 1024;
    using Block = std::shared_ptr<CAN::CanRxMessage>;

    static Block allocateBlock();
    void makeRoom();

    std::vector<Block> blocks;
    int begin = 0;           // position of the first message, counted from the first block's start
    int end = 0;             // position behind the last message
    bool ownsTail = true;    // whether the free rest of the last block is ours to fill
    bool consecutive = true; // whether every number is one above the number before it
};

/// A copy of \a messages, record by record.
MessageList toMessageList(const QList<CAN::CanRxMessage> &messages);
