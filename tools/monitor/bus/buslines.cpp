#include "buslines.h"

#include "buschoice.h"

#include <algorithm>
#include <utility>

BusLines::BusLines(std::shared_ptr<MessageSink> sink, QObject *parent)
    : QObject(parent), sink(std::move(sink))
{
}

BusLines::~BusLines() = default;

bool BusLines::isAnyActive() const
{
    return std::any_of(lines.begin(), lines.end(),
                       [](const auto &line) { return line->isActive(); });
}

int BusLines::freeNumber() const
{
    constexpr int most = 255;
    int free = 0;
    for (const auto &line : lines)
        free = qMax(free, line->lastNumber() + 1);
    return free <= most ? free : 0;
}

BusLine *BusLines::add(const BusChoice &choice)
{
    if (count() >= most) {
        emit notice({Notice::Failure, tr("There are %n bus lines already.", nullptr, most),
                     tr("Remove those that are not needed any more.")});
        return nullptr;
    }
    emit aboutToBeAdded(count());
    lines.push_back(choice.makeLine(sink));
    BusLine *line = lines.back().get();
    connect(line, &BusLine::notice, this, &BusLines::notice);
    connect(line, &BusLine::stateChanged, this, [this, line] { lineChanged(line); });
    emit added();
    line->start();
    return line;
}

void BusLines::remove(int index)
{
    emit aboutToBeRemoved(index);
    const auto place = lines.begin() + index;
    // What happens to it from here on is nobody's business.
    (*place)->disconnect(this);
    (*place)->stop();
    lines.erase(place);
    emit removed();
    tellActive();
}

void BusLines::stopAll()
{
    for (const auto &line : lines) {
        if (line->isActive())
            line->stop();
    }
}

void BusLines::lineChanged(const BusLine *line)
{
    const auto place = std::find_if(lines.begin(), lines.end(),
                                    [line](const auto &other) { return other.get() == line; });
    emit stateChanged(int(place - lines.begin()));
    tellActive();
}

void BusLines::tellActive()
{
    const bool isActive = isAnyActive();
    if (std::exchange(wasActive, isActive) != isActive)
        emit activeChanged(isActive);
}
