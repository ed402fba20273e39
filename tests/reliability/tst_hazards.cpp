#include "../../bench/tracegenerator.h"
#include "archives.h"
#include "atturn.h"
#include "datachunkhandler.h"
#include "messages.h"
#include "processstate.h"
#include "storefixture.h"

#include <QtTest>

#include <functional>

/// Slots and events that use, or delete, a store which is in the middle of something.
class TestHazards : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void slotMayDoAnything_data();
    void slotMayDoAnything();
    void eventOfAnImportMayDoAnything_data();
    void eventOfAnImportMayDoAnything();
    void packingTakesWholeFilesOnly();

private:
    QTemporaryDir folder;
};

namespace {

using H = DatachunkHandler;
using Type = DatachunkHelper::ImportFileType;

constexpr int chunkSize = 10;
constexpr int liveMessages = 5;
constexpr int traceMessages = 25;

// Calls a function at the n-th signal that a store emits on this thread, but for those that it
// may emit under its lock.
class AtSignal : public QObject
{
    Q_OBJECT
public:
    AtSignal(H &store, int n, bool clearingIsLocked, std::function<void()> act)
        : act(std::move(act)), left(n)
    {
        const QMetaMethod counter = metaObject()->method(metaObject()->indexOfSlot("count()"));
        const QMetaObject &meta = H::staticMetaObject;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
            const QMetaMethod method = meta.method(i);
            const bool isLocked = method.name() == "newLine"
                || (clearingIsLocked && method.name().startsWith("informAboutClear"));
            if (method.methodType() == QMetaMethod::Signal && !isLocked)
                connect(&store, method, this, counter, Qt::DirectConnection);
        }
    }

    bool hasActed() const { return left < 0; }

private slots:
    void count()
    {
        if (QThread::currentThread() == thread() && left-- == 0)
            act();
    }

private:
    const std::function<void()> act;
    std::atomic<int> left;
};

struct Step
{
    const char *name;
    std::function<void(H &)> run;
    bool clearingIsLocked = false;
    bool cancelsImport = false;
};

// What an application may do at any time.
const QVector<Step> &actions()
{
    static const QVector<Step> steps{
        {"going live", [](H &store) { store.goLive(); }, false, true},
        {"clearing", [](H &store) { store.clearAllMessages(); }, true, true},
        {"paging", [](H &store) { store.loadDataFromFile(0); }},
        {"import of a trace",
         [](H &store) { store.importMessages("trace.log", DatachunkHelper::SocketCanDump); }},
        {"merging", [](H &s) { s.loadZipMerged("good.zip"); }},
        {"packing",
         [](H &store) {
             store.setZipFileName("packed.zip");
             store.saveDatachunksToZip();
         }},
        {"rotation",
         [](H &store) {
             for (int i = 0; i < 2 * chunkSize + liveMessages; ++i)
                 store.addnewtestmessage();
         },
         true},
        {"deletion", [](H &store) { delete &store; }},
        // Not by deleteLater(), which shares a word of memory with every signal's emission,
        // unordered.
        {"deletion ordered",
         [](H &store) { QTimer::singleShot(0, &store, [&store] { delete &store; }); }}};
    return steps;
}

