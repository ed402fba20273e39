#include "atturn.h"
#include "datachunkhandler.h"
#include "messages.h"
#include "storefixture.h"

#include <QtTest>

/// What an import does to the store, and what happens when others use the store meanwhile.
class Dispatch : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void signalsOfAnImport_data();
    void signalsOfAnImport();
    void errorAtTheEndLeavesNoChunk();
    void importWithoutAWritableChunkFolder();
    void liveTrafficGoesOnDuringAnImport();
    void importOnAThreadWithoutTheStoresEventLoop();

private:
    QString candump(const QString &name, int lines);

    QTemporaryDir folder;
};

namespace {

// Writes down the signals of a store by name, with the arguments that matter.
class SignalLog : public QObject
{
public:
    explicit SignalLog(DatachunkHandler &store)
    {
        using H = DatachunkHandler;
        connect(&store, &H::informAboutClearStart, this, [this] { log += "clearStart"; });
        connect(&store, &H::informAboutCleared, this,
                [this](bool live) { log += live ? "cleared live" : "cleared"; });
        connect(&store, &H::showLoadingDialog, this,
                [this](bool on) { log += on ? "dialog on" : "dialog off"; });
        connect(&store, &H::newPartialDataFile, this,
                [this](const QString &, const QString &base, const QString &time) {
                    log += "partial " + base + ' ' + time;
                });
        connect(&store, &H::liveModeChanged, this,
                [this](bool live) { log += live ? "live" : "browsing"; });
        connect(&store, &H::newErrorMessage, this, [this](const QString &text) { log += text; });
        connect(&store, &H::newImportedFile, this,
                [this](const QString &part, const QString &) { log += "file " + part; });
        connect(&store, &H::messagesImported, this, [this](const QString &name) {
            log += name.isEmpty() ? "nothing" : "imported " + QFileInfo(name).fileName();
        });
    }

    QStringList log;
};

const QStringList backToLive{"clearStart", "cleared live", "live"};

} // namespace

void Dispatch::init()
{
    QVERIFY(folder.isValid());
}

QString Dispatch::candump(const QString &name, int lines)
{
    QByteArray text;
    for (int i = 0; i < lines; ++i)
        text += QStringLiteral("(%1.5) can0 %2#1122\n").arg(i).arg(i % 0x800, 3, 16).toLatin1();
    const QString file = folder.filePath(name);
    writeFile(file, text);
    return file;
}

void Dispatch::signalsOfAnImport_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("type");
    QTest::addColumn<QStringList>("log");
    using H = DatachunkHelper;
    const QByteArray line = "(1.5) can0 123#1122\n";
    QByteArray chunk;
    QDataStream stream(&chunk, QIODevice::WriteOnly);
    ChunkFormat::writeHeader(stream, QStringLiteral("x"), {}, {});
    const QByteArray emptyChunk = chunk;
    stream.device()->seek(chunk.size());
    ChunkFormat::writeRecord(stream, makeMessage(1), ChunkFormat::currentVersion);
    const QString empty = QStringLiteral("File seems to be empty or broken, nothing imported.");
    const QStringList dialog{"clearStart", "dialog on", "dialog off"};

    QTest::newRow("trace") << "a.b.log" << line << int(H::SocketCanDump)
                           << dialog
            + QStringList{"clearStart", "partial a 1.500000 - 1.500000", "cleared", "browsing",
                          "imported a.b.log"};
    QTest::newRow("trace without messages")
        << "a.log" << QByteArray("nothing here\n") << int(H::SocketCanDump)
        << dialog + QStringList{"cleared"} + backToLive + QStringList{empty, "nothing"};
    QTest::newRow("type without a reader") << "a.log" << line << int(H::PcanExplorerTxt)
                                           << dialog
            + QStringList{"Unknown import error", "cleared"} + backToLive + QStringList{"nothing"};
    QTest::newRow("chunk") << "a.dck" << chunk << int(H::ChunkFile)
                           << QStringList{"clearStart", "clearStart", "cleared",
                                          "browsing",   "file a.dck", "imported a.dck"};
    QTest::newRow("chunk without messages")
        << "a.dck" << emptyChunk << int(H::ChunkFile)
        << QStringList{"clearStart", "cleared"} + backToLive + QStringList{empty, "nothing"};
    for (const int type : {int(H::Unassigned), int(H::EmptyTxtFile), int(H::Unknown), 22, 31}) {
        QTest::newRow(qPrintable(QStringLiteral("refused type %1").arg(type)))
            << "a.log" << line << type << QStringList{"nothing"};
    }
    QTest::newRow("missing file") << "" << line << int(H::SocketCanDump) << QStringList{"nothing"};
}

