#include "archives.h"
#include "atturn.h"
#include "datachunkhandler.h"
#include "messages.h"
#include "storefixture.h"

#include <QtTest>

/// What an import does to the store, and what happens when others use the store meanwhile.
class TestDispatch : public QObject
{
    Q_OBJECT
private slots:
    void signalsOfAFailedImport_data();
    void signalsOfAFailedImport();
    void errorAtTheEndLeavesNoChunk();
    void partsOfALongNameAreSaved();
    void importWithoutAWritableChunkFolder();
    void liveTrafficGoesOnDuringAnImport();
    void importOnAThreadWithoutTheStoresEventLoop();
    void anImportTellsItsProgressAndCanBeCancelled();
    void aCancelledImportLeavesNoChunk_data();
    void aCancelledImportLeavesNoChunk();

private:
    QString candump(int lines);

    QTemporaryDir folder;
};

QString TestDispatch::candump(int lines)
{
    const QString file = folder.filePath(QStringLiteral("a.log"));
    writeFile(file, candumpLines(0, lines));
    return file;
}

void TestDispatch::signalsOfAFailedImport_data()
{
    using H = DatachunkHelper;
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("signalNames");
    const auto row = [](const QString &what, const QString &file, int type, const char *names) {
        QTest::newRow(qPrintable(what)) << file << type << QString(names);
    };
    const QString trace = candump(1);
    const QString chunk = folder.filePath(QStringLiteral("a.dck"));
    const QString newer = folder.filePath(QStringLiteral("newer.dck"));
    writeFile(chunk, chunkBytes(QStringLiteral("0.0"), 0, 0));
    writeFile(newer, newerChunkBytes());
    row("type without a reader", trace, H::PcanExplorerTxt,
        "start, dialog 1, dialog 0, Unknown import error, cleared 0, "
        "start, cleared 1, live 1, imported ");
    row("chunk without messages", chunk, H::ChunkFile,
        "start, cleared 0, start, cleared 1, live 1, File seems to be empty or br, imported ");
    row("chunk of a newer version", newer, H::ChunkFile,
        "start, This import file was created, start, cleared 1, live 1, imported ");
    for (const int type : {int(H::Unassigned), int(H::EmptyTxtFile), int(H::Unknown), 200})
        row(QStringLiteral("refused type %1").arg(type), trace, type, "imported ");
    row("missing file", "missing", H::SocketCanDump, "imported ");
}

void TestDispatch::signalsOfAFailedImport()
{
    using H = DatachunkHandler;
    QFETCH(QString, file);
    QFETCH(int, type);
    H store(20000);
    store.addnewtestmessage();
    store.setMessageNote(1, QStringLiteral("live note"));
    QStringList told;
    const auto onOff = [&told](const char *name) {
        return [&told, name](bool on) { told += QLatin1String(name) + QString::number(on); };
    };
    connect(&store, &H::informAboutClearStart, this, [&] { told += "start"; });
    connect(&store, &H::informAboutCleared, this, onOff("cleared "));
    connect(&store, &H::showLoadingDialog, this, onOff("dialog "));
    connect(&store, &H::liveModeChanged, this, onOff("live "));
    connect(&store, &H::newErrorMessage, this, [&](const QString &text) { told += text.left(28); });
    connect(&store, &H::messagesImported, this, [&](const QString &f) { told += "imported " + f; });
    store.importMessages(file, DatachunkHelper::ImportFileType(type));
    QTEST(told.join(", "), "signalNames");
    QVERIFY(store.getIsLive());
    QCOMPARE(store.getMessageNote(1), QStringLiteral("live note"));
    QCOMPARE(store.getMessageCount(), 1u);
}

void TestDispatch::errorAtTheEndLeavesNoChunk()
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
    // Read by itself while a list is shown, a failed trace adds nothing to it.
    const unsigned int shown = store.getMessageCount();
    writeFile(file, good.left(60) + "1\n");
    QVERIFY(!store.loadGenericFile(file, layout));
    QCOMPARE(store.getMessageCount(), shown);
    writeFile(file, good.left(60));
    QVERIFY(store.loadGenericFile(file, layout));
    QCOMPARE(store.getMessageCount(), shown + 3);
}

void TestDispatch::partsOfALongNameAreSaved()
{
    const QString name = QStringLiteral("\u00fc").repeated(121) + QStringLiteral("100%1.5");
    const QString file = folder.filePath(name + QStringLiteral(".log"));
    writeFile(file, candumpLines(0, 2500));
    DatachunkHandler store(6000);
    QSignalSpy partial(&store, &DatachunkHandler::newPartialDataFile);
    store.importMessages(file, DatachunkHelper::SocketCanDump);
    QCOMPARE(partial.count(), 3);
    for (int i = 0; i < partial.count(); ++i) {
        const QString part = partial.at(i).at(0).toString();
        QVERIFY(part.endsWith(QStringLiteral("\\%1.dck").arg(i)) && QFile::exists(part));
        QCOMPARE(partial.at(i).at(1).toString(), name.section('.', 0, 0));
    }
}

