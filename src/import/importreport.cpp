#include "importreport.h"

#include <QCoreApplication>

#include <numeric>

namespace {

QString text(const char *source)
{
    return QCoreApplication::translate("ImportReport", source);
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

QString ImportReport::reasonText(Reason reason)
{
    switch (reason) {
    case Empty:
        return text("empty");
    case Header:
        return text("header");
    case Comment:
        return text("comment");
    case Statistics:
        return text("statistics");
    case TooFewFields:
        return text("too few fields");
    case WrongShape:
        return text("not the shape of a frame");
    case UnparsableNumber:
        return text("a number that cannot be read");
    case UnkeptFrameKind:
        return text("a kind of frame that cannot be kept");
    case BehindEnd:
        return text("behind the end of the trace");
    case CutAtLimit:
        return text("longer than a line may be");
    }
    return {};
}

QString ImportReport::changeText(Change change)
{
    switch (change) {
    case ChangedPayload:
        return text("data cut or changed");
    case ChangedLength:
        return text("length changed");
    case ChangedIdentifier:
        return text("identifier changed");
    case ChangedTime:
        return text("time cut or changed");
    }
    return {};
}
