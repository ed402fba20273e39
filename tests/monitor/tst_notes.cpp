#include "datachunkhandler.h"
#include "marksmodel.h"
#include "notesdock.h"
#include "showntrace.h"
#include "temporarysettings.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QSignalSpy>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>

Q_DECLARE_METATYPE(Notice)

namespace {

enum Column { KindColumn, NumberColumn, TextColumn, TimeColumn, IdentifierColumn };

CAN::CanRxMessage message(quint32 second)
{
    CAN::CanRxMessage made;
    made.id = 0x120 + second % 8;
    made.length = 2;
    made.seconds = 1000 + qint32(second); // the list counts from the first one
    return made;
}

} // namespace

/// The dock of notes, over a store that records and over files.
class TestNotes : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void marksAreListedWhereverTheyLie();
    void searchingAndSorting();
    void choosingByMouseAndKeyboard();
    void editingInPlace();
    void addingAtTheCurrentMessage();
    void removing();
    void failuresAreTold();
    void nothingIsReadOutOfSight();
    void anotherTraceIsAnotherList();
    void whatIsWrittenAtTheEndIsWritten();
    void manyOthersAreOneChange();

private:
    QTableView *view() const { return dock->findChild<QTableView *>(QStringLiteral("marks")); }
    QLineEdit *search() const
    {
        return dock->findChild<QLineEdit *>(QStringLiteral("searchMarks"));
    }
    QAction *action(const char *name) const
    {
        return dock->findChild<QAction *>(QLatin1String(name));
    }
    QString cell(int row, Column column) const
    {
        return view()->model()->index(row, column).data().toString();
    }
    QStringList texts() const
    {
        QStringList all;
        for (int row = 0; row < view()->model()->rowCount(); ++row)
            all << cell(row, NumberColumn) + QLatin1Char(' ') + cell(row, TextColumn);
        return all;
    }
    QWidget *editor() const { return view()->findChild<QLineEdit *>(); }
    void writeAndEnter(const QString &text) const
    {
        QTRY_VERIFY(editor() && editor()->hasFocus());
        QTest::keySequence(editor(), QKeySequence::SelectAll);
        QTest::keyClicks(editor(), text);
        QTest::keyClick(editor(), Qt::Key_Return);
    }
    void selectRow(int row) const
    {
        view()->setFocus();
        view()->setCurrentIndex(view()->model()->index(row, NumberColumn));
    }

    const TemporarySettings settings;
    std::unique_ptr<DatachunkHandler> store;
    BookmarkHandler bookmarks;
    std::unique_ptr<ShownTrace> trace;
    std::unique_ptr<QMainWindow> window;
    NotesDock *dock = nullptr;
};

void TestNotes::init()
{
    store = std::make_unique<DatachunkHandler>(6000);
    store->setBookmarkhandler(&bookmarks);
    for (quint32 i = 0; i < 40; ++i)
        store->appendCanMessage(message(i));
    store->setMessageNote(3, QStringLiteral("door opens"));
    bookmarks.addBookmark(5, QStringLiteral("start"));
    store->rotate();
    QVERIFY(store->waitForSaves());
    for (quint32 i = 40; i < 60; ++i)
        store->appendCanMessage(message(i));
    store->setMessageNote(50, QStringLiteral("Door closes"));
    trace = std::make_unique<ShownTrace>(store->timeline(), QStringLiteral("Recording"));
    window = std::make_unique<QMainWindow>();
    dock = new NotesDock(window.get());
    window->addDockWidget(Qt::LeftDockWidgetArea, dock);
    dock->setTrace(trace.get());
    window->resize(700, 400);
    window->show();
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    QTRY_COMPARE(view()->model()->rowCount(), 3);
}

void TestNotes::cleanup()
{
    window.reset();
    trace.reset();
    store.reset();
    bookmarks.clearBookmarks();
}

void TestNotes::marksAreListedWhereverTheyLie()
{
    QCOMPARE(texts(), QStringList({"3 door opens", "5 start", "50 Door closes"}));
    QCOMPARE(cell(1, TimeColumn), QStringLiteral("5.000000"));
    QCOMPARE(cell(1, IdentifierColumn), QStringLiteral("125"));
    QCOMPARE(view()->model()->index(1, KindColumn).data(Qt::ToolTipRole).toString(),
             QStringLiteral("Bookmark"));
    // What comes while it is shown, and where it goes to.
    store->setMessageNote(55, QStringLiteral("later"));
    QTRY_COMPARE(texts().last(), QStringLiteral("55 later"));
    store->rotate();
    QVERIFY(store->waitForSaves());
    store->appendCanMessage(message(60));
    store->setMessageNote(60, QStringLiteral("live"));
    QTRY_COMPARE(texts().last(), QStringLiteral("60 live"));
    QCOMPARE(view()->model()->rowCount(), 5);
    store->clearAllMessages();
    QTRY_COMPARE(view()->model()->rowCount(), 0);
}

