#include "buschoice.h"
#include "buslines.h"
#include "chunkcopy.h"
#include "deskwindow.h"
#include "recordingsettings.h"
#include "temporarysettings.h"

#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QToolButton>

class TestKeeping : public QObject
{
    Q_OBJECT
private:
    const TemporarySettings settings;
    QTemporaryDir place;

    static quint64 record(const DeskWindow &window, quint64 messages);
    static quint64 countOf(const QStringList &paths);
    static bool saveInto(DeskWindow &window, const QString &name, bool isArchive);
    static QString makeLeftChunks(quint64 &messages);

private slots:
    void init();
    void savesWhileLinesRun_data();
    void savesWhileLinesRun();
    void keepsWhatCannotBeSaved();
    void cancelsSaving();
    void closesWhenSaved();
    void begins_data();
    void begins();
    void closes_data();
    void closes();
    void tellsFolderGone();
    void tellsThatThereIsNoFolder();
    void keepsBudget();
    void offersLeftRecordings_data();
    void offersLeftRecordings();
    void tellsOtherMonitor();
};

void TestKeeping::init()
{
    QSettings().clear();
    RecordingSettings wanted;
    wanted.folder = place.path();
    wanted.memory = RecordingSettings::leastMemory;
    wanted.save();
}

// Returns how many messages there are then.
quint64 TestKeeping::record(const DeskWindow &window, quint64 messages)
{
    BusChoice choice;
    choice.generator.rate = 100000;
    const BusLine *line = window.desk->lines()->add(choice);
    constexpr int patience = 60000; // milliseconds, where others have the machine
    const bool came = QTest::qWaitFor([&] { return line->taken() >= messages; }, patience);
    window.desk->lines()->stopAll();
    return came ? window.desk->recording()->counts().taken : 0;
}

quint64 TestKeeping::countOf(const QStringList &paths)
{
    TraceTimeline timeline(paths);
    timeline.waitForAll();
    return timeline.problems().isEmpty() ? timeline.count() : 0;
}

bool TestKeeping::saveInto(DeskWindow &window, const QString &name, bool isArchive)
{
    window.action("saveRecording")->trigger();
    QDialog *dialog = window.dialog("saveDialog");
    if (!dialog)
        return false;
    dialog->findChild<QLineEdit *>(QStringLiteral("name"))->setText(name);
    dialog->findChild<QComboBox *>(QStringLiteral("kind"))->setCurrentIndex(isArchive ? 1 : 0);
    if (!QTest::qWaitForWindowExposed(dialog))
        return false;
    QTest::keyClick(dialog, Qt::Key_Return);
    return true;
}

void TestKeeping::savesWhileLinesRun_data()
{
    QTest::addColumn<bool>("isArchive");
    QTest::newRow("folder") << false;
    QTest::newRow("archive") << true;
}

void TestKeeping::savesWhileLinesRun()
{
    QFETCH(const bool, isArchive);
    DeskWindow window;
    BusChoice choice;
    choice.generator.rate = 50000;
    const BusLine *line = window.desk->lines()->add(choice);
    QTRY_VERIFY(line->taken() > 22000);
    QSignalSpy changes(window.desk, &BusDesk::recordingChanged);
    const QString name = isArchive ? QStringLiteral("packed") : QStringLiteral("chunks");
    QVERIFY(saveInto(window, name, isArchive));
    QTRY_COMPARE(window.saved.size(), 1);
    QCOMPARE(changes.size(), 1);
    window.desk->lines()->stopAll();
    const RecordingCounts counts = window.desk->recording()->counts();
    QVERIFY(counts.taken > 0);
    QCOMPARE(countOf(window.saved) + counts.stored, line->taken());
    QCOMPARE(counts.dropped, quint64(0));
}

void TestKeeping::keepsWhatCannotBeSaved()
{
    DeskWindow window;
    const quint64 messages = record(window, 12000);
    const QString notAFolder = place.filePath(QStringLiteral("file"));
    QFile file(notAFolder);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(saveInto(window, notAFolder + QStringLiteral("/a"), false));
    QTRY_VERIFY(window.hasTold(QStringLiteral("was not saved")));
    // It has not become the one that runs, but neither is it forgotten.
    QCOMPARE(window.desk->recording()->counts().taken, quint64(0));
    QVERIFY(!window.desk->mayClose());
    auto *box = window.dialog<QMessageBox>("keepQuestion");
    QVERIFY(box->informativeText().contains(QLocale().toString(messages)));
    box->reject();
    QVERIFY(saveInto(window, QStringLiteral("second try"), false));
    QTRY_COMPARE(window.saved.size(), 1);
    QCOMPARE(countOf(window.saved), messages);
    QVERIFY(window.desk->mayClose());
}

