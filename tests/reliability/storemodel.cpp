#include "storemodel.h"

#include "damage.h"

#include <QFileInfo>

#include "messages.h"
#include "textexport.h"

#include <algorithm>
#include <utility>

namespace {
constexpr qint32 firstImportedSecond = 1000000;
}

CAN::CanRxMessage messageOf(quint32 serial, MessageRun::Kind kind)
{
    const int payload = int(serial % 13 == 0 ? serial % 65 : serial % 9);
    const CAN::CanRxMessage message = makeMessage(serial, payload);
    if (kind != MessageRun::Imported)
        return message;
    // What a candump line keeps.
    CAN::CanRxMessage imported;
    imported.seconds = message.seconds + firstImportedSecond;
    imported.microseconds = message.microseconds;
    imported.id = message.id;
    imported.extended = message.extended;
    imported.length = qint8(serial % 9);
    std::copy_n(message.data, imported.length, imported.data);
    return imported;
}

CAN::CanRxMessage MessageRun::at(qint64 position) const
{
    if (position < 0 || position >= count)
        return {};
    CAN::CanRxMessage message = messageOf(serial + quint32(position), kind);
    message.messageNumber = number + quint32(position);
    return message;
}

bool isWhole(const CAN::CanRxMessage &message)
{
    if (sameInChunk(message, CAN::CanRxMessage()))
        return true;
    const bool imported = message.seconds >= firstImportedSecond;
    const quint32 seconds = quint32(message.seconds - (imported ? firstImportedSecond : 0));
    CAN::CanRxMessage expected = messageOf(seconds * 1000 + quint32(message.microseconds) / 1000,
                                           imported ? MessageRun::Imported : MessageRun::Received);
    expected.messageNumber = message.messageNumber;
    return sameInChunk(message, expected);
}

QVector<CAN::CanRxMessage> ModelFile::records(qint64 from) const
{
    QVector<CAN::CanRxMessage> found;
    for (const unsigned int position : selected) {
        if (position < messages.count)
            found.append(messages.at(position));
    }
    const qint64 behind = selected.isEmpty() ? std::min<qint64>(end, messages.count) : 0;
    for (qint64 i = std::max<qint64>(from, 0); i < behind; ++i)
        found.append(messages.at(i));
    return found;
}

QString ModelFile::timeText() const
{
    return ChunkFormat::timeText(messages.at(start), messages.at(end - 1));
}

bool ModelFile::hasFdFrame() const
{
    const QVector<CAN::CanRxMessage> all = records(0);
    return std::any_of(all.begin(), all.end(), [](const auto &message) { return message.fdFrame; });
}

QByteArray ModelFile::chunkBytes() const
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    ChunkFormat::writeHeader(stream, timeText(), notes, bookmarks);
    for (const CAN::CanRxMessage &message : records(start))
        ChunkFormat::writeRecord(stream, message, ChunkFormat::currentVersion);
    return bytes;
}

QString ModelFile::text() const
{
    QString text = TextExport::headerLine();
    for (const CAN::CanRxMessage &message : records(0))
        TextExport::appendMessageLine(text, message, notes.value(message.messageNumber));
    return text;
}

StoreModel::StoreModel(quint32 maxMessageCount, bool hasBookmarks, quint32 serials, quint32 imports)
    : maxMessageCount(maxMessageCount), imports(imports), hasBookmarks(hasBookmarks),
      serial(serials)
{
}

bool StoreModel::isFull(quint32 size) const
{
    return size != 0 && size >= maxMessageCount - 5000;
}

void StoreModel::append(quint32 count)
{
    linesOfOthers |= continuousMode;
    for (; count > 0; --count) {
        if (continuousMode && live.count >= maxMessageCount) {
            ++live.serial;
            ++live.number;
            --live.count;
            ++lostInContinuousMode;
        } else if (!continuousMode && isFull(live.count)) {
            rotate();
        }
        if (live.count == 0)
            live = {serial, number, 0};
        ++live.count;
        ++serial;
        ++number;
    }
}

void StoreModel::rotate()
{
    ModelFile chunk{{}, live, 0, live.count, {}, {}, {}};
    chunk.notes = std::exchange(isLive ? notes : liveNotes, {});
    chunk.bookmarks = std::exchange(isLive ? bookmarks : liveBookmarks, {});
    rotated = live;
    live.count = 0;
    ++rotations;
    if (isLive) {
        showsRotated = true;
        ++switchesDue;
        due += QStringLiteral("start");
    }
    if (budget == 0) {
        lostWithoutBudget += rotated.count;
        return;
    }
    chunk.name = QStringLiteral("tmpData%1.dck").arg(chunkCount++);
    chunks.push_back(chunk);
    enforceBudget();
}

namespace {

quint32 sizeOf(const ModelFile &file)
{
    return quint32(file.chunkBytes().size() / 1024);
}

void annotateIn(ChunkFormat::Notes &notes, quint32 number, const QString &text)
{
    if (text.isEmpty())
        notes.remove(number);
    else
        notes[number] = text;
}

} // namespace

void StoreModel::annotate(quint32 number, const QString &text)
{
    annotateIn(isLive ? notes : liveNotes, number, text);
}

void StoreModel::annotateChunk(std::size_t chunk, quint32 number, const QString &text)
{
    kibibytes -= sizeOf(chunks[chunk]);
    annotateIn(chunks[chunk].notes, number, text);
    kibibytes += sizeOf(chunks[chunk]);
}

void StoreModel::enforceBudget()
{
    kibibytes += sizeOf(chunks.back());
    if ((kibibytes + otherKibibytes) / 1024 <= budget)
        return;
    ModelFile &victim = chunks[oldest++];
    kibibytes -= sizeOf(victim);
    victim.removed = true;
    ++removals;
}

