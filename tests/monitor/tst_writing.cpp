#include "converting.h"
#include "exportdialog.h"
#include "filefixture.h"
#include "formatbox.h"
#include "jobqueue.h"
#include "jobrows.h"
#include "mergeditems.h"
#include "packing.h"
#include "temporarysettings.h"
#include "tracerecognition.h"
#include "writingdesk.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>

class TestWriting : public QObject
{
    Q_OBJECT
private:
    const TemporarySettings settings;

private slots:
    void whatIsExportedReadsBack_data();
    void whatIsExportedReadsBack();
    void dialogExportsWhatIsChosen_data();
    void dialogExportsWhatIsChosen();
    void exportsNothingOverItsOwnSource();
    void onlyWholeFilesAppear_data();
    void onlyWholeFilesAppear();
    void archivesAreRoundTrips_data();
    void archivesAreRoundTrips();
    void cancelledArchivesLeaveNothing();
    void mergedMessagesAreInOrderOfTime();
    void filesAreConvertedAsFarAsTheyCanBeRead();
    void jobsAreShownAndCancelled();
};

namespace {

QVector<TraceItem> itemsIn(const QString &path)
{
    QVector<TraceItem> items;
    TraceStream stream(path, TraceRecognition::of(path).type);
    stream.setMode(DatachunkHelper::Tolerant);
    stream.read([&items](const TraceItem &item) { return items.append(item), true; },
                [] { return true; });
    return items;
}

TraceTimeline timelineOf(const QStringList &paths)
{
    TraceTimeline timeline(paths);
    timeline.waitForAll();
    return timeline;
}

bool isSame(const CAN::CanRxMessage &a, const CAN::CanRxMessage &b)
{
    return a.id == b.id && a.length == b.length && std::equal(a.data, a.data + a.length, b.data);
}

} // namespace

void TestWriting::whatIsExportedReadsBack_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<bool>("hasNotes");
    QTest::addColumn<bool>("hasBookmarks");
    QTest::newRow("chunk") << "dck" << true << true;
    QTest::newRow("text") << "txt" << true << false;
    for (const char *name : {"asc", "candump", "candump-screen", "trc11", "trc21"})
        QTest::newRow(name) << name << false << false;
}

void TestWriting::whatIsExportedReadsBack()
{
    QFETCH(QString, format);
    QFETCH(bool, hasNotes);
    QFETCH(bool, hasBookmarks);
    QTemporaryDir folder;
    MadeItems made(5000);
    made.notes.insert(4500, QStringLiteral("a note"));
    made.bookmarks.insert(4501, QStringLiteral("a bookmark"));
    const QString chunk = folder.filePath("source.dck");
    QVERIFY(writeTrace(made, chunk));
    ExportOrder order;
    order.format = *TargetFormat::named(format);
    order.target = folder.filePath("target." + order.format.suffix());
    JobControl control;
    TimelineItems items(timelineOf({chunk}), {});
    const ExportResult result = exportItems(items, order, control);
    QVERIFY2(result.isWritten, qPrintable(result.error));
    QCOMPARE(result.losses.isEmpty(), hasNotes && (hasBookmarks || format == "txt"));
    const QVector<TraceItem> read = itemsIn(order.target);
    QCOMPARE(read.size(), int(made.count));
    for (int i = 0; i < read.size(); ++i)
        QVERIFY(isSame(read.at(i).message, made.message(quint32(i))));
    QCOMPARE(read.at(4500).note, hasNotes ? made.notes.value(4500) : QString());
    QCOMPARE(read.at(4501).bookmark.isValid(), hasBookmarks);
}