void TestDispatch::importWithoutAWritableChunkFolder()
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
        store.importMessages(candump(3), DatachunkHelper::SocketCanDump);
        QCOMPARE(store.getMessageCount(), 3u);
        store.clearAllMessages();
    }
    qputenv("XDG_DATA_HOME", before);
    QCOMPARE(readFile(blocked), QByteArray("a file"));
}

void TestDispatch::liveTrafficGoesOnDuringAnImport()
{
    DatachunkHandler store(5600);
    QSignalSpy saved(&store, &DatachunkHandler::newDataFile);
    const AtTurn atTurn(3, [&] {
        for (int i = 0; i < 1501; ++i)
            store.addnewtestmessage();
        store.addMessageNoteToNextMessage(QStringLiteral("live"));
        store.addnewtestmessage();
    });
    store.importMessages(candump(20000), DatachunkHelper::SocketCanDump);
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

void TestDispatch::importOnAThreadWithoutTheStoresEventLoop()
{
    DatachunkHandler store(6000);
    const QString file = candump(2500);
    const std::unique_ptr<QThread> thread(
        QThread::create([&] { store.importMessages(file, DatachunkHelper::SocketCanDump); }));
    thread->start();
    QVERIFY(thread->wait(20000));
    QCOMPARE(store.getMessageCount(), 500u);
    QVERIFY(!store.getIsLive());
}

void TestDispatch::anImportTellsItsProgressAndCanBeCancelled()
{
    constexpr int lineCount = 20000;
    const QString file = candump(lineCount);
    DatachunkHandler store(100000);
    store.addnewtestmessage();
    ImportProgress progress;
    const AtTurn cancelling(10, [&] {
        progress = store.importProgress();
        store.cancelImport();
    });
    const QSignalSpy imported(&store, &DatachunkHandler::messagesImported);
    store.importMessages(file, DatachunkHelper::SocketCanDump);
    QCOMPARE(imported.value(0).value(0).toString(), QString());
    QVERIFY(store.getIsLive() && store.getMessageCount() == 1);
    QCOMPARE(progress.bytes, QFileInfo(file).size());
    QVERIFY(progress.bytesRead > 0 && progress.bytesRead <= progress.bytes);
    QVERIFY(progress.messages > 0 && progress.messages < lineCount);
    QCOMPARE(store.importProgress().bytes, 0);
}

void TestDispatch::aCancelledImportLeavesNoChunk_data()
{
    QTest::addColumn<int>("turn");
    QTest::addColumn<int>("saved"); // chunks that are told by then
    QTest::addColumn<bool>("cancels");
    QTest::newRow("between two chunks") << 10 << 1 << true;
    QTest::newRow("while the first chunk is written") << 2 << 0 << true;
    QTest::newRow("going live keeps the chunks") << 10 << 4 << false;
}

void TestDispatch::aCancelledImportLeavesNoChunk()
{
    QFETCH(int, turn);
    QFETCH(int, saved);
    QFETCH(bool, cancels);
    const QString file = candump(20000);
    DatachunkHandler store(6000);
    const QDir chunks(store.chunkFolderPath());
    const QString other = chunks.absolutePath() + "\\\\a7.dck";
    writeFile(other, "of another import");
    const auto partsOfImport = [&chunks] {
        QDir beside(chunks.path() + "/..");
        return beside.entryList({chunks.dirName() + "*.dck"}, QDir::Files).size() - 1;
    };
    QSignalSpy told(&store, &DatachunkHandler::newPartialDataFile);
    int toldBefore = 0;
    const auto leave = [&] {
        for (int i = 0; i < 3; ++i)
            store.addnewtestmessage();
        // Chunks that wait to be written when the import is left are none to keep.
        if (!cancels)
            store.waitForSaves();
        toldBefore = told.count();
        cancels ? store.cancelImport() : store.goLive();
        QVERIFY(store.getIsLive());
    };
    const AtTurn leaving(turn, leave, [&] { return told.count() >= saved; });
    const QSignalSpy imported(&store, &DatachunkHandler::messagesImported);
    store.importMessages(file, DatachunkHelper::SocketCanDump);
    QVERIFY(leaving.hasActed());
    QCOMPARE(leaving.turnsBehind(), 0); // nothing more is read
    QCOMPARE(imported.value(0).value(0).toString(), QString());
    QVERIFY(store.getIsLive() && store.getMessageCount() == 3);
    store.waitForSaves();
    QCoreApplication::processEvents();
    QVERIFY(cancels ? partsOfImport() == 0 : partsOfImport() > 3);
    QVERIFY(!cancels || told.count() == toldBefore);
    // The next import begins with chunks of its chunks.
    store.importMessages(file, DatachunkHelper::SocketCanDump);
    QVERIFY(!store.getIsLive() && partsOfImport() >= 20);
    QVERIFY(QFile::remove(other));
}

QTEST_GUILESS_MAIN(TestDispatch)
#include "tst_dispatch.moc"
