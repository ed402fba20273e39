#include "uniquenumbers.h"

#include <algorithm>

namespace {

class Renumbering
{
public:
    void apply(TraceItem &item)
    {
        quint32 &number = item.message.messageNumber;
        if (item.part != part)
            shift = number <= highest ? highest + 1 - number : 0;
        part = item.part;
        number += shift;
        highest = std::max(highest, number);
        if (shift != 0 && item.bookmark.isValid())
            item.bookmark = CanMessageBookmark(number, item.bookmark.text());
    }

private:
    int part = 0;
    quint32 shift = 0;
    quint32 highest = 0;
};

} // namespace

// The numbers depend on all messages in front, also on those that are not wanted.
TraceInput::Result UniqueNumbers::forEachMessage(quint64 from, const Visit &visit)
{
    Renumbering numbers;
    return input.forEachMessage(0, [&](quint64 position, TraceItem item) {
        numbers.apply(item);
        return position < from || visit(position, item);
    });
}