QVector<QVector<MessageRun>> StoreModel::views() const
{
    if (!isLive)
        return {paged};
    return showsRotated ? QVector<QVector<MessageRun>>{{live}, {rotated}}
                        : QVector<QVector<MessageRun>>{{live}};
}

void StoreModel::settle()
{
    showsRotated = false;
    switchesDue = 0;
}

void StoreModel::leaveLive()
{
    due += QStringLiteral("start");
    if (isLive) {
        liveNotes = std::exchange(notes, {});
        liveBookmarks = bookmarks;
        switchesDue = 0; // a handover finds out that there is nothing to switch
    } else {
        bookmarks.clear();
    }
    isLive = linesOfOthers = showsRotated = false;
}

void StoreModel::show(const QVector<MessageRun> &messages)
{
    paged = messages;
    due += QStringLiteral("cleared 0");
    due += QStringLiteral("mode 0");
}

void StoreModel::page(const ModelFile &chunk)
{
    leaveLive();
    notes = chunk.notes;
    if (hasBookmarks)
        bookmarks = chunk.bookmarks;
    due += QStringLiteral("fd %1").arg(chunk.hasFdFrame());
    due += QStringLiteral("start");
    show({chunk.messages});
}

void StoreModel::merge(const QVector<ModelFile> &entriesInArchiveOrder, const QString &archive)
{
    QMap<quint64, ModelFile> byStart;
    for (const ModelFile &entry : entriesInArchiveOrder)
        byStart[entry.messages.serial] = entry;
    leaveLive();
    QVector<MessageRun> all;
    notes.clear();
    bookmarks.clear();
    for (const ModelFile &entry : qAsConst(byStart)) {
        due += QStringLiteral("fd %1").arg(entry.hasFdFrame());
        notes.insert(entry.notes);
        if (hasBookmarks)
            bookmarks.insert(entry.bookmarks);
        all.append(entry.messages);
    }
    due += QStringLiteral("archive ") + QFileInfo(archive).completeBaseName();
    show(all);
    const int leftOut = entriesInArchiveOrder.size() - byStart.size();
    if (leftOut > 0)
        due += QStringLiteral("error ") + Damage::equalStarts(archive, leftOut);
}

void StoreModel::goLive()
{
    if (isLive)
        return;
    due += QStringLiteral("start");
    due += QStringLiteral("cleared 1");
    due += QStringLiteral("mode 1");
    notes = std::exchange(liveNotes, {});
    bookmarks = std::exchange(liveBookmarks, {});
    paged.clear();
    isLive = true;
}

void StoreModel::clear()
{
    if (isLive) {
        due += QStringLiteral("start");
        due += QStringLiteral("cleared 1");
    }
    live.count = number = chunkCount = removals = kibibytes = 0;
    oldest = 0;
    chunks.clear();
    notes.clear();
    liveNotes.clear();
    bookmarks.clear();
    liveBookmarks.clear();
    showsRotated = false;
    switchesDue = 0;
}

void StoreModel::setContinuousMode(bool on)
{
    continuousMode = on;
    budget = 0;
    maxMessageCount = 10000;
}

void StoreModel::savePartial(const MessageRun &messages, const ChunkFormat::Notes &notes)
{
    const QString name = QStringLiteral("%1.dck").arg(chunkCount++);
    partials.push_back({name, messages, 0, messages.count, {}, notes, {}});
}

void StoreModel::startImport()
{
    partials.clear();
    leaveLive();
    due += QStringLiteral("dialog 1");
    due += QStringLiteral("dialog 0");
}

void StoreModel::finishImport(quint32 count, const QString &file)
{
    MessageRun buffer{imports, 0, 0, MessageRun::Imported};
    imports += count;
    for (quint32 i = 0; i < count; ++i) {
        if (isFull(buffer.count)) {
            ChunkFormat::Notes kept;
            for (quint32 n = buffer.number; n < i && !notes.isEmpty(); ++n) {
                if (notes.contains(n))
                    kept[n] = notes.value(n);
            }
            if (budget != 0)
                savePartial(buffer, kept);
            buffer = {buffer.serial + buffer.count, i, 0, MessageRun::Imported};
        }
        ++buffer.count;
    }
    if (count == 0) {
        due += QStringLiteral("cleared 0");
        goLive();
        due += QStringLiteral("error File seems to be empty or broken, nothing imported.");
        due += QStringLiteral("imported ");
        return;
    }
    savePartial(buffer, notes);
    due += QStringLiteral("start");
    show({buffer});
    due += QStringLiteral("imported ") + file;
}

bool StoreModel::isExportable(bool any, const QString &file)
{
    if (!any || file.isEmpty())
        due += QLatin1String(any ? "error No filename specified." : "error Nothing to export.");
    return any && !file.isEmpty();
}

void StoreModel::exportMessages(const QString &file, bool withNotes,
                                const QList<unsigned int> &selected)
{
    if (!isExportable(live.count != 0, file))
        return;
    exportNotes = withNotes ? notesOfLive() : ChunkFormat::Notes();
    if (hasBookmarks)
        exportBookmarks = isLive ? bookmarks : liveBookmarks;
    exports.push_back({file, live, 0, live.count, selected, exportNotes, exportBookmarks});
}

void StoreModel::exportRange(const QString &file, int first, int last)
{
    if (!isExportable(last <= int(live.count), file))
        return;
    exportNotes = notesOfLive();
    const qint64 end = last == 0 ? live.count : std::clamp<qint64>(last + 1, 0, live.count);
    exports.push_back({file, live, first, end, {}, exportNotes, exportBookmarks});
}
