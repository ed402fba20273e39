#include "scene.h"

#include "archives.h"
#include "faults.h"
#include "messages.h"
#include "storefixture.h"
#include "textexport.h"
#include "ziparchive.h"

#include <QCoreApplication>
#include <QDir>

namespace {

constexpr quint32 size = Scene::chunkSize;
constexpr quint32 sourceSize = 3000; // messages of each chunk below in

QString unless(bool good, const char *complaint)
{
    return good ? QString() : QString::fromLatin1(complaint);
}

void rotate(Scene &scene)
{
    scene.append(size + 1);
    scene.waitForSaves();
}

QString missingChunk(Scene &scene)
{
    return unless(scene.chunks == QVector<quint32>{0} && holds(scene.chunkPath(0), 0, size - 1),
                  "chunk 0");
}

// A store from its beginning to its end.
void live(Scene &scene)
{
    scene.newStore();
    rotate(scene);
    {
        const Faults::Pause pause;
        if (!missingChunk(scene).isEmpty() && scene.errors.isEmpty())
            scene.complaints += QStringLiteral("messages are lost without a word");
    }
    scene.store.reset();
}

void exportTo(Scene &scene, const QString &name)
{
    scene.store->exportMessages(scene.target(name), DatachunkHelper::ExportWithNotes);
    scene.waitForSaves();
}

QString missingText(Scene &scene)
{
    QString text = TextExport::headerLine();
    for (quint32 i = 0; i < size; ++i) {
        const CAN::CanRxMessage message = scene.store->messageAt(int(i));
        TextExport::appendMessageLine(text, message, scene.store->getMessageNote(i));
    }
    const QString name = scene.target("a.txt");
    return unless(QFile::exists(name) && readFile(name) == text.toUtf8(), "text");
}

void import(Scene &scene)
{
    scene.store->importMessages(scene.source("a%1b.log"), DatachunkHelper::SocketCanDump);
}

QString missingImport(Scene &scene)
{
    quint32 count = 0;
    for (const QString &name : qAsConst(scene.partialChunks)) {
        for (const CAN::CanRxMessage &message : readChunkFile(name).messages) {
            if (message.messageNumber != count++)
                return QStringLiteral("order");
        }
    }
    for (int i = 0; i < scene.partialChunks.size(); ++i) {
        const QString end = QStringLiteral("\\a%1b\\") + QString::number(i) + ".dck";
        if (!scene.partialChunks.at(i).endsWith(end))
            return QStringLiteral("name");
    }
    return unless(scene.imported == QStringList(scene.source("a%1b.log")) && count == 3 * size / 2
                      && scene.shows(size, 3 * size / 2 - 1),
                  "imported messages");
}

QString missingParts(Scene &scene)
{
    scene.store->finishContinousOutput();
    for (quint32 part = 0; part < 3; ++part) {
        const QString name =
            scene.source(QStringLiteral("a%1b_splitted/a%1b_") + QString::number(part) + ".dck");
        if (!holds(name, part * 1200, std::min(part * 1200 + 1199, sourceSize - 1)))
            return QStringLiteral("part");
    }
    return {};
}

void pack(Scene &scene)
{
    scene.store->setZipAfterSaving(true);
    scene.store->exportAllMessages(QStringLiteral("x.dck"), {});
    // Once the export has ended its report is delivered, which orders the packing.
    scene.store->saveDatachunksToZip();
    scene.store->setZipFileName(scene.target("a%1b.zip"));
    QCoreApplication::sendPostedEvents();
    scene.waitForArchives();
}

bool isWholeArchive(const Scene &scene)
{
    const Zip::Reader archive(scene.target("a%1b.zip"));
    QStringList names;
    for (const Zip::Entry &entry : archive.entries()) {
        names += entry.name;
        const auto content = archive.open(entry, [] { return true; });
        const QString file = scene.store->chunkFolderPath() + QLatin1Char('/') + entry.name;
        if (!content || content->readAll() != readFile(file))
            return false;
    }
    names.sort();
    return names == QStringList{"tmpData0.dck", "zlastChunk.dck"};
}

QString missingArchive(Scene &scene)
{
    const bool good = isWholeArchive(scene);
    if (!good && !scene.hasOldArchive() && scene.isTold())
        scene.complaints += QStringLiteral("a failed archive has replaced the old one");
    return unless(good, "archive");
}

QString missingUnpacked(Scene &scene)
{
    bool good = scene.unpacked.size() == 2;
    for (int i = 0; good && i < 2; ++i) {
        const quint32 first = quint32(i) * sourceSize;
        good = holds(scene.unpacked.at(i), first, first + sourceSize - 1);
    }
    return unless(good, "unpacked chunks");
}

} // namespace

const QVector<Operation> &operations()
{
    const auto nothing = [](Scene &) {};
    const auto fill = [](Scene &scene) { scene.append(size); };
    static const QVector<Operation> all{
        {"a store begins and ends", nothing, live, [](Scene &) { return QString(); }},
        {"rotate", nothing, rotate, missingChunk},
        {"export a chunk", fill, [](Scene &scene) { exportTo(scene, "a.dck"); },
         [](Scene &scene) { return unless(holds(scene.target("a.dck"), 0, size - 1), "chunk"); }},
        {"export text", fill, [](Scene &scene) { exportTo(scene, "a.txt"); }, missingText},
        {"page in", rotate, [](Scene &scene) { scene.store->loadDataFromFile(0); },
         [](Scene &scene) { return unless(scene.shows(0, size - 1), "paged messages"); }, true},
        {"import", nothing, import, missingImport},
        {"split", nothing,
         [](Scene &scene) {
             scene.result = scene.store->splitFile(scene.source("a%1b.dck"), 1200);
             scene.store->finishContinousOutput();
         },
         missingParts},
        {"pack",
         [](Scene &scene) {
             scene.writeOldArchive();
             rotate(scene);
         },
         pack, missingArchive, true, true},
        {"merge", nothing,
         [](Scene &scene) {
             scene.store->importZipAndMerge(scene.source("a%1b.zip"));
             scene.waitForArchives();
         },
         [](Scene &scene) {
             return unless(scene.shows(0, 2 * sourceSize - 1), "merged messages");
         }},
        {"unpack", nothing,
         [](Scene &scene) {
             scene.store->importMessages(scene.source("a%1b.zip"), DatachunkHelper::ZipArchive);
             scene.waitForArchives();
         },
         missingUnpacked}};
    return all;
}
