#include "scene.h"

#include "archives.h"
#include "messages.h"
#include "storefixture.h"
#include "textexport.h"

#include <QCoreApplication>
#include <QDir>

namespace {

constexpr quint32 size = Scene::chunkSize;
constexpr quint32 sourceSize = Scene::sourceSize;
constexpr char oldArchive[] = "the archive of yesterday";

void rotate(Scene &scene)
{
    scene.append(size + 1);
    scene.waitForSaves();
    scene.waitForView(size, size);
}

bool isRotated(Scene &scene)
{
    return scene.chunks == QVector<quint32>{0}
    && holds(scene.chunkPath("tmpData0.dck"), 0, size - 1);
}

// A store from its beginning to its end.
void live(Scene &scene)
{
    scene.newStore();
    rotate(scene);
    if (scene.chunks.isEmpty() && scene.errors.isEmpty())
        scene.complaints += QStringLiteral("messages are lost without a word");
    scene.store.reset();
}

void exportTo(Scene &scene, const QString &name)
{
    scene.store->exportMessages(scene.target(name), DatachunkHelper::ExportWithNotes);
    scene.waitForSaves();
}

bool isTextExported(Scene &scene)
{
    QString text = TextExport::headerLine();
    for (quint32 i = 0; i < size; ++i) {
        const CAN::CanRxMessage message = scene.store->messageAt(int(i));
        TextExport::appendMessageLine(text, message, scene.store->getMessageNote(i));
    }
    const QString name = scene.target("a.txt");
    return QFile::exists(name) && readFile(name) == text.toUtf8();
}

void import(Scene &scene)
{
    scene.store->importMessages(scene.source("a%1b.log"), DatachunkHelper::SocketCanDump);
}

bool isImported(Scene &scene)
{
    QVector<quint32> numbers;
    for (int i = 0; i < scene.partialChunks.size(); ++i) {
        const QString end = QStringLiteral("\\a%1b\\") + QString::number(i) + ".dck";
        if (!scene.partialChunks.at(i).endsWith(end))
            return false;
        numbers += numbersOf(readChunkFile(scene.partialChunks.at(i)).messages);
    }
    return scene.imported == QStringList(scene.source("a%1b.log"))
        && numbers == numbersFromTo(0, 3 * size / 2 - 1) && scene.shows(size, 3 * size / 2 - 1);
}

void split(Scene &scene)
{
    scene.result = scene.store->splitFile(scene.source("a%1b.dck"), 1200);
    scene.store->finishContinousOutput();
}

bool isSplit(Scene &scene)
{
    const QString parts = scene.source("a%1b_splitted/a%1b_");
    return holds(parts + "0.dck", 0, 1199) && holds(parts + "1.dck", 1200, 2399)
        && holds(parts + "2.dck", 2400, sourceSize - 1);
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

bool isPacked(Scene &scene)
{
    const QString archive = scene.target("a%1b.zip");
    if (readFile(archive) == oldArchive)
        return false;
    QStringList good;
    const QVector<TestEntry> entries = archiveEntries(archive);
    for (const TestEntry &entry : entries) {
        if (entry.content == readFile(scene.chunkPath(entry.name)))
            good += entry.name;
    }
    good.sort();
    if (good == QStringList{"tmpData0.dck", "zlastChunk.dck"})
        return true;
    if (scene.isTold() || entries.size() < 2)
        scene.complaints += QStringLiteral("a failed archive has replaced the old one");
    return false;
}

bool isUnpacked(Scene &scene)
{
    return scene.unpacked.size() == 2 && holds(scene.unpacked.at(0), 0, sourceSize - 1)
        && holds(scene.unpacked.at(1), sourceSize, 2 * sourceSize - 1);
}

} // namespace

const QVector<Operation> &operations()
{
    const auto nothing = [](Scene &) {};
    const auto fill = [](Scene &scene) { scene.append(size); };
    static const QVector<Operation> all{
        {"a store begins and ends", nothing, live, [](Scene &) { return true; }},
        {"rotate", nothing, rotate, isRotated},
        {"export a chunk", fill, [](Scene &scene) { exportTo(scene, "a.dck"); },
         [](Scene &scene) { return holds(scene.target("a.dck"), 0, size - 1); }},
        {"export text", fill, [](Scene &scene) { exportTo(scene, "a.txt"); }, isTextExported},
        {"page in", rotate, [](Scene &scene) { scene.store->loadDataFromFile(0); },
         [](Scene &scene) { return scene.shows(0, size - 1); }, true},
        {"import", nothing, import, isImported},
        {"split", nothing, split, isSplit},
        {"pack",
         [](Scene &scene) {
             writeFile(scene.target("a%1b.zip"), oldArchive);
             rotate(scene);
         },
         pack, isPacked, true, true},
        {"merge", nothing,
         [](Scene &scene) {
             scene.store->importZipAndMerge(scene.source("a%1b.zip"));
             scene.waitForArchives();
         },
         [](Scene &scene) { return scene.shows(0, 2 * sourceSize - 1); }},
        {"unpack", nothing,
         [](Scene &scene) {
             scene.store->importMessages(scene.source("a%1b.zip"), DatachunkHelper::ZipArchive);
             scene.waitForArchives();
         },
         isUnpacked}};
    return all;
}
