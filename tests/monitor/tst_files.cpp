#include "filefixture.h"
#include "importedtrace.h"
#include "jobqueue.h"
#include "sourcereader.h"
#include "sourceview.h"
#include "temporarysettings.h"
#include "tracerecognition.h"

#include <QBuffer>
#include <QComboBox>
#include <QDialog>
#include <QDirIterator>
#include <QLineEdit>
#include <QMenu>
#include <QProcess>
#include <QPushButton>
#include <QTableView>
#include <QTextBrowser>

class TestFiles : public QObject
{
    Q_OBJECT
private:
    const TemporarySettings settings;

private slots:
    void everyKindOfTraceIsOpened_data();
    void everyKindOfTraceIsOpened();
    void whatIsNoTraceIsTold_data();
    void whatIsNoTraceIsTold();
    void chunksAreOneTraceAndForeignTracesAreTheirOwn();
    void importIsBoundedAndKeepsNotes();
    void cancelledImportLeavesNothing();
    void traceMayBeClosedWhileItIsRead();
    void reportLeadsToTheLine();
    void fileIsReadInAnotherWay();
    void linesAreFound_data();
    void linesAreFound();
    void linesAreToldToWhoeverListens();
    void chunksAreGoneTo();
    void recentTracesAreOpenedAgain();
};

namespace {

// For what reads many messages, also where a sanitizer looks on; in milliseconds.
constexpr int patience = 60000;

quint64 messagesIn(const QString &path)
{
    TraceStream stream(path, TraceRecognition::of(path).type);
    stream.setMode(DatachunkHelper::Tolerant);
    quint64 count = 0;
    stream.read([&count](const TraceItem &) { return ++count, true; }, [] { return true; });
    return count;
}

bool compress(const QString &path)
{
    return QProcess::execute(QStringLiteral("gzip"), {QStringLiteral("-f"), path}) == 0;
}

// Takes minutes to be read but little room: one compressed part after the other. Its path, empty
// where it could not be written.
QString writeLongTrace(const QTemporaryDir &folder)
{
    constexpr int lines = 500000;
    constexpr int parts = 500;
    const QString part = folder.filePath("part.log");
    if (!writeFile(part, QByteArray("(1.0) can0 123#11\n").repeated(lines)) || !compress(part))
        return {};
    QFile file(part + ".gz");
    const QString path = folder.filePath("long.log.gz");
    return file.open(QIODevice::ReadOnly) && writeFile(path, file.readAll().repeated(parts))
        ? path
        : QString();
}

} // namespace

void TestFiles::everyKindOfTraceIsOpened_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("compressed");
    const QString examples = QStringLiteral(TESTDATA "/../../examples/traces");
    const QString tolerant = QStringLiteral(TESTDATA "/tolerant");
    const QStringList kinds = QDir(tolerant).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    QStringList paths;
    for (const QFileInfo &file : QDir(examples).entryInfoList(QDir::Files))
        paths += file.filePath();
    for (const QString &kind : kinds) {
        const QDir folder(tolerant + QLatin1Char('/') + kind);
        for (const QFileInfo &file : folder.entryInfoList(QDir::Files, QDir::Size)) {
            if (file.suffix() == QLatin1String("faithful"))
                continue;
            paths += file.filePath();
            break;
        }
    }
    for (const QString &path : paths)
        QTest::newRow(qPrintable(QFileInfo(path).fileName())) << path << false;
    QTest::newRow("compressed") << paths.first() << true;
}

void TestFiles::everyKindOfTraceIsOpened()
{
    QFETCH(QString, path);
    QFETCH(bool, compressed);
    const quint64 expected = messagesIn(path);
    QVERIFY(expected > 0);
    QTemporaryDir folder;
    if (compressed) {
        const QString copy = folder.filePath(QStringLiteral("copy"));
        QVERIFY(QFile::copy(path, copy) && compress(copy));
        path = copy + QLatin1String(".gz");
    }
    FileWindow window;
    window.desk.open({path});
    QTRY_COMPARE(window.notices.size(), 1);
    QVERIFY(window.notices.first().kind != Notice::Failure);
    QCOMPARE(int(window.traces.size()), 1);
    QCOMPARE(window.countOf(), expected);
    QCOMPARE(window.trace()->paths(), QStringList(path));
    QVERIFY(!window.trace()->isGrowing());
}

