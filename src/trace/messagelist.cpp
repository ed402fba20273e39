#include "messagelist.h"

#include <algorithm>
#include <memory>
#include <utility>

MessageList::MessageList(const MessageList &other)
    : blocks(other.blocks), begin(other.begin), end(other.end), ownsTail(false),
      consecutive(other.consecutive)
{
}

MessageList::MessageList(MessageList &&other) noexcept
{
    *this = std::move(other);
}

MessageList &MessageList::operator=(const MessageList &other)
{
    if (this != &other)
        *this = MessageList(other);
    return *this;
}

MessageList &MessageList::operator=(MessageList &&other) noexcept
{
    blocks = std::exchange(other.blocks, {});
    begin = std::exchange(other.begin, 0);
    end = std::exchange(other.end, 0);
    ownsTail = std::exchange(other.ownsTail, true);
    consecutive = std::exchange(other.consecutive, true);
    return *this;
}

MessageList::Block MessageList::allocateBlock()
{
    // Raw room: records are trivially copyable, and clearing a block just to overwrite it would
    // cost as much as filling it.
    std::allocator<CAN::CanRxMessage> allocator;
    return Block(allocator.allocate(blockSize), [](CAN::CanRxMessage *records) {
        std::allocator<CAN::CanRxMessage>().deallocate(records, blockSize);
    });
}

void MessageList::makeRoom()
{
    const int used = end % blockSize;
    if (used == 0) {
        blocks.push_back(allocateBlock());
    } else if (!ownsTail) {
        const Block own = allocateBlock();
        std::uninitialized_copy_n(blocks.back().get(), used, own.get());
        blocks.back() = own;
    }
    ownsTail = true;
}

void MessageList::append(const CAN::CanRxMessage &message)
{
    if (!isEmpty() && message.messageNumber != at(size() - 1).messageNumber + 1)
        consecutive = false;
    if (!ownsTail || end % blockSize == 0)
        makeRoom();
    new (blocks.back().get() + end % blockSize) CAN::CanRxMessage(message);
    ++end;
}

void MessageList::removeFirst()
{
    if (isEmpty())
        return;
    if (++begin == end) {
        clear();
    } else if (begin == blockSize) {
        blocks.erase(blocks.begin());
        begin = 0;
        end -= blockSize;
    }
}

void MessageList::clear()
{
    *this = MessageList();
}

int MessageList::indexOfNumber(quint32 number) const
{
    if (isEmpty())
        return -1;
    if (consecutive) {
        const quint32 index = number - at(0).messageNumber;
        return index < quint32(size()) ? int(index) : -1;
    }
    for (int index = 0; index < size(); ++index) {
        if (at(index).messageNumber == number)
            return index;
    }
    return -1;
}

MessageList toMessageList(const QList<CAN::CanRxMessage> &messages)
{
    MessageList list;
    for (const CAN::CanRxMessage &message : messages)
        list.append(message);
    return list;
}