void TestKeeping::cancelsSaving()
{
    DeskWindow window;
    const quint64 messages = record(window, 30000);
    QVERIFY(saveInto(window, QStringLiteral("cancelled"), true));
    auto *cancel = window.findChild<QToolButton *>(QStringLiteral("cancelSaving"));
    QTRY_VERIFY(cancel->isVisible());
    cancel->click();
    QTRY_VERIFY(window.hasTold(QStringLiteral("Saving was cancelled")));
    QVERIFY(!cancel->isVisible());
    QVERIFY(QDir(place.path())
                .entryList({QStringLiteral("*cancelled*")}, QDir::Files | QDir::Hidden)
                .isEmpty());
    QVERIFY(saveInto(window, QStringLiteral("then saved"), false));
    QTRY_COMPARE(window.saved.size(), 1);
    QCOMPARE(countOf(window.saved), messages);
}

void TestKeeping::closesWhenSaved()
{
    DeskWindow window;
    const quint64 messages = record(window, 12000);
    QVERIFY(saveInto(window, QStringLiteral("closing"), true));
    window.action("saveRecording")->trigger();
    QVERIFY(window.hasTold(QStringLiteral("still being saved")));
    QVERIFY(!window.close());
    QTRY_VERIFY(!window.isVisible());
    QCOMPARE(countOf({place.filePath(QStringLiteral("closing.zip"))}), messages);
}

void TestKeeping::begins_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<bool>("isNew");
    QTest::newRow("discard") << int(QMessageBox::Discard) << true;
    QTest::newRow("cancel") << int(QMessageBox::Cancel) << false;
}

void TestKeeping::begins()
{
    QFETCH(const int, answer);
    QFETCH(const bool, isNew);
    DeskWindow window;
    record(window, 6000);
    const QString folder = window.desk->recording()->store().chunkFolderPath();
    window.action("newRecording")->trigger();
    auto *box = window.dialog<QMessageBox>("keepQuestion");
    QVERIFY(box);
    box->button(QMessageBox::StandardButton(answer))->click();
    QTRY_COMPARE(window.desk->recording()->counts().taken == 0, isNew);
    QTRY_COMPARE(QDir(folder).exists(), !isNew);
}

void TestKeeping::closes_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<bool>("closes");
    QTest::addColumn<bool>("saves");
    QTest::newRow("save") << int(QMessageBox::Save) << true << true;
    QTest::newRow("discard") << int(QMessageBox::Discard) << true << false;
    QTest::newRow("cancel") << int(QMessageBox::Cancel) << false << false;
}

void TestKeeping::closes()
{
    QFETCH(const int, answer);
    QFETCH(const bool, closes);
    QFETCH(const bool, saves);
    DeskWindow window;
    BusChoice choice;
    window.desk->lines()->add(choice);
    QTRY_VERIFY(window.desk->recording()->isUnsaved());
    QVERIFY(!window.close());
    auto *box = window.dialog<QMessageBox>("keepQuestion");
    QVERIFY(box);
    box->button(QMessageBox::StandardButton(answer))->click();
    const QString path = place.filePath(QString::fromLatin1(QTest::currentDataTag()));
    if (saves)
        QVERIFY(saveInto(window, QFileInfo(path).fileName(), false));
    QTRY_COMPARE(window.isVisible(), !closes);
    QCOMPARE(QDir(path).exists(), saves);
    if (saves)
        QCOMPARE(countOf({path}), window.desk->lines()->at(0)->taken());
}

void TestKeeping::tellsFolderGone()
{
    DeskWindow window;
    const quint64 first = record(window, 11000);
    const QString folder = window.desk->recording()->store().chunkFolderPath();
    QVERIFY(window.desk->recording()->store().waitForSaves());
    QVERIFY(QDir(folder).removeRecursively());
    const quint64 all = record(window, 41000);
    QVERIFY(all > first);
    QTRY_VERIFY(window.hasTold(QStringLiteral("has removed the folder")));
    // What cannot be written is counted.
    QVERIFY(window.desk->recording()->store().waitForSaves());
    QTRY_VERIFY(window.hasTold(QStringLiteral("could not be written")));
    const RecordingCounts counts = window.desk->recording()->counts();
    QCOMPARE(counts.stored + counts.dropped, counts.taken);
    // Each chunk fails, and is not told of.
    QVERIFY(counts.dropped > 2 * quint64(RecordingSettings::leastMemory));
    QCOMPARE(window.allTexts().count(QStringLiteral("could not be written")), 1);
    const auto told = std::find_if(window.notices.begin(), window.notices.end(),
                                   [](const Notice &notice) { return bool(notice.action); });
    QVERIFY(told != window.notices.end());
    const Notice notice = *told;
    notice.action();
    QVERIFY(QDir(window.desk->recording()->store().chunkFolderPath()).exists());
    QCOMPARE(window.desk->recording()->counts().taken, quint64(0));
}