void TestWriting::dialogExportsWhatIsChosen_data()
{
    QTest::addColumn<int>("part"); // of the radio buttons
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("last");
    QTest::addColumn<int>("expected"); // -1 where it cannot be
    QTest::newRow("all") << 0 << ""
                         << "" << 1000;
    QTest::newRow("what the filter shows") << 1 << ""
                                           << "" << 1;
    QTest::newRow("positions") << 3 << "10"
                               << "19" << 10;
    QTest::newRow("the last position") << 3 << "999"
                                       << "999" << 1;
    QTest::newRow("times") << 4 << "0.000100"
                           << "0.00019" << 10;
    QTest::newRow("positions the wrong way round") << 3 << "19"
                                                   << "10" << -1;
    QTest::newRow("a time that is none") << 4 << "now"
                                         << "0.001190" << -1;
}

void TestWriting::dialogExportsWhatIsChosen()
{
    QFETCH(int, part);
    QFETCH(QString, first);
    QFETCH(QString, last);
    QFETCH(int, expected);
    QTemporaryDir folder;
    MadeItems made(1000);
    const QString chunk = folder.filePath("source.dck");
    QVERIFY(writeTrace(made, chunk));
    FileWindow window;
    window.desk.open({chunk});
    QTRY_COMPARE(int(window.traces.size()), 1);
    window.showFirst();
    window.view->setFilter(TraceExpression::parse("id==7"));
    window.trigger("exportTrace");
    auto *dialog = window.dialog<ExportDialog>("export");
    QList<QRadioButton *> parts = dialog->findChildren<QRadioButton *>();
    QVERIFY(parts.at(1)->isChecked());
    parts.at(part)->click();
    const QList<QLineEdit *> fields = dialog->findChildren<QLineEdit *>();
    const auto fieldOf = [&](const QString &end) {
        for (QLineEdit *field : fields) {
            if (field->accessibleName().endsWith(end)
                && field->accessibleName().startsWith(part == 3 ? "Pos" : "Tim"))
                return field;
        }
        return static_cast<QLineEdit *>(nullptr);
    };
    if (!first.isEmpty()) {
        fieldOf("first")->selectAll();
        QTest::keyClicks(fieldOf("first"), first);
        fieldOf("last")->selectAll();
        QTest::keyClicks(fieldOf("last"), last);
    }
    auto *name = dialog->findChild<QLineEdit *>("file");
    name->selectAll();
    const QString target = folder.filePath("target.log");
    QTest::keyClicks(name, target);
    QTest::keyClick(name, Qt::Key_Return);
    QCOMPARE(dialog->isVisible(), expected < 0);
    if (expected < 0)
        return;
    QTRY_COMPARE(window.notices.size(), 1);
    QVERIFY(window.notices.first().kind != Notice::Failure);
    QCOMPARE(itemsIn(target).size(), expected);
}

void TestWriting::exportsNothingOverItsOwnSource()
{
    QTemporaryDir folder;
    MadeItems made(10);
    const QString chunk = folder.filePath("source.dck");
    QVERIFY(writeTrace(made, chunk));
    FileWindow window;
    window.desk.open({folder.path()});
    QTRY_COMPARE(int(window.traces.size()), 1);
    window.showFirst();
    window.trigger("exportTrace");
    auto *dialog = window.dialog<ExportDialog>("export");
    auto *name = dialog->findChild<QLineEdit *>("file");
    name->selectAll();
    QTest::keyClicks(name, chunk);
    QTest::keyClick(name, Qt::Key_Return);
    QVERIFY(dialog->isVisible());
    QCOMPARE(itemsIn(chunk).size(), 10);
}

void TestWriting::onlyWholeFilesAppear_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("exists");
    QTest::addColumn<bool>("isCancelled");
    QTest::newRow("cancelled") << "a.dck" << false << true;
    QTest::newRow("cancelled over another file") << "a.log" << true << true;
    QTest::newRow("folder is not there") << "gone/a.asc" << false << false;
    QTest::newRow("nothing to write") << "a.txt" << true << false;
}

