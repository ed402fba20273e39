#include "bookmarkhandler.h"
#include "datachunkhandler.h"
#include "messages.h"
#include "savejob.h"
#include "storefixture.h"
#include "targets.h"

#include <QBuffer>

namespace {

constexpr auto noSave = DatachunkHelper::CurrentMessages;

DatachunkHandler &store()
{
    static BookmarkHandler bookmarks;
    static DatachunkHandler theStore(1000000);
    theStore.setBookmarkhandler(&bookmarks);
    return theStore;
}

// Whether the store shows \a expected from position \a first on.
bool shows(const QVector<CAN::CanRxMessage> &expected, int first = 0)
{
    for (int i = 0; i < expected.size(); ++i) {
        if (!sameInChunk(store().messageAt(first + i), expected.at(i)))
            return false;
    }
    return true;
}

void loadChunk(const QByteArray &bytes)
{
    const ReadChunk expected = streamedChunk(bytes);
    const bool taken = !expected.isRefused() && !expected.messages.isEmpty();
    const QString file = inputFile(QStringLiteral("input.dck"), bytes);
    require(store().loadFile(file, true, DatachunkHelper::ChunkFile, noSave, {}) == taken,
            "a chunk is loaded as far as a stream reads it");
    require(store().getIsLive() == !taken, "the mode follows the outcome");
    if (!taken)
        return;
    require(store().getMessageCount() == uint(expected.messages.size()) && shows(expected.messages),
            "blocks and stream give the same records");
    // A number that a file has twice stands for the value which comes last.
    for (const unsigned int number : expected.notes.keys())
        require(store().getMessageNote(number) == expected.notes.value(number), "notes are loaded");
    for (const unsigned int number : expected.bookmarks.keys())
        require(store().bookmarkAt(int(number)) == expected.bookmarks.value(number),
                "bookmarks are loaded");
}

void appendChunk(const QByteArray &bytes)
{
    loadChunk(bytes);
    const ReadChunk loaded = streamedChunk(bytes);
    const ReadChunk appended = streamedChunk(bytes, ChunkFormat::BookmarkMap::NotRead);
    const QString file = workPath(QStringLiteral("input.dck"));
    require(store().appendDckFile(file) == !appended.isRefused(), "newer chunks are refused");
    if (store().getIsLive())
        return;
    require(store().getMessageCount() == uint(loaded.messages.size() + appended.messages.size())
                && shows(appended.messages, loaded.messages.size()),
            "records are appended as a stream reads them");
}

// The first byte tells the size of the parts.
void split(const QByteArray &bytes)
{
    const quint32 partSize = bytes.isEmpty() ? 0 : quint8(bytes.at(0)) % 8;
    const QByteArray chunk = bytes.mid(1);
    const ReadChunk expected = streamedChunk(chunk);
    const QString file = inputFile(QStringLiteral("input.dck"), chunk);
    require(store().splitFile(file, partSize) == (partSize > 0 && !expected.isRefused()),
            "newer chunks and parts of nothing are refused");
    store().finishContinousOutput();
    const QVector<CAN::CanRxMessage> &messages = expected.messages;
    const int parts = partSize ? (messages.size() + int(partSize) - 1) / int(partSize) : 0;
    for (int part = 0; part < parts && parts <= 256; ++part) {
        const QString name = QStringLiteral("input_splitted/input_%1.dck").arg(part);
        const QVector<CAN::CanRxMessage> read = readChunkFile(workPath(name)).messages;
        const int first = part * int(partSize);
        require(read.size() == qMin(int(partSize), messages.size() - first), "parts are full");
        for (int i = 0; i < read.size(); ++i) {
            CAN::CanRxMessage message = messages.at(first + i);
            message.messageNumber = quint32(first + i);
            require(sameInChunk(read.at(i), message), "parts hold the records in order");
        }
    }
}

// Whatever can be read as a chunk is written as one and read again.
void roundTrip(const QByteArray &bytes)
{
    const ReadChunk chunk = streamedChunk(bytes);
    SaveJob job;
    for (const CAN::CanRxMessage &message : chunk.messages)
        job.messages.append(message);
    job.fileName = workPath(QStringLiteral("written.dck"));
    job.endPosition = quint32(chunk.messages.size());
    job.notes = chunk.notes;
    job.bookmarks = chunk.bookmarks;
    require(writeChunkFile(job).text.isEmpty(), "a chunk is written");
    const ReadChunk read = readChunkFile(job.fileName);
    require(read.preamble.version == ChunkFormat::currentVersion && read.notes == chunk.notes
                && read.bookmarks == chunk.bookmarks
                && std::equal(read.messages.begin(), read.messages.end(), chunk.messages.begin(),
                              chunk.messages.end(), sameInChunk),
            "what was written is read");
}

void bookmarkStream(const QByteArray &bytes)
{
    QDataStream in(bytes);
    ChunkFormat::Bookmarks bookmarks;
    CanMessageBookmark single;
    in >> single >> bookmarks;
    bookmarks.insert(1, single);
    QByteArray written;
    QDataStream out(&written, QIODevice::WriteOnly);
    out << bookmarks;
    ChunkFormat::Bookmarks read;
    QDataStream again(written);
    again >> read;
    require(again.atEnd() && again.status() == QDataStream::Ok && read == bookmarks,
            "bookmarks that were written are read");
}

} // namespace

std::vector<FuzzTarget> chunkTargets()
{
    return {{QStringLiteral("chunkload"), loadChunk},
            {QStringLiteral("chunkappend"), appendChunk},
            {QStringLiteral("chunksplit"), split},
            {QStringLiteral("chunkroundtrip"), roundTrip},
            {QStringLiteral("bookmarks"), bookmarkStream}};
}
