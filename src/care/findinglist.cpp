#include "findinglist.h"

#include "tracecheck.h"

#include <QCoreApplication>

void FindingList::add(Severity severity, Kind kind, const QString &text, qint64 byte, qint64 record)
{
    OfAKind &all = left[std::size_t(kind)];
    all.severity = std::max(all.severity, severity);
    if (all.count++ < mostOfAKind)
        kept.push_back({severity, kind, {}, {}, record, byte, text});
}

std::vector<TraceFinding> FindingList::take()
{
    for (std::size_t i = 0; i < left.size(); ++i) {
        if (left[i].count <= mostOfAKind)
            continue;
        const QString text =
            QCoreApplication::translate("TraceCheck", "There are %1 more like that.")
                .arg(left[i].count - mostOfAKind);
        kept.push_back({left[i].severity, Kind(i), {}, {}, -1, -1, text});
    }
    return std::move(kept);
}

QString findingName(TraceFinding::Kind kind)
{
    static constexpr const char *names[] = {"unreadable",
                                            "empty",
                                            "header-damaged",
                                            "version-unknown",
                                            "version-newer",
                                            "time-range",
                                            "map-damaged",
                                            "bookmark-damaged",
                                            "value",
                                            "record-length",
                                            "record-cut",
                                            "zeros",
                                            "no-messages",
                                            "no-chunks",
                                            "number-gap",
                                            "number-repeat",
                                            "time-falls",
                                            "directory-unused",
                                            "directory-damaged",
                                            "directory-stale",
                                            "directory-wrong",
                                            "checksum",
                                            "entry-damaged",
                                            "entry-name",
                                            "archive-directory",
                                            "archive-limit"};
    static_assert(sizeof names / sizeof *names == TraceFinding::ArchiveLimit + 1);
    return QLatin1String(names[kind]);
}