void TestWriting::onlyWholeFilesAppear()
{
    QFETCH(QString, name);
    QFETCH(bool, exists);
    QFETCH(bool, isCancelled);
    QTemporaryDir folder;
    const QString target = folder.filePath(name);
    if (exists)
        QVERIFY(writeFile(target, "before"));
    JobControl control;
    MadeItems made(isCancelled ? 1000 : 0);
    control.isCancelled = isCancelled;
    const ExportOrder order{target, *TargetFormat::ofFile(target)};
    const ExportResult result = exportItems(made, order, control);
    QVERIFY(!result.isWritten);
    QCOMPARE(result.isCancelled, isCancelled);
    QCOMPARE(exportNotice(order, result).kind, isCancelled ? Notice::Information : Notice::Failure);
    QCOMPARE(result.error.isEmpty(), isCancelled);
    const QDir::Filters all = QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot;
    QCOMPARE(QDir(folder.path()).entryList(all).size(), exists ? 1 : 0);
    QCOMPARE(QFileInfo(target).size(), exists ? qint64(6) : qint64(0));
}

void TestWriting::archivesAreRoundTrips_data()
{
    QTest::addColumn<bool>("fromFolder");
    QTest::newRow("chunk files as they are") << true;
    QTest::newRow("chunks written anew") << false;
}

void TestWriting::archivesAreRoundTrips()
{
    QFETCH(bool, fromFolder);
    QTemporaryDir folder;
    const QString source = folder.filePath("source");
    QVERIFY(QDir().mkpath(source));
    for (int i = 0; i < 3; ++i) {
        MadeItems made(100, 1000 + 1000 * i);
        made.notes.insert(50, QStringLiteral("note %1").arg(i));
        QVERIFY(writeTrace(made, QStringLiteral("%1/tmpData%2.dck").arg(source).arg(i)));
    }
    const TraceTimeline before = timelineOf({source});
    const QString archive = folder.filePath("a.zip");
    const QString target = folder.filePath("target");
    // A file of that name stays.
    QVERIFY(QDir().mkpath(target) && writeFile(target + "/tmpData0.dck", "x"));
    FileWindow window;
    auto *writing = window.desk.findChild<WritingDesk *>();
    writing->pack(before, fromFolder ? QStringList(source) : QStringList(), archive);
    QTRY_COMPARE(window.notices.size(), 1);
    QVERIFY2(window.notices.first().kind == Notice::Information,
             qPrintable(window.notices.first().text));
    writing->unpack(archive, target);
    QTRY_COMPARE(window.notices.size(), 2);
    QVERIFY2(window.notices.last().kind == Notice::Information,
             qPrintable(window.notices.last().text));
    QCOMPARE(QFileInfo(target + "/tmpData0.dck").size(), qint64(1));
    QVERIFY(QFile::remove(target + "/tmpData0.dck"));
    for (const QString &path : {archive, target}) {
        const TraceTimeline after = timelineOf({path});
        QCOMPARE(after.count(), before.count());
        for (quint64 i = 0; i < before.count(); ++i) {
            QVERIFY(isSame(after.row(i).message, before.row(i).message));
            QCOMPARE(after.row(i).note, before.row(i).note);
        }
    }
    window.notices.last().action();
    QTRY_COMPARE(int(window.traces.size()), 1);
}

void TestWriting::cancelledArchivesLeaveNothing()
{
    QTemporaryDir folder;
    MadeItems made(100);
    const QString chunk = folder.filePath("a.dck");
    QVERIFY(writeTrace(made, chunk));
    JobControl control;
    const QString archive = folder.filePath("a.zip");
    QVERIFY(packTrace(timelineOf({chunk}), {chunk}, archive, control).isDone);
    control.isCancelled = true;
    const QString other = folder.filePath("b.zip");
    QVERIFY(packTrace(timelineOf({chunk}), {}, other, control).isCancelled);
    QVERIFY(!QFileInfo::exists(other));
    const QString target = folder.filePath("target");
    QVERIFY(unpackArchive(archive, target, control).isCancelled);
    QVERIFY(QDir(target).isEmpty());
}