void TestFiles::whatIsNoTraceIsTold_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("action");
    QTest::newRow("unknown") << "a.txt" << QByteArray("hello\nworld\n") << "Read as…";
    QTest::newRow("empty") << "a.log" << QByteArray() << "";
    QTest::newRow("damaged chunk") << "a.dck" << QByteArray(5000, 'x') << "";
    QTest::newRow("damaged archive") << "a.zip" << QByteArray("PK\3\4nothing") << "";
    QTest::newRow("not there") << "gone/a.log" << QByteArray() << "";
    QTest::newRow("folder without chunks") << "." << QByteArray() << "Choose…";
}

void TestFiles::whatIsNoTraceIsTold()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, action);
    QTemporaryDir folder;
    const QString path = folder.filePath(name);
    writeFile(path, bytes);
    FileWindow window;
    window.desk.open({path});
    QTRY_COMPARE(window.notices.size(), 1);
    const Notice told = window.notices.first();
    QCOMPARE(told.kind, Notice::Failure);
    QVERIFY(!told.text.isEmpty() && !told.advice.isEmpty());
    QCOMPARE(told.actionText, action);
    QVERIFY(window.traces.empty());
    if (told.action) {
        told.action();
        QVERIFY(window.findChild<QDialog *>());
    }
}

void TestFiles::chunksAreOneTraceAndForeignTracesAreTheirOwn()
{
    QTemporaryDir folder;
    const QString names[] = {folder.filePath("b.dck"), folder.filePath("a.dck"),
                             folder.filePath("c.log"), folder.filePath("d.asc")};
    for (int i = 0; i < 4; ++i) {
        MadeItems items(100, 1000 + 100000 * i);
        QVERIFY(writeTrace(items, names[i]));
    }
    FileWindow window;
    window.desk.open({names[1], names[2], names[0], names[3]});
    QTRY_COMPARE(int(window.traces.size()), 3);
    QTRY_COMPARE(window.countOf(0), 200);
    QCOMPARE(window.trace()->paths(), QStringList({names[1], names[0]}));
    QCOMPARE(window.trace()->timeline().firstTime(), 1000);
    QTRY_VERIFY(!window.trace(1)->isGrowing() && !window.trace(2)->isGrowing());
    QCOMPARE(window.countOf(1) + window.countOf(2), 200);
}

// A compressed chunk is read from front to back, into a store that rotates between the messages
// that have notes.
void TestFiles::importIsBoundedAndKeepsNotes()
{
    QTemporaryDir folder;
    const QString chunk = folder.filePath("a.dck");
    MadeItems items(importedInMemory * 2 + 5);
    const QVector<quint32> marked{0, importedInMemory - 1, importedInMemory, importedInMemory + 1,
                                  items.count - 1};
    for (const quint32 number : marked) {
        items.notes.insert(number, QStringLiteral("note %1").arg(number));
        items.bookmarks.insert(number, QStringLiteral("mark %1").arg(number));
    }
    QVERIFY(writeTrace(items, chunk) && compress(chunk));
    FileWindow window;
    window.desk.open({chunk + ".gz"});
    QTRY_COMPARE_WITH_TIMEOUT(window.notices.size(), 1, patience);
    QCOMPARE(window.countOf(), items.count);
    for (const quint32 number : marked) {
        const TraceRow row = window.trace()->timeline().row(number);
        QCOMPARE(row.message.messageNumber, number);
        QCOMPARE(row.note, items.notes.value(number));
        QCOMPARE(row.bookmark.text(), items.bookmarks.value(number));
    }
    QCOMPARE(window.trace()->timeline().bookmarkPositions().size(), marked.size());
    const QVector<TraceChunk> chunks = window.trace()->timeline().chunks();
    QCOMPARE(chunks.last().count, quint64(5));
}

void TestFiles::cancelledImportLeavesNothing()
{
    QTemporaryDir folder;
    const QString path = writeLongTrace(folder);
    QVERIFY(!path.isEmpty());
    FileWindow window;
    auto *queue = window.desk.findChild<JobQueue *>();
    // Three at once, of which the last one has to wait.
    connect(queue, &JobQueue::jobAdded, &window, [](BackgroundJob *job) {
        if (job->title().startsWith(QStringLiteral("Reading")))
            QMetaObject::invokeMethod(job, &BackgroundJob::cancel, Qt::QueuedConnection);
    });
    for (int i = 0; i < 3; ++i)
        window.desk.open({path});
    QTRY_VERIFY_WITH_TIMEOUT(window.notices.size() >= 2 && queue->jobs().isEmpty(), patience);
    for (const Notice &told : window.notices)
        QCOMPARE(told.kind, Notice::Warning);
    for (std::size_t i = 0; i < window.traces.size(); ++i)
        QVERIFY(!window.trace(i)->isGrowing());
    QTRY_VERIFY(window.desk.findChildren<ImportedTrace *>().isEmpty());
}

