#pragma once

#include "tracefinding.h"

#include <array>
#include <vector>

/// The findings of one chunk. Of each kind only the first are kept, so that a hostile file has
/// neither the memory nor the user's patience.
class FindingList
{
public:
    using Severity = TraceFinding::Severity;
    using Kind = TraceFinding::Kind;

    void add(Severity severity, Kind kind, const QString &text, qint64 byte = -1,
             qint64 record = -1);
    /// The same, with the sentence made only where it is kept.
    template <typename MakeText>
    void addRecord(Severity severity, Kind kind, qint64 byte, qint64 record,
                   const MakeText &makeText)
    {
        if (isKept(kind))
            add(severity, kind, makeText(), byte, record);
        else
            ++left[std::size_t(kind)].count;
    }

    /// Those that were added, and one for each kind of which some are not kept.
    std::vector<TraceFinding> take();

private:
    static constexpr int mostOfAKind = 20;

    struct OfAKind
    {
        qint64 count = 0;
        Severity severity = Severity::Remark;
    };

    bool isKept(Kind kind) const { return left[std::size_t(kind)].count < mostOfAKind; }

    std::vector<TraceFinding> kept;
    std::array<OfAKind, TraceFinding::ArchiveLimit + 1> left;
};
