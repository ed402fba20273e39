#include "importreport.h"

#include <QCoreApplication>

#include <numeric>

namespace {

constexpr std::array<const char *, ImportReport::reasonCount> reasonNames = {
    QT_TRANSLATE_NOOP("ImportReport", "empty"),
    QT_TRANSLATE_NOOP("ImportReport", "header"),
    QT_TRANSLATE_NOOP("ImportReport", "comment"),
    QT_TRANSLATE_NOOP("ImportReport", "statistics"),
    QT_TRANSLATE_NOOP("ImportReport", "too few fields"),
    QT_TRANSLATE_NOOP("ImportReport", "not the shape of a frame"),
    QT_TRANSLATE_NOOP("ImportReport", "a number that cannot be read"),
    QT_TRANSLATE_NOOP("ImportReport", "a kind of frame that cannot be kept"),
    QT_TRANSLATE_NOOP("ImportReport", "behind the end of the trace"),
    QT_TRANSLATE_NOOP("ImportReport", "longer than a line may be"),
};

constexpr std::array<const char *, ImportReport::changeCount> changeNames = {
    QT_TRANSLATE_NOOP("ImportReport", "data cut or changed"),
    QT_TRANSLATE_NOOP("ImportReport", "length changed"),
    QT_TRANSLATE_NOOP("ImportReport", "identifier changed"),
    QT_TRANSLATE_NOOP("ImportReport", "time cut or changed"),
};

template <std::size_t Count>
const char *nameAt(const std::array<const char *, Count> &names, int index)
{
    return index >= 0 && std::size_t(index) < Count ? names[std::size_t(index)] : "";
}

quint64 addCount(quint64 sum, const ImportReport::Lines &lines)
{
    return sum + lines.count;
}

} // namespace

void ImportReport::Lines::add(quint64 number)
{
    if (count++ < quint64(mostNumbers))
        first.append(number);
}

quint64 ImportReport::linesLeftOut() const
{
    return std::accumulate(leftOut.begin(), leftOut.end(), quint64(0), addCount);
}

quint64 ImportReport::linesLost() const
{
    quint64 lost = 0;
    for (int i = 0; i < reasonCount; ++i)
        lost += isLoss(Reason(i)) ? leftOut[std::size_t(i)].count : 0;
    return lost;
}

bool ImportReport::hasLoss() const
{
    const quint64 changes = std::accumulate(changed.begin(), changed.end(), quint64(0), addCount);
    return linesLost() + changes + unlikely.count > 0;
}

const char *ImportReport::reasonName(Reason reason)
{
    return nameAt(reasonNames, reason);
}

const char *ImportReport::changeName(Change change)
{
    return nameAt(changeNames, change);
}

QString ImportReport::reasonText(Reason reason)
{
    return QCoreApplication::translate("ImportReport", reasonName(reason));
}

QString ImportReport::changeText(Change change)
{
    return QCoreApplication::translate("ImportReport", changeName(change));
}
