#include "importreport.h"

#include <QCoreApplication>

#include <algorithm>
#include <numeric>

namespace {

QString text(const char *source)
{
    return QCoreApplication::translate("ImportReport", source);
}

} // namespace

void ImportReport::Lines::add(quint64 number)
{
    if (count++ < quint64(mostNumbers))
        first.append(number);
}

quint64 ImportReport::linesLeftOut() const
{
    return std::accumulate(leftOut.begin(), leftOut.end(), quint64(0),
                           [](quint64 sum, const Lines &lines) { return sum + lines.count; });
}

bool ImportReport::hasLoss() const
{
    const auto any = [](const Lines &lines) { return lines.count > 0; };
    // What stands before these in the list is no part of the frames.
    return std::any_of(leftOut.begin() + TooFewFields, leftOut.end(), any)
        || std::any_of(changed.begin(), changed.end(), any) || unlikely.count > 0;
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
