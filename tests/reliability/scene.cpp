#include "scene.h"

#include "archives.h"
#include "messages.h"
#include "storefixture.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QStandardPaths>
#include <QThreadPool>

namespace {

constexpr unsigned int rotationMargin = 5000;
constexpr char oldArchive[] = "the archive of yesterday";

QByteArray candump(quint32 count)
{
    QByteArray text;
    for (quint32 i = 0; i < count; ++i)
        text += QStringLiteral("(%1.000000) can0 123#1122334455667788\n").arg(i).toLatin1();
    return text;
}

} // namespace

Scene::Scene(const QString &root, bool longNotes)
    : root(root), note(longNotes ? QString(700000, QLatin1Char('n')) : QStringLiteral("note"))
{
    QDir(root).mkpath(QStringLiteral("in"));
    QDir(root).mkpath(QStringLiteral("out"));
    const QString home = root + QStringLiteral("/home 50%1 %2");
    qputenv("XDG_DATA_HOME", QFile::encodeName(home));
    // What other stores and programs have left in the place where chunk folders are.
    const QString location =
        QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) + "/datachunks/";
    QDir().mkpath(location + QStringLiteral("1/a"));
    for (const char *name : {"1/tmpData0.dck", "1/a/tmpData0.dck", "1\\a\\0.dck", "tmpData0.dck"})
        writeFile(location + QLatin1String(name), "not yours");
    const ChunkFormat::Notes notes{{3, note}};
    const QByteArray first = chunkBytes("1.0", 0, 3000, notes);
    const QByteArray second = chunkBytes("2.0", 3000, 3000);
    writeFile(source("a%1b.dck"), first);
    writeFile(source("a%1b.log"), candump(3 * chunkSize / 2));
    writeArchive(source("a%1b.zip"), {{"b.dck", second}, {"a.dck", first}});
}

Scene::~Scene() = default;

void Scene::begin()
{
    complaints.clear();
    QDir(root + QStringLiteral("/out")).removeRecursively();
    QDir(root).mkdir(QStringLiteral("out"));
    QDir(source("a%1b_splitted")).removeRecursively();
    before = filesBelow(root);
}

void Scene::newStore()
{
    chunks.clear();
    for (QStringList *list : {&partialChunks, &unpacked, &errors, &imported})
        list->clear();
    result = true;
    appended = 0;
    store = std::make_unique<DatachunkHandler>(chunkSize + rotationMargin);
    using H = DatachunkHandler;
    DatachunkHandler *const s = store.get();
    QObject::connect(s, &H::newDataFile, s, [this](quint32 index) { chunks += index; });
    QObject::connect(s, &H::newPartialDataFile, s,
                     [this](const QString &f) { partialChunks += f; });
    QObject::connect(s, &H::newErrorMessage, s, [this](const QString &text) { errors += text; });
    QObject::connect(s, &H::messagesImported, s, [this](const QString &n) { imported += n; });
    QObject::connect(s, &H::newZippedFile, s,
                     [this](const QString &name, const QString &, const QDir &folder) {
                         unpacked += folder.filePath(name);
                     });
    QObject::connect(s, &H::zipFileLoaded, s, [this](const QString &name) {
        if (name != QLatin1String("none"))
            return;
        // That there is no such archive is told right before.
        errors.removeLast();
        ++archiveJobsEnded;
    });
}

void Scene::append(quint32 count)
{
    for (const quint32 end = appended + count; appended < end; ++appended) {
        store->appendCanMessage(makeMessage(appended, 64));
        if (appended == 3)
            store->setMessageNote(3, note);
    }
}

void Scene::waitUntil(const std::function<bool()> &condition)
{
    constexpr int hangLimit = 20000;
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        if (timer.hasExpired(hangLimit)) {
            complaints += QStringLiteral("hangs");
            return;
        }
    }
}

void Scene::waitForSaves()
{
    // With no name for the archive nothing is packed, but waited for.
    store->setZipFileName(QString());
    store->saveDatachunksToZip();
    QCoreApplication::sendPostedEvents();
}

void Scene::waitForArchives()
{
    const int ended = archiveJobsEnded;
    store->importMessages(target("none.zip"), DatachunkHelper::ZipArchive);
    waitUntil([&] { return archiveJobsEnded > ended; });
    waitForSaves();
}

bool Scene::isTold() const
{
    return !errors.isEmpty() || imported.contains(QString()) || !result;
}

QString Scene::chunkPath(quint32 index) const
{
    return store->chunkFolderPath() + QStringLiteral("/tmpData") + QString::number(index)
        + QStringLiteral(".dck");
}

void Scene::writeOldArchive()
{
    writeFile(target("a%1b.zip"), oldArchive);
}

bool Scene::hasOldArchive() const
{
    return readFile(target("a%1b.zip")) == oldArchive;
}

bool Scene::shows(quint32 first, quint32 last) const
{
    const quint32 count = store->getMessageCount();
    return count == last - first + 1 && store->messageAt(0).messageNumber == first
        && store->messageAt(int(count) - 1).messageNumber == last;
}

void Scene::checkAftermath(bool mayLeaveFiles)
{
    store->finishContinousOutput();
    store->goLive();
    const quint32 rotations = (appended - (appended > 0)) / chunkSize;
    const quint32 start = rotations * chunkSize;
    append(start + chunkSize + 1 - appended);
    waitUntil([&] { return !chunks.isEmpty() && shows(appended - 1, appended - 1); });
    waitForSaves();
    if (chunks.isEmpty() || !holds(chunkPath(chunks.last()), start, start + chunkSize - 1))
        complaints += QStringLiteral("the next rotation is not good");
    for (const QString &name : qAsConst(partialChunks)) {
        if (!QFile::exists(name))
            complaints += QStringLiteral("a chunk of an import is gone");
    }
    store.reset();
    QMap<QString, QByteArray> after = filesBelow(root);
    for (const char *name : {"a.dck", "a.txt", "a%1b.zip"})
        after.remove(target(name));
    const QString parts = source("a%1b_splitted");
    after.remove(parts);
    for (const char *name : {"/a%1b_0.dck", "/a%1b_1.dck", "/a%1b_2.dck"})
        after.remove(parts + QLatin1String(name));
    for (auto file = before.begin(); file != before.end(); ++file) {
        if (!after.contains(file.key()) || after.take(file.key()) != file.value())
            complaints += file.key() + QStringLiteral(" is gone or changed");
    }
    if (!after.isEmpty() && !mayLeaveFiles)
        complaints += after.firstKey() + QStringLiteral(" is left");
}