void TestFiles::traceMayBeClosedWhileItIsRead()
{
    QTemporaryDir folder;
    const QString path = writeLongTrace(folder);
    QVERIFY(!path.isEmpty());
    FileWindow window;
    window.desk.open({path});
    QTRY_COMPARE(int(window.traces.size()), 1);
    window.showFirst();
    QVERIFY(window.trace()->isGrowing());
    window.traces.clear();
    QTRY_VERIFY(window.desk.findChild<JobQueue *>()->jobs().isEmpty());
    QTRY_VERIFY(!window.desk.progress()->isVisible());
    QCOMPARE(window.notices.size(), 0);
}

void TestFiles::reportLeadsToTheLine()
{
    QTemporaryDir folder;
    const QString path = folder.filePath("a.log");
    QByteArray text;
    for (int i = 1; i <= 5000; ++i)
        text += i == 4321 ? "(1.5) can0 12x#<b>\n" : "(1.5) can0 123#11\n";
    QVERIFY(writeFile(path, text));
    FileWindow window;
    window.desk.open({path});
    QTRY_COMPARE(window.notices.size(), 1);
    QCOMPARE(window.notices.first().kind, Notice::Warning);
    window.notices.first().action();
    auto *report = window.dialog<QDialog>("importReport");
    QVERIFY(report && QTest::qWaitForWindowExposed(report));
    auto *browser = report->findChild<QTextBrowser *>();
    QVERIFY(browser->toPlainText().contains("<b>"));
    browser->setFocus();
    QTest::keyClick(browser, Qt::Key_Tab);
    QTest::keyClick(browser, Qt::Key_Return);
    auto *source = report->findChild<SourceView *>();
    QVERIFY(source);
    QTRY_COMPARE(source->currentLine(), quint64(4321));
    QTRY_COMPARE(source->currentText(), QStringLiteral("(1.5) can0 12x#<b>"));
    QTest::keyClick(source, Qt::Key_Down);
    QTRY_COMPARE(source->currentText(), QStringLiteral("(1.5) can0 123#11"));
    QTest::keyClick(source, Qt::Key_End);
    QCOMPARE(source->currentLine(), quint64(5000));
}

void TestFiles::fileIsReadInAnotherWay()
{
    QTemporaryDir folder;
    const QString path = folder.filePath("a.txt");
    QVERIFY(writeFile(path, "frame at 1.5 0 123 2 11 22\nframe at 2.5 0 124 1 33\n"));
    FileWindow window;
    window.desk.open({path});
    QTRY_COMPARE(window.notices.size(), 1);
    QVERIFY(window.traces.empty());
    window.notices.first().action();
    auto *dialog = window.dialog<QDialog>("reopen");
    auto *types = dialog->findChild<QComboBox *>("type");
    types->setCurrentIndex(types->findData(int(DatachunkHelper::GenericFormat)));
    dialog->findChild<QLineEdit *>("description")->setText("? ? t n i l d");
    QTest::keyClick(dialog, Qt::Key_Return);
    QTRY_COMPARE(window.notices.size(), 2);
    QCOMPARE(window.countOf(), quint64(2));
    QCOMPARE(window.trace()->timeline().row(1).message.id, quint32(0x124));
}