void TestNotes::searchingAndSorting()
{
    QTest::keyClicks(search(), QStringLiteral("door"));
    QCOMPARE(texts(), QStringList({"3 door opens", "50 Door closes"}));
    QVERIFY(dock->findChild<QLabel *>(QStringLiteral("marksHint"))
                ->text()
                .startsWith(QLatin1String("2 of 3")));
    QTest::keyClicks(search(), QStringLiteral(" c"));
    QCOMPARE(texts(), QStringList({"50 Door closes"}));
    QTest::keyClick(search(), Qt::Key_Escape);
    QCOMPARE(view()->model()->rowCount(), 3);
    view()->sortByColumn(TextColumn, Qt::DescendingOrder);
    QCOMPARE(texts(), QStringList({"5 start", "3 door opens", "50 Door closes"}));
    view()->sortByColumn(NumberColumn, Qt::DescendingOrder);
    QCOMPARE(texts().first(), QStringLiteral("50 Door closes"));
}

void TestNotes::choosingByMouseAndKeyboard()
{
    QSignalSpy chosen(dock, &NotesDock::positionChosen);
    const QRect row = view()->visualRect(view()->model()->index(1, TextColumn));
    QTest::mouseClick(view()->viewport(), Qt::LeftButton, {}, row.center());
    QCOMPARE(chosen.takeLast().first().toULongLong(), 5U);
    QTest::keyClick(view(), Qt::Key_Down);
    QTest::keyClick(view(), Qt::Key_Return);
    QCOMPARE(chosen.takeLast().first().toULongLong(), 50U);
    search()->setFocus();
    QTest::keyClicks(search(), QStringLiteral("opens"));
    QTest::keyClick(search(), Qt::Key_Return);
    QCOMPARE(chosen.takeLast().first().toULongLong(), 3U);
}

void TestNotes::editingInPlace()
{
    selectRow(1);
    QTest::keyClick(view(), Qt::Key_F2);
    writeAndEnter(QStringLiteral("begin"));
    QTRY_COMPARE(cell(1, TextColumn), QStringLiteral("begin"));
    QTRY_COMPARE(trace->timeline().row(5).bookmark.text(), QStringLiteral("begin"));
    QVERIFY(trace->timeline().row(5).note.isEmpty());
    selectRow(0);
    QTest::keyClick(view(), Qt::Key_F2);
    QTRY_VERIFY(editor() && editor()->hasFocus());
    QTest::keyClick(editor(), Qt::Key_Escape);
    QCOMPARE(cell(0, TextColumn), QStringLiteral("door opens"));
    // Nothing is left of it when nothing is written.
    QTest::keyClick(view(), Qt::Key_F2);
    QTRY_VERIFY(editor() && editor()->hasFocus());
    QTest::keyClick(editor(), Qt::Key_Delete);
    QTest::keyClick(editor(), Qt::Key_Return);
    QTRY_COMPARE(view()->model()->rowCount(), 2);
    QTRY_COMPARE(trace->timeline().row(3).note, QString());
}

void TestNotes::addingAtTheCurrentMessage()
{
    QVERIFY(!action("addNote")->isEnabled());
    dock->setCurrentPosition(10);
    search()->setText(QStringLiteral("door"));
    action("addNote")->trigger();
    writeAndEnter(QStringLiteral("added"));
    QTRY_COMPARE(cell(2, TimeColumn), QStringLiteral("10.000000"));
    QCOMPARE(texts().at(2), QStringLiteral("10 added"));
    action("addBookmark")->trigger();
    writeAndEnter(QStringLiteral("marked"));
    QTRY_COMPARE(trace->timeline().row(10).bookmark.text(), QStringLiteral("marked"));
    QCOMPARE(trace->timeline().row(10).note, QStringLiteral("added"));
    // Where there is one, that is edited; given up, nothing is added.
    action("addNote")->trigger();
    writeAndEnter(QStringLiteral("added again"));
    QTRY_COMPARE(trace->timeline().row(10).note, QStringLiteral("added again"));
    dock->setCurrentPosition(11);
    action("addNote")->trigger();
    QTRY_VERIFY(editor() && editor()->hasFocus());
    QTest::keyClick(editor(), Qt::Key_Escape);
    QTRY_COMPARE(view()->model()->rowCount(), 5);
}