void Dispatch::signalsOfAnImport()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    QFETCH(int, type);
    QString file = folder.filePath(name.isEmpty() ? QStringLiteral("missing") : name);
    if (!name.isEmpty())
        writeFile(file, content);
    DatachunkHandler store(20000);
    store.addnewtestmessage();
    SignalLog signalLog(store);
    store.importMessages(file, DatachunkHelper::ImportFileType(type));
    QTEST(signalLog.log, "log");
    const bool imported = signalLog.log.contains(QStringLiteral("browsing"));
    QCOMPARE(store.getIsLive(), !imported);
    QCOMPARE(store.getMessageCount(), 1u);
}

void Dispatch::errorAtTheEndLeavesNoChunk()
{
    const QString file = folder.filePath(QStringLiteral("described.txt"));
    const QByteArray good = QByteArray("1.0 1 123 Rx d 1 11\n").repeated(2500);
    const auto type = DatachunkHelper::GenericFormat;
    const QString layout = QStringLiteral("t n i ? ? l d");
    DatachunkHandler store(6000);
    QSignalSpy partial(&store, &DatachunkHandler::newPartialDataFile);
    QSignalSpy errors(&store, &DatachunkHandler::newErrorMessage);
    writeFile(file, good + "1\n");
    store.importMessages(file, type, layout);
    QCOMPARE(errors.count(), 1);
    QVERIFY(errors.first().first().toString().contains(QStringLiteral("line 2501")));
    QCOMPARE(partial.count(), 0);
    writeFile(file, good);
    store.importMessages(file, type, layout);
    QCOMPARE(partial.count(), 3);
    QVERIFY(partial.first().first().toString().endsWith(QStringLiteral("\\0.dck")));
    QCOMPARE(store.getMessageCount(), 500u);
}

void Dispatch::importWithoutAWritableChunkFolder()
{
    const QByteArray before = qgetenv("XDG_DATA_HOME");
    const QString blocked = folder.filePath(QStringLiteral("blocked"));
    writeFile(blocked, "a file");
    qputenv("XDG_DATA_HOME", QFile::encodeName(blocked));
    {
        DatachunkHandler store(5010);
        QSignalSpy errors(&store, &DatachunkHandler::newErrorMessage);
        QCOMPARE(store.chunkFolderPath(), QString());
        for (int i = 0; i < 25; ++i)
            store.addnewtestmessage();
        QCOMPARE(errors.count(), 1);
        QVERIFY(store.loadDataFromFile(0));
        store.importMessages(candump(QStringLiteral("a.log"), 3), DatachunkHelper::SocketCanDump);
        QCOMPARE(store.getMessageCount(), 3u);
        store.clearAllMessages();
    }
    qputenv("XDG_DATA_HOME", before);
    QCOMPARE(readFile(blocked), QByteArray("a file"));
}

void Dispatch::liveTrafficGoesOnDuringAnImport()
{
    DatachunkHandler store(5600);
    QSignalSpy saved(&store, &DatachunkHandler::newDataFile);
    const AtTurn atTurn(3, [&] {
        for (int i = 0; i < 1501; ++i)
            store.addnewtestmessage();
        store.addMessageNoteToNextMessage(QStringLiteral("live"));
        store.addnewtestmessage();
    });
    store.importMessages(candump(QStringLiteral("a.log"), 20000), DatachunkHelper::SocketCanDump);
    QTRY_COMPARE(saved.count(), 2);
    QVERIFY(!store.getIsLive());
    for (const QList<QVariant> &arguments : saved) {
        const ReadChunk chunk =
            readChunkFile(store.chunkFolderPath()
                          + QStringLiteral("/tmpData%1.dck").arg(arguments.first().toUInt()));
        QCOMPARE(chunk.messages.size(), 600);
    }
    QCOMPARE(store.getMessageNote(1501), QString());
    store.goLive();
    QCOMPARE(store.getMessageCount(), 302u);
    QVERIFY(store.getMessageNote(1501).endsWith(QStringLiteral("live")));
}

void Dispatch::importOnAThreadWithoutTheStoresEventLoop()
{
    DatachunkHandler store(6000);
    const QString file = candump(QStringLiteral("a.log"), 2500);
    const std::unique_ptr<QThread> thread(
        QThread::create([&] { store.importMessages(file, DatachunkHelper::SocketCanDump); }));
    thread->start();
    QVERIFY(thread->wait(20000));
    QCOMPARE(store.getMessageCount(), 500u);
    QVERIFY(!store.getIsLive());
}

QTEST_GUILESS_MAIN(Dispatch)
#include "tst_dispatch.moc"
