#include "scene.h"

#include "archives.h"
#include "messages.h"
#include "storefixture.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QStandardPaths>

namespace {
constexpr unsigned int rotationMargin = 5000;
}

Scene::Scene(const QString &root, bool longNotes)
    : root(root), note(longNotes ? QString(700000, QLatin1Char('n')) : QStringLiteral("note"))
{
    QDir(root).mkpath(QStringLiteral("in"));
    qputenv("XDG_DATA_HOME", QFile::encodeName(root + QStringLiteral("/home 50%1 %2")));
    // What other stores and programs have left in the place where chunk folders are.
    const QString location =
        QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) + "/datachunks/";
    QDir().mkpath(location + QStringLiteral("1/a"));
    for (const char *name : {"1/tmpData0.dck", "1/a/tmpData0.dck", "1\\a\\0.dck", "tmpData0.dck"})
        writeFile(location + QLatin1String(name), "not yours");
    const QByteArray first = chunkBytes("1.0", 0, sourceSize, {{3, note}});
    const QByteArray second = chunkBytes("2.0", sourceSize, sourceSize);
    writeFile(source("a%1b.dck"), first);
    writeFile(source("a%1b.log"), candumpLines(0, 3 * chunkSize / 2));
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
    newStore();
}

void Scene::newStore()
{
    chunks.clear();
    for (QStringList *list : {&partialChunks, &unpacked, &errors, &imported})
        list->clear();
    result = true;
    appended = 0;
    store.reset();
    store = std::make_unique<DatachunkHandler>(chunkSize + rotationMargin);
    using H = DatachunkHandler;
    H *const s = store.get();
    const auto addTo = [](QStringList &list) {
        return [&list](const QString &text) { list += text; };
    };
    QObject::connect(s, &H::newDataFile, s, [this](quint32 index) { chunks += index; });
    QObject::connect(s, &H::newPartialDataFile, s, addTo(partialChunks));
    QObject::connect(s, &H::newErrorMessage, s, addTo(errors));
    QObject::connect(s, &H::messagesImported, s, addTo(imported));
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
    const QDeadlineTimer end(20000);
    while (!condition() && !end.hasExpired())
        QCoreApplication::processEvents();
    if (end.hasExpired())
        complaints += QStringLiteral("hangs");
}

void Scene::waitForSaves()
{
    store->waitForSaves();
    QCoreApplication::sendPostedEvents();
}

void Scene::waitForView(quint32 first, quint32 last)
{
    waitUntil([&] { return shows(first, last); });
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
    waitUntil([this] { return !chunks.isEmpty(); });
    waitForView(appended - 1, appended - 1);
    waitForSaves();
    const QString last = QStringLiteral("tmpData%1.dck").arg(chunks.isEmpty() ? 0 : chunks.last());
    if (!holds(chunkPath(last), start, start + chunkSize - 1))
        complaints += QStringLiteral("the next rotation is not good");
    for (const QString &name : qAsConst(partialChunks)) {
        if (!QFile::exists(name))
            complaints += QStringLiteral("a chunk of an import is gone");
    }
    store.reset();
    QMap<QString, QByteArray> after = filesBelow(root);
    for (const char *name : {"out/a.dck", "out/a.txt", "out/a%1b.zip", "in/a%1b_splitted",
                             "in/a%1b_splitted/a%1b_0.dck", "in/a%1b_splitted/a%1b_1.dck",
                             "in/a%1b_splitted/a%1b_2.dck"})
        after.remove(root + QLatin1Char('/') + QLatin1String(name));
    for (auto file = before.begin(); file != before.end(); ++file) {
        if (!after.contains(file.key()) || after.take(file.key()) != file.value())
            complaints += file.key() + QStringLiteral(" is gone or changed");
    }
    if (!after.isEmpty() && !mayLeaveFiles)
        complaints += after.firstKey() + QStringLiteral(" is left");
}