void TestNotes::removing()
{
    selectRow(0);
    QTest::keyClick(view(), Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(view(), Qt::Key_Delete);
    QCOMPARE(texts(), QStringList({"50 Door closes"}));
    QTRY_COMPARE(trace->timeline().notePositions(), QVector<quint64>{50});
    QVERIFY(trace->timeline().bookmarkPositions().isEmpty());
}

void TestNotes::failuresAreTold()
{
    qRegisterMetaType<Notice>();
    QSignalSpy told(trace.get(), &ShownTrace::notice);
    QVERIFY(QFile::remove(store->chunkFolderPath() + QStringLiteral("/tmpData0.dck")));
    trace->setNote(3, QStringLiteral("too late"));
    QTRY_COMPARE(told.count(), 1);
    const auto notice = told.first().first().value<Notice>();
    QCOMPARE(int(notice.kind), int(Notice::Failure));
    QVERIFY(notice.text.contains(QLatin1String("message 3")));
    QVERIFY(!notice.advice.isEmpty());
    QTRY_COMPARE(texts(), QStringList({"50 Door closes"}));
}

void TestNotes::nothingIsReadOutOfSight()
{
    dock->hide();
    store->setMessageNote(51, QStringLiteral("unseen"));
    emit trace->marksChanged();
    QTest::qWait(0);
    QCOMPARE(view()->model()->rowCount(), 3);
    dock->show();
    QTRY_COMPARE(view()->model()->rowCount(), 4);
}

void TestNotes::anotherTraceIsAnotherList()
{
    QTemporaryDir folder;
    const QString archive = folder.filePath(QStringLiteral("packed.zip"));
    trace->setNote(4, QStringLiteral("packed as well"));
    QTRY_COMPARE(view()->model()->rowCount(), 4);
    store->rotate();
    QVERIFY(store->waitForSaves());
    store->setZipFileName(archive);
    store->saveDatachunksToZip();
    ShownTrace other(TraceTimeline({archive}), QStringLiteral("Archive"));
    qRegisterMetaType<Notice>();
    QSignalSpy told(&other, &ShownTrace::notice);
    dock->setTrace(&other);
    QCOMPARE(view()->model()->rowCount(), 0);
    QTRY_COMPARE(texts(),
                 QStringList({"3 door opens", "4 packed as well", "5 start", "50 Door closes"}));
    // What cannot be written shows as it is.
    selectRow(0);
    QTest::keyClick(view(), Qt::Key_Delete);
    QTRY_COMPARE(told.count(), 1);
    QTRY_COMPARE(texts().first(), QStringLiteral("3 door opens"));
    dock->setTrace(nullptr);
    QCOMPARE(view()->model()->rowCount(), 0);
    dock->setTrace(trace.get());
    QTRY_COMPARE(view()->model()->rowCount(), 4);
}

void TestNotes::whatIsWrittenAtTheEndIsWritten()
{
    for (quint64 position = 0; position < 30; ++position)
        trace->setNote(position, QStringLiteral("n%1").arg(position));
    dock->setTrace(nullptr);
    trace.reset();
    QCOMPARE(store->timeline().notePositions().size(), 31);
}

void TestNotes::manyOthersAreOneChange()
{
    QVector<Mark> marks;
    for (quint64 position = 0; position < 1000; position += 2)
        marks.append({position, Mark::Note, QStringLiteral("n"), 0, {}, {}, {}});
    MarksModel model;
    model.setMarks(marks);
    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
    for (Mark &mark : marks)
        ++mark.position;
    model.setMarks(marks);
    QCOMPARE(model.marks(), marks);
    QCOMPARE(reset.count(), 1);
    marks.removeLast();
    marks.append({2000, Mark::Bookmark, QStringLiteral("b"), 0, {}, {}, {}});
    model.setMarks(marks);
    QCOMPARE(model.marks(), marks);
    QCOMPARE(reset.count(), 1);
    QCOMPARE(inserted.count(), 1);
}

QTEST_MAIN(TestNotes)
#include "tst_notes.moc"
