#include "chunkcheck.h"

#include "checktexts.h"

#include <QRegularExpression>

namespace {

using Finding = TraceFinding;

class ChunkCheck
{
public:
    ChunkCheck(const IndexedChunk &chunk, FindingList &findings) : chunk(chunk), findings(findings)
    {
    }

    void checkFront();
    void checkEnd(bool deviceIsDamaged);

private:
    bool checkVersion();
    void checkMaps();
    void checkTimes();

    const IndexedChunk &chunk;
    FindingList &findings;
};

void ChunkCheck::checkFront()
{
    if (chunk.front.headerIsDamaged)
        findings.add(Finding::Error, Finding::HeaderDamaged,
                     CheckTexts::tr("The header is damaged or cut short."), 0);
    else if (checkVersion() && chunk.result == Outcome::Done) {
        checkTimes();
        checkMaps();
    }
    if (chunk.result == Outcome::TooLarge)
        findings.add(Finding::Error, Finding::Unreadable,
                     CheckTexts::tr("The chunk is too large to be checked to its end."));
}

bool ChunkCheck::checkVersion()
{
    const quint32 version = chunk.front.preamble.version;
    if (version == 0)
        findings.add(Finding::Error, Finding::VersionUnknown,
                     CheckTexts::tr("The version is no number, so that this may be no chunk."), 0);
    else if (version > ChunkFormat::currentVersion)
        findings.add(Finding::Error, Finding::VersionNewer,
                     CheckTexts::tr("The version %1 is newer than %2 and cannot be checked.")
                         .arg(version)
                         .arg(ChunkFormat::currentVersion),
                     0);
    return version != 0 && version <= ChunkFormat::currentVersion;
}

void ChunkCheck::checkMaps()
{
    if (chunk.front.mapsAreDamaged)
        findings.add(Finding::Error, Finding::MapDamaged,
                     CheckTexts::tr("The notes or bookmarks are damaged or cut short; nothing "
                                    "behind them can be relied on."),
                     chunk.front.damagedMap);
    const ChunkFormat::Bookmarks &bookmarks = chunk.front.maps.bookmarks;
    for (auto bookmark = bookmarks.begin(); bookmark != bookmarks.end(); ++bookmark) {
        if (!bookmark->isValid() || bookmark->messageNumber() != bookmark.key())
            findings.add(
                Finding::Error, Finding::BookmarkDamaged,
                CheckTexts::tr("The bookmark on message %1 is damaged.").arg(bookmark.key()));
    }
}

// The header's times are those of the messages, or of the range that a selection is from. Files
// that grow message by message have zeros there.
void ChunkCheck::checkTimes()
{
    static const QRegularExpression form(
        QStringLiteral("^(-?[0-9]+)\\.(-?[0-9]+) - (-?[0-9]+)\\.(-?[0-9]+)$"));
    const QString &text = chunk.front.preamble.timeText;
    const QRegularExpressionMatch match = form.match(text);
    const auto time = [&match](int at) {
        return microsecondsOf(match.captured(at).toInt(), match.captured(at + 1).toInt());
    };
    if (!match.hasMatch()) {
        findings.add(Finding::Remark, Finding::TimeRange,
                     CheckTexts::tr("The header names no times."), 0);
        return;
    }
    const ChunkIndex &index = chunk.index;
    const qint64 from = std::min(time(1), time(3));
    const qint64 to = std::max(time(1), time(3));
    const auto isInside = [&](qint64 at) { return at >= from && at <= to; };
    const bool isNone = from == 0 && to == 0;
    if (isNone || index.count == 0 || index.hasCutRecord
        || (isInside(index.firstTime) && isInside(index.lastTime)))
        return;
    findings.add(
        Finding::Remark, Finding::TimeRange,
        CheckTexts::tr("The header names the times %1, but the messages are from %2 to %3.")
            .arg(text, CheckTexts::seconds(index.firstTime), CheckTexts::seconds(index.lastTime)),
        0);
}

void ChunkCheck::checkEnd(bool deviceIsDamaged)
{
    const ChunkFormat::RecordsEnd &end = chunk.end;
    const qint64 byte = chunk.front.size + end.offset;
    const qint64 whole = chunk.index.wholeRecords();
    if (end.cause == end.Cut && !deviceIsDamaged)
        findings.add(Finding::Error, Finding::RecordCut,
                     CheckTexts::tr("The chunk ends in the middle of this record."), byte, whole);
    if (end.cause == end.BadLength)
        findings.add(Finding::Error, Finding::RecordLength,
                     CheckTexts::tr("The record claims a length of %1; nothing from here on can be "
                                    "read.")
                         .arg(end.length),
                     byte, whole);
    if (end.cause == end.Whole && whole == 0)
        findings.add(Finding::Remark, Finding::NoMessages,
                     CheckTexts::tr("There are no messages in the chunk."));
}

void append(std::vector<Finding> &all, std::vector<Finding> more, qint64 moveBy)
{
    for (Finding &finding : more) {
        if (finding.byte >= 0)
            finding.byte += moveBy;
        all.push_back(std::move(finding));
    }
}

} // namespace

CheckedChunk checkChunk(QIODevice &device, Numbering numbering, const ChunkReading::Bounds &bounds,
                        const std::function<bool()> &isDamaged)
{
    CheckedChunk checked;
    FindingList ofRecords;
    FindingList ofChunk;
    FindingList ofEnd;
    RecordCheck records(numbering, ofRecords);
    if (device.bytesAvailable() == 0) {
        ofChunk.add(Finding::Error, Finding::Empty, CheckTexts::tr("The file is empty."), 0);
        checked.findings = ofChunk.take();
        return checked;
    }
    checked.indexed =
        indexChunk(device, bounds, isDamaged, [&](RecordView record) { records.look(record); });
    records.end();
    ChunkCheck check(checked.indexed, ofChunk);
    check.checkFront();
    append(checked.findings, ofChunk.take(), 0);
    // Where the records are is known only by what stands in front of them.
    const ChunkReading::Front &front = checked.indexed.front;
    if (front.headerIsDamaged || front.mapsAreDamaged || front.preamble.version == 0
        || checked.indexed.result != Outcome::Done)
        return checked;
    checked.first = records.first();
    checked.last = records.last();
    ChunkCheck(checked.indexed, ofEnd).checkEnd(isDamaged && isDamaged());
    append(checked.findings, ofRecords.take(), front.size);
    append(checked.findings, ofEnd.take(), 0);
    return checked;
}