void TestFiles::linesAreFound_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QStringList>("lines");
    QByteArray many;
    QStringList manyLines;
    for (int i = 0; i < 60000; ++i) {
        manyLines += QStringLiteral("line %1").arg(i);
        many += manyLines.last().toLatin1() + "\r\n";
    }
    QTest::newRow("more than one step") << many << manyLines;
    const QByteArray wide(300000, 'x');
    const QString shown = QString(LineIndex::mostShown, 'x') + QChar(0x2026);
    QTest::newRow("lines longer than a step") << "a\n" + wide + "\nb\n" + wide + "\nc\n"
                                              << QStringList{"a", shown, "b", shown, "c"};
    QTest::newRow("Latin 1") << QByteArray("T\xFCr\n") << QStringList{QStringLiteral("T\u00FCr")};
    QTest::newRow("UTF-8") << QByteArray("T\xC3\xBCr\n") << QStringList{QStringLiteral("T\u00FCr")};
    QTest::newRow("UTF-16") << QByteArray("\xFF\xFE"
                                          "a\0\n\0\x0A\x0A\n\0",
                                          10)
                            << QStringList{QString(QChar(0xFEFF)) + "a", QString(QChar(0x0A0A))};
    QTest::newRow("UTF-16, big end first") << QByteArray("\xFE\xFF\0a\0\n\0b\0\n", 10)
                                           << QStringList{QString(QChar(0xFEFF)) + "a", "b"};
    QTest::newRow("no line end") << QByteArray("a") << QStringList{"a"};
}

void TestFiles::linesAreFound()
{
    QFETCH(QByteArray, text);
    QFETCH(QStringList, lines);
    LineIndex index(text.size(), text.left(4));
    constexpr int blockSize = 1 << 16;
    for (int at = 0; at < text.size(); at += blockSize)
        index.add(text.constData() + at, qMin(blockSize, text.size() - at));
    QCOMPARE(index.linesInAll(), quint64(lines.size()));
    QBuffer buffer(&text);
    QVERIFY(buffer.open(QIODevice::ReadOnly));
    QCOMPARE(index.read(buffer, 1, lines.size()), lines);
    for (const int line : {0, lines.size() / 2, lines.size() - 1})
        QCOMPARE(index.read(buffer, quint64(line) + 1, 1), QStringList(lines.at(line)));
}

// However long it takes to listen.
void TestFiles::linesAreToldToWhoeverListens()
{
    QTemporaryDir folder;
    const QString path = folder.filePath("a.log");
    QVERIFY(writeFile(path, "a\nb\n"));
    SourceReader reader(path, 10);
    QTest::qWait(50);
    QVector<quint64> told;
    connect(&reader, &SourceReader::complete, this, [&told](quint64 lines) { told << lines; });
    reader.want(1);
    QTRY_COMPARE(told, QVector<quint64>{2});
}

void TestFiles::chunksAreGoneTo()
{
    QTemporaryDir folder;
    for (int i = 0; i < 3; ++i) {
        MadeItems items(100, 1000 + 100000 * i);
        QVERIFY(writeTrace(items, folder.filePath(QStringLiteral("tmpData%1.dck").arg(i))));
    }
    FileWindow window;
    window.desk.open({folder.path()});
    QTRY_COMPARE(int(window.traces.size()), 1);
    QTRY_COMPARE(window.countOf(), quint64(300));
    window.showFirst();
    window.trigger("showChunks");
    auto *dialog = window.dialog<QDialog>("chunks");
    auto *table = dialog->findChild<QTableView *>();
    QCOMPARE(table->model()->rowCount(), 3);
    QSignalSpy chosen(dialog, SIGNAL(positionChosen(quint64)));
    QTest::keyClick(table, Qt::Key_Down);
    QTest::keyClick(dialog, Qt::Key_Return);
    QTRY_COMPARE(chosen.size(), 1);
    QCOMPARE(chosen.first().first().toULongLong(), 100);
}

void TestFiles::recentTracesAreOpenedAgain()
{
    QTemporaryDir folder;
    const QString path = folder.filePath("a & b.dck");
    MadeItems items(10);
    QVERIFY(writeTrace(items, path));
    FileWindow window;
    window.desk.open({path});
    QTRY_COMPARE(int(window.traces.size()), 1);
    QMenu *menu = window.desk.findChild<QAction *>("openRecent")->menu();
    emit menu->aboutToShow();
    QVERIFY(menu->actions().first()->text().startsWith("a && b.dck"));
    menu->actions().first()->trigger();
    QTRY_COMPARE(int(window.traces.size()), 2);
    // What is no longer there is told, and forgotten.
    QVERIFY(QFile::remove(path));
    menu->actions().first()->trigger();
    QTRY_COMPARE(window.notices.size(), 1);
    emit menu->aboutToShow();
    QVERIFY(!menu->actions().first()->text().startsWith("a && b.dck"));
}

QTEST_MAIN(TestFiles)
#include "tst_files.moc"