void TestWriting::mergedMessagesAreInOrderOfTime()
{
    std::vector<std::unique_ptr<TraceItems>> inputs;
    for (int i = 0; i < 3; ++i)
        inputs.push_back(std::make_unique<MadeItems>(5000, 1000 + i, 7 + i));
    inputs.push_back(std::make_unique<MadeItems>(0));
    MergedItems merged(std::move(inputs));
    qint64 last = 0;
    int count = 0;
    const auto goesOn = [](double part) { return part <= 1; };
    QVERIFY(merged.forEach(
        [&](const TraceItem &item) {
            const bool isBehind = CAN::timeOf(item.message) >= last;
            last = CAN::timeOf(item.message);
            ++count;
            return isBehind;
        },
        goesOn));
    QCOMPARE(count, 15000);
    // What stops early stops those that read in advance, too.
    count = 0;
    merged.forEach([&](const TraceItem &) { return ++count < 10; }, goesOn);
    QCOMPARE(count, 10);
    QTemporaryDir folder;
    QVERIFY(writeTrace(merged, folder.filePath("a.dck")));
    const TraceTimeline timeline = timelineOf({folder.filePath("a.dck")});
    QCOMPARE(timeline.row(14999).message.messageNumber >= 14999, true);
}

void TestWriting::filesAreConvertedAsFarAsTheyCanBeRead()
{
    QTemporaryDir folder;
    MadeItems made(100);
    const QStringList paths{folder.filePath("a.log"), folder.filePath("b.txt"),
                            folder.filePath("a.dck")};
    QVERIFY(writeTrace(made, paths.at(0)) && writeTrace(made, paths.at(2)));
    QVERIFY(writeFile(paths.at(1), "hello\n"));
    FileWindow window;
    window.trigger("convertFiles");
    auto *dialog = window.dialog<QDialog>("convert");
    auto *target = dialog->findChild<QLineEdit *>("target");
    auto *inputs = dialog->findChild<QListWidget *>("inputs");
    inputs->addItems(paths);
    dialog->findChild<FormatBox *>()->setFormat(*TargetFormat::named("dck"));
    target->clear();
    QTest::keyClicks(target, folder.filePath("out"));
    QTest::keyClick(target, Qt::Key_Return);
    QTRY_COMPARE(window.notices.size(), 1);
    QCOMPARE(window.notices.first().kind, Notice::Warning);
    QVERIFY(window.notices.first().text.contains("b.txt"));
    // The second one of a name gets a number.
    for (const char *name : {"out/a.dck", "out/a-2.dck"})
        QCOMPARE(itemsIn(folder.filePath(name)).size(), 100);
    QCOMPARE(QDir(folder.filePath("out")).entryList(QDir::Files).size(), 2);
}

void TestWriting::jobsAreShownAndCancelled()
{
    JobQueue queue;
    JobRows rows(&queue);
    std::vector<std::unique_ptr<BackgroundJob>> jobs;
    std::atomic<int> running{0};
    const auto work = [&running](JobControl &control) {
        ++running;
        while (!control.isCancelled)
            std::this_thread::yield();
        return Notice();
    };
    for (int i = 0; i < 6; ++i) {
        jobs.push_back(std::make_unique<BackgroundJob>(QStringLiteral("job %1").arg(i), work));
        queue.add(jobs.back().get());
    }
    QTRY_VERIFY(rows.isVisible());
    QTRY_COMPARE(int(running), JobQueue::mostAtOnce);
    QList<QToolButton *> buttons = rows.findChildren<QToolButton *>("cancel");
    QVERIFY(buttons.size() < 6);
    // One that waits, one that runs, and one whose owner goes.
    buttons.at(2)->click();
    buttons.at(0)->click();
    QTRY_COMPARE(int(running), 3);
    jobs[1].reset();
    QTRY_COMPARE(int(running), 4);
    for (const auto &job : jobs) {
        if (job && !job->isFinished())
            job->cancel();
    }
    QTRY_VERIFY(!rows.isVisible());
    QCOMPARE(int(running), 4);
}

QTEST_MAIN(TestWriting)
#include "tst_writing.moc"