void TestKeeping::tellsThatThereIsNoFolder()
{
    const QByteArray before = qgetenv("XDG_DATA_HOME");
    qputenv("XDG_DATA_HOME", "/dev/null");
    const DeskWindow window;
    qputenv("XDG_DATA_HOME", before);
    QVERIFY(window.notices.empty());
    const quint64 messages = record(window, 40000);
    QVERIFY(window.hasTold(QStringLiteral("has no folder")));
    const RecordingCounts counts = window.desk->recording()->counts();
    QCOMPARE(counts.taken, messages);
    QVERIFY(counts.stored <= 2 * quint64(RecordingSettings::leastMemory));
}

void TestKeeping::keepsBudget()
{
    DeskWindow window;
    window.action("recordingSettings")->trigger();
    QDialog *dialog = window.dialog("recordingSettings");
    dialog->findChild<QSpinBox *>(QStringLiteral("budget"))->setValue(1);
    QVERIFY(QTest::qWaitForWindowExposed(dialog));
    QTest::keyClick(dialog, Qt::Key_Return);
    QTRY_COMPARE(window.desk->recording()->budget(), RecordingSettings::leastBudget);
    QCOMPARE(RecordingSettings::saved().budget, RecordingSettings::leastBudget);
    window.desk->recording()->setBudget(1);
    const quint64 messages = record(window, 100000);
    QTRY_VERIFY(window.hasTold(QStringLiteral("its budget of 1 MiB")));
    QCOMPARE(window.desk->recording()->counts().stored, messages);
    QVERIFY(window.desk->recording()->counts().chunksRemoved > 0);
    QTRY_VERIFY(window.countsText().contains(QLocale().toString(messages)));
}

// As a store leaves them whose program is killed.
QString TestKeeping::makeLeftChunks(quint64 &messages)
{
    DatachunkHandler store(RecordingSettings::leastMemory);
    for (messages = 0; messages < 12000; ++messages)
        store.addnewtestmessage();
    store.rotate();
    store.waitForSaves();
    const QString left = QFileInfo(store.chunkFolderPath()).path() + QStringLiteral("/4711");
    return copyChunks(store.chunkFolderPath(), left, [](int) { return true; }).isEmpty()
        ? left
        : QString();
}

void TestKeeping::offersLeftRecordings_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<bool>("isLeft");
    QTest::addColumn<bool>("isOpened");
    QTest::newRow("later") << int(QMessageBox::Cancel) << true << false;
    QTest::newRow("recover") << int(QMessageBox::Save) << false << true;
    QTest::newRow("delete") << int(QMessageBox::Discard) << false << false;
}

void TestKeeping::offersLeftRecordings()
{
    QFETCH(const int, answer);
    QFETCH(const bool, isLeft);
    QFETCH(const bool, isOpened);
    quint64 messages = 0;
    const QString left = makeLeftChunks(messages);
    QVERIFY(!left.isEmpty());
    {
        DeskWindow window;
        QTRY_VERIFY(window.hasTold(QStringLiteral("was not closed")));
        const Notice notice = window.notices.back();
        notice.action();
        auto *box = window.dialog<QMessageBox>("leftQuestion");
        box->button(QMessageBox::StandardButton(answer))->click();
        QTRY_COMPARE(QDir(left).exists(), isLeft);
        QTRY_COMPARE(window.saved.isEmpty(), !isOpened);
        if (isOpened)
            QCOMPARE(countOf(window.saved), messages);
    }
    QDir(left).removeRecursively();
}

void TestKeeping::tellsOtherMonitor()
{
    const DeskWindow first;
    QTest::qWait(0);
    QVERIFY(!first.hasTold(QStringLiteral("Another monitor")));
    const DeskWindow second;
    QTRY_VERIFY(second.hasTold(QStringLiteral("Another monitor")));
    QVERIFY(first.desk->recording()->store().chunkFolderPath()
            != second.desk->recording()->store().chunkFolderPath());
}

QTEST_MAIN(TestKeeping)
#include "tst_keeping.moc"