// The same, what may fail, and what takes several event turns.
const QVector<Step> &operations()
{
    const auto import = [](const char *file, Type type) {
        return [=](H &store) { store.importMessages(file, type, "t n i ? ? l d"); };
    };
    static const QVector<Step> steps = actions().mid(1, 6)
        + QVector<Step>{
            {"import that reports CAN FD",
             import("trace.asc", DatachunkHelper::VectorAscWithoutBitcount)},
            {"import of nothing", import("empty.log", DatachunkHelper::SocketCanDump)},
            {"import of a broken trace", import("broken.txt", DatachunkHelper::GenericFormat)},
            {"import of a chunk", import("good.dck", DatachunkHelper::ChunkFile)},
            {"import of a chunk without messages", import("empty.dck", DatachunkHelper::ChunkFile)},
            {"import of a newer chunk", import("newer.dck", DatachunkHelper::ChunkFile)},
            {"going live, when paged",
             [](H &store) {
                 const QPointer<H> guard(&store);
                 store.loadDataFromFile(0);
                 if (guard)
                     store.goLive();
             }},
            {"clearing during an import",
             [import](H &store) {
                 const QPointer<H> guard(&store);
                 AtTurn atTurn(0, [guard] {
                     if (guard)
                         guard->clearAllMessages();
                 });
                 import("trace.log", DatachunkHelper::SocketCanDump)(store);
             },
             true},
            {"merging newer chunks", [](H &s) { s.loadZipMerged("newer.zip"); }},
            {"merging nothing", [](H &s) { s.loadZipMerged("none.zip"); }},
            {"merging in the background", [](H &s) { s.importZipAndMerge("good.zip"); }},
            {"unpacking", [](H &s) { s.loadZipFile("good.zip"); }},
            {"unpacking nothing", [](H &s) { s.loadZipFile("none.zip"); }},
            {"unpacking in the background", import("good.zip", DatachunkHelper::ZipArchive)},
            {"packing what cannot be read",
             [](H &store) {
                 QFile::link(QDir::currentPath(), store.chunkFolderPath() + "/other.dck");
                 QFile(store.chunkFolderPath() + "/tmpData0.dck").setPermissions({});
                 store.setZipFileName("packed.zip");
                 store.saveDatachunksToZip();
             }},
            {"refused export", [](H &store) { store.exportMessages(QString()); }},
            {"export to a full disk", [](H &store) { store.exportMessages("full.dck"); }},
            {"splitting a newer chunk", [](H &store) { store.splitFile("newer.dck", 1); }},
            {"splitting on a full disk", [](H &store) { store.splitFile("good.dck", 2); }}};
    return steps;
}

// With one chunk of \a buffer messages, which has been told and is not shown any more. While
// another thread tells of it, nobody may connect: Qt does not order that.
H *newStore(int buffer)
{
    auto *const store = new H(unsigned(5000 + buffer));
    QSemaphore shown;
    QSignalSpy saved(store, &H::newDataFile);
    const auto connection =
        QObject::connect(store, &H::informAboutCleared, [&] { shown.release(); });
    for (int i = 0; i < buffer + liveMessages; ++i)
        store->addnewtestmessage();
    shown.acquire();
    saved.wait(60000);
    QObject::disconnect(connection);
    store->setMessageNote(unsigned(buffer), "live");
    return store;
}

// Lets a store, if it still exists, finish what it does.
void settle(const QPointer<H> &store)
{
    for (int i = 0; i < 3 && store; ++i) {
        QCoreApplication::processEvents();
        if (store)
            store->loadZipFile(QString()); // behind all other jobs on archives
        QThreadPool::globalInstance()->waitForDone();
        QCoreApplication::processEvents();
    }
    // What the last round has asked for.
    QCoreApplication::processEvents();
}

// Shows that a store, if it still exists, works, and ends it.
QByteArray endStore(const QPointer<H> &store)
{
    if (!store)
        return {};
    store->importMessages("trace.log", DatachunkHelper::SocketCanDump);
    const unsigned buffer = store->getMaxMessageCount() - 5000;
    if (store->getIsLive() || store->getMessageCount() != (traceMessages - 1) % buffer + 1)
        return "messages were not imported";
    store->goLive();
    if (!store->getIsLive() || store->getMessageCount() > buffer)
        return "the store is not live again";
    if (store->messageAt(0).messageNumber == buffer && store->getMessageNote(buffer) != "live")
        return "the live note is gone";
    delete store.data();
    return {};
}

} // namespace

void TestHazards::initTestCase()
{
    QLoggingCategory::setFilterRules("*.debug=false");
    countObjects();
    QVERIFY(QDir::setCurrent(folder.path()));
    writeFile("trace.log", candumpLines(0, traceMessages));
    writeFile("empty.log", "nothing\n");
    writeFile("broken.txt", "1.0 1 123 Rx d 1 11\n1\n");
    writeFile("good.dck", chunkBytes("1.0", 0, 3));
    writeFile("empty.dck", chunkBytes("1.0", 0, 0));
    writeFile("newer.dck", newerChunkBytes());
    for (const GeneratedFormat &format : generatedFormats()) {
        if (format.type == DatachunkHelper::VectorAscWithoutBitcount)
            writeFile("trace.asc", generateTrace(format, generateTraffic(traceMessages)));
    }
    QVERIFY(writeArchive("good.zip",
                         {{"a.dck", chunkBytes("1.0", 0, 3)}, {"b.dck", chunkBytes("2.0", 3, 3)}}));
    QVERIFY(writeArchive("newer.zip", {{"a.dck", newerChunkBytes()}}));
    QVERIFY(QFile::link("/dev/full", "full.dck"));
    QVERIFY(QDir().mkdir("good_splitted"));
    QVERIFY(QFile::link("/dev/full", "good_splitted/good_0.dck"));
}

void TestHazards::slotMayDoAnything_data()
{
    QTest::addColumn<int>("operation");
    for (int operation = 0; operation < operations().size(); ++operation)
        QTest::newRow(operations().at(operation).name) << operation;
}

void TestHazards::slotMayDoAnything()
{
    QFETCH(int, operation);
    const Step &step = operations().at(operation);
    const ProcessState before = processState();
    for (const Step &action : actions()) {
        bool acted = true;
        for (int n = 0; acted && n < 50; ++n) {
            const QPointer<H> store(newStore(chunkSize));
            {
                const AtSignal atSignal(*store, n, step.clearingIsLocked,
                                        [&] { action.run(*store); });
                step.run(*store);
                settle(store);
                acted = atSignal.hasActed();
            }
            const QByteArray wrong = endStore(store);
            QVERIFY2(wrong.isEmpty(), action.name + (' ' + QByteArray::number(n)) + ": " + wrong);
        }
    }
    QCOMPARE(leftBehind(before), QString());
}

void TestHazards::eventOfAnImportMayDoAnything_data()
{
    QTest::addColumn<int>("format");
    for (int format = 0; format < generatedFormats().size(); ++format)
        QTest::newRow(generatedFormats().at(format).name) << format;
}

void TestHazards::eventOfAnImportMayDoAnything()
{
    QFETCH(int, format);
    constexpr int turns = 50;
    const GeneratedFormat &generated = generatedFormats().at(format);
    const QString file = "generated";
    writeFile(file, generateTrace(generated, generateTraffic(3200)));
    for (const Step &action : actions()) {
        bool acted = true;
        for (int turn = 0; acted && turn < turns; ++turn) {
            const QPointer<H> store(newStore(1500));
            QStringList imported;
            connect(store, &H::messagesImported, this,
                    [&imported](const QString &name) { imported.append(name); });
            int dialogs = 0;
            connect(store, &H::showLoadingDialog, this, [&](bool on) { dialogs += on ? 1 : -1; });
            {
                const AtTurn atTurn(turn, [&] { action.run(*store); });
                store->importMessages(file, generated.type, generated.description);
                acted = atTurn.hasActed();
            }
            if (store) {
                const bool cancelled = acted && action.cancelsImport;
                QCOMPARE(store->getIsLive(), cancelled);
                QCOMPARE(imported.last(), cancelled ? QString() : file);
                QCOMPARE(dialogs, 0);
            }
            settle(store);
            const QByteArray wrong = endStore(store);
            QVERIFY2(wrong.isEmpty(),
                     action.name + (' ' + QByteArray::number(turn)) + ": " + wrong);
        }
    }
}

void TestHazards::packingTakesWholeFilesOnly()
{
    H store(200000);
    QSet<int> sizes;
    const auto exportMore = [&](int count) {
        for (int number = 0; number < count; ++number)
            store.appendCanMessage(makeMessage(quint32(number), 64));
        sizes.insert(int(store.getMessageCount()));
        store.exportAllMessages("x.dck", {});
    };
    for (int i = 0; i < 5; ++i) {
        const QString archive = QStringLiteral("%1.zip").arg(i);
        store.setZipFileName(archive);
        store.setZipAfterSaving(true);
        exportMore(20000);
        QVERIFY(QTest::qWaitFor(
            [&] {
                if (sizes.size() < 40 * (i + 1)) // all of them are waited for
                    exportMore(100);
                return QFile::exists(archive);
            },
            60000));
        const QString file = "packed.dck";
        writeFile(file, archiveEntries(archive).value(0).content);
        QVERIFY(sizes.contains(readChunkFile(file).messages.size()));
    }
}

QTEST_GUILESS_MAIN(TestHazards)
#include "tst_hazards.moc"
