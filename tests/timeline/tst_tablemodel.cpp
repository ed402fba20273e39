#include "scrollsteps.h"
#include "storefixture.h"
#include "tablefixture.h"

/// The table tells views of everything that changes, and shows what is there.
class TestTableModel : public QObject
{
    Q_OBJECT
private slots:
    void scrollBarsReachEveryEnd_data();
    void scrollBarsReachEveryEnd();
    void moreRowsThanAViewCanCount();
    void followsAStore();
    void keepsItsRowsWhileAStoreRotates();
    void aStoreIsClearedAndDeleted();
    void filesThatGoAreSaidToBeGone();
    void aFilterGrowsInTheMiddle();
    void aFilterThatDoesNotFitKeepsTheCurrentRow();
    void filtersOfAStoreGoOn();
    void findsWithinTheFilter();
};

void TestTableModel::scrollBarsReachEveryEnd_data()
{
    QTest::addColumn<quint64>("total");
    QTest::newRow("nothing") << Q_UINT64_C(0);
    QTest::newRow("one row") << Q_UINT64_C(1);
    QTest::newRow("a row for each step") << Q_UINT64_C(1000001);
    QTest::newRow("one row more") << Q_UINT64_C(1000002);
    QTest::newRow("more than 32 bits") << Q_UINT64_C(100000000003);
    QTest::newRow("more than products fit") << ~Q_UINT64_C(0);
}

void TestTableModel::scrollBarsReachEveryEnd()
{
    QFETCH(quint64, total);
    const ScrollSteps steps(total);
    const quint64 last = total == 0 ? 0 : total - 1;
    QCOMPARE(quint64(steps.lastStep()), std::min<quint64>(last, 1000000));
    QCOMPARE(steps.rowAt(-1), Q_UINT64_C(0));
    QCOMPARE(steps.rowAt(INT_MAX), last);
    for (int step = 0; step <= steps.lastStep(); step += 1 + steps.lastStep() / 1000) {
        const quint64 row = steps.rowAt(step);
        QCOMPARE(steps.stepOf(row), step);
        QCOMPARE(steps.stepOf(row == 0 ? 0 : row - 1), std::max(0, step - 1));
    }
    QCOMPARE(steps.stepOf(last), steps.lastStep());
}

void TestTableModel::moreRowsThanAViewCanCount()
{
    constexpr quint64 each = 4000000000;
    const auto source = std::make_shared<HandSource>();
    source->segments = {std::make_shared<HugeSegment>(quint32(each)),
                        std::make_shared<HugeSegment>(quint32(each))};
    const auto model = quietModel(TraceTimeline(source));
    Mirror mirror(*model);
    QCOMPARE(model->total(), 2 * each);
    QCOMPARE(model->rowCount(), 100000);
    QCOMPARE(model->showRow(each + 5).data(Model::PositionRole).toULongLong(), each + 5);
    QCOMPARE(text(*model, model->rowOf(each + 5), Model::NumberColumn), QString("5"));
    QCOMPARE(model->rowOf(each - 60000), -1);
    QVERIFY(mirror.isRight());
    mirror.resets = 0;
    model->showRow(each + 30000);
    QCOMPARE(mirror.resets, 0);
    model->showRow(each + 45000);
    QCOMPARE(mirror.resets, 1);
    QCOMPARE(model->showRow(~Q_UINT64_C(0)).row(), 99999);
    QCOMPARE(model->headerData(99999, Qt::Vertical).toULongLong(), 2 * each);
    QCOMPARE(model->rowAtScroll(model->scrollRange()), 2 * each - 1);
    QCOMPARE(model->showRow(0).row(), 0);
    QVERIFY(mirror.isRight());

    // What comes behind the window is counted, what belongs into it is not shown beyond its limit.
    mirror.resets = 0;
    source->segments.push_back(std::make_shared<HugeSegment>(3));
    model->refresh();
    QCOMPARE(model->total(), 2 * each + 3);
    QCOMPARE(mirror.resets, 0);
    QVERIFY(mirror.isRight());
}

void TestTableModel::followsAStore()
{
    DatachunkHandler store(45000);
    Model model(store.timeline());
    const Mirror mirror(model);
    model.setFollowing(true);
    QSignalSpy totals(&model, &Model::totalChanged);
    quint64 expected = 0;
    for (int i = 0; i < 6; ++i) {
        append(store, 25001);
        expected += 25001;
        QTRY_COMPARE(model.total(), expected);
        QCOMPARE(model.origin(), expected > 100000 ? expected - 100000 : 0);
        QVERIFY(mirror.isRight());
    }
    QCOMPARE(totals.last().at(0).toULongLong(), expected);

    // Who looks back is left alone.
    QSignalSpy follows(&model, &Model::followingChanged);
    const QModelIndex row = model.jumpToNumber(20);
    QCOMPARE(row.data(Model::PositionRole).toULongLong(), Q_UINT64_C(20));
    QCOMPARE(follows.count(), 1);
    const int resets = mirror.resets;
    append(store, 40000);
    QTRY_COMPARE(model.total(), expected + 40000);
    QCOMPARE(mirror.resets, resets);
    QCOMPARE(model.origin(), Q_UINT64_C(0));
    QVERIFY(mirror.isRight());
}

void TestTableModel::keepsItsRowsWhileAStoreRotates()
{
    DatachunkHandler store(6000);
    const auto model = quietModel(store.timeline());
    const Mirror mirror(*model);
    append(store, 10);
    model->refresh();
    const int resets = mirror.resets;
    const QPersistentModelIndex kept = model->index(3, 0);
    for (int i = 1; i <= 30; ++i) {
        append(store, 333);
        store.setMessageNote(quint32(9 + i * 333), "note");
        model->refresh();
        QCOMPARE(model->total(), quint64(10 + i * 333));
        QVERIFY(mirror.isRight());
    }
    const int last = model->rowCount() - 1;
    store.setMessageNote(quint32(last), "later");
    model->refresh();
    QVERIFY(mirror.isRight());
    QCOMPARE(text(*model, last, Model::NoteColumn), QString("later"));
    store.setMessageNote(quint32(last), "note");
    model->refresh();
    QCOMPARE(mirror.resets, resets);
    QCOMPARE(kept.data(Model::PositionRole).toULongLong(), Q_UINT64_C(3));
    for (int row = 0; row < model->rowCount(); ++row) {
        QCOMPARE(text(*model, row, Model::NumberColumn), QString::number(row));
        QCOMPARE(text(*model, row, Model::NoteColumn), row > 9 && row % 333 == 9 ? "note" : "");
    }
}

void TestTableModel::aStoreIsClearedAndDeleted()
{
    auto store = std::make_unique<DatachunkHandler>(20000);
    Model model(store->timeline());
    const Mirror mirror(model);
    append(*store, 3000, 0x300);
    model.refresh();
    store->clearAllMessages();
    // More than there were, so that nothing but the content tells that they are others.
    append(*store, 3500);
    model.setFilter(expression("id==101"));
    model.refresh();
    QCOMPARE(model.total(), Q_UINT64_C(350));
    QVERIFY(mirror.isRight());
    model.setFilter(std::nullopt);
    QCOMPARE(model.total(), Q_UINT64_C(3500));
    auto *timer = model.findChild<QTimer *>();
    QVERIFY(timer->isActive());

    store.reset();
    QTRY_VERIFY(!timer->isActive());
    model.setFilter(expression("b0==11"));
    QTRY_VERIFY((model.refresh(), !timer->isActive()));
    QVERIFY(mirror.isRight());
    model.setFilter(std::nullopt);
    QCOMPARE(model.rowCount(), 3500);
    QCOMPARE(text(model, 3499, Model::DataColumn), QString("11"));
}

void TestTableModel::filesThatGoAreSaidToBeGone()
{
    DatachunkHandler store(6000);
    append(store, 3500);
    TraceTimeline timeline({store.chunkFolderPath()});
    QTRY_COMPARE((timeline.refresh(), timeline.count()), Q_UINT64_C(3000));
    QVERIFY(QFile::remove(store.chunkFolderPath() + "/tmpData1.dck"));
    const auto model = quietModel(timeline);
    const Mirror mirror(*model);
    QCOMPARE(text(*model, 999, Model::NumberColumn), QString("999"));
    const QModelIndex gone = model->index(1000, Model::DataColumn);
    QCOMPARE(gone.data().toString(), QString("no longer there"));
    QCOMPARE(gone.data(Model::StateRole).toInt(), int(TraceRow::Gone));
    QCOMPARE(gone.data(Model::PositionRole).toULongLong(), Q_UINT64_C(1000));
    QVERIFY(!gone.data(Model::MessageRole).isValid());
    model->setFilter(expression("id==105"));
    QCOMPARE(model->total(), Q_UINT64_C(300));
    QCOMPARE(text(*model, 100, Model::DataColumn), QString("no longer there"));
    QCOMPARE(text(*model, 200, Model::NumberColumn), QString("2005"));
    model->refresh();
    QVERIFY(mirror.isRight());
}

void TestTableModel::aFilterGrowsInTheMiddle()
{
    if (QThread::idealThreadCount() < 2)
        QSKIP("One thread looks from front to back.");
    const auto source = std::make_shared<GatedSource>(4, 5000);
    const auto model = quietModel(TraceTimeline(source));
    const GatedSource::OpenAll atEnd{*source};
    Mirror mirror(*model);
    model->setFilter(expression("b0==22"));
    QSignalSpy complete(model.get(), &Model::filterComplete);
    QSignalSpy progress(model.get(), &Model::filterProgress);
    mirror.resets = 0;
    quint64 expected = 0;
    // Two are looked through at a time, so that the gates in front must not stay closed.
    for (const std::size_t open : {1, 0, 3, 2}) {
        source->open(open);
        expected += 2500;
        QTRY_COMPARE((model->refresh(), model->total()), expected);
        const auto all = positions(*model);
        QVERIFY(std::is_sorted(all.begin(), all.end()));
        QVERIFY(mirror.isRight());
    }
    QCOMPARE(mirror.resets, 0);
    QCOMPARE(complete.count(), 1);
    QCOMPARE(progress.last(), QVariantList({Q_UINT64_C(20000), Q_UINT64_C(20000)}));
    QCOMPARE(positions(*model).at(5000), Q_UINT64_C(10000));
}

void TestTableModel::aFilterThatDoesNotFitKeepsTheCurrentRow()
{
    if (QThread::idealThreadCount() < 2)
        QSKIP("One thread looks from front to back.");
    const auto source = std::make_shared<GatedSource>(3, 60000);
    const auto model = quietModel(TraceTimeline(source));
    const GatedSource::OpenAll atEnd{*source};
    Mirror mirror(*model);
    constexpr quint64 current = 170000;
    model->setCurrentPosition(current);
    model->setFilter(expression("b0<=ff"));
    source->open(2);
    QTRY_COMPARE((model->refresh(), model->total()), Q_UINT64_C(60000));
    QCOMPARE(model->rowOf(current), 50000);
    source->open(1);
    QTRY_COMPARE((model->refresh(), model->total()), Q_UINT64_C(120000));
    const int row = model->rowOf(current);
    QVERIFY(row >= 0);
    QCOMPARE(model->rowCount(), 100000);
    QVERIFY(mirror.isRight());

    // What comes in front of the window leaves it where it is.
    mirror.resets = 0;
    source->open(0);
    QTRY_COMPARE((model->refresh(), model->total()), Q_UINT64_C(180000));
    QCOMPARE(model->rowOf(current), row);
    QCOMPARE(mirror.resets, 0);
    QCOMPARE(model->origin() + quint64(row), current);
    QVERIFY(mirror.isRight());
}

void TestTableModel::filtersOfAStoreGoOn()
{
    DatachunkHandler store(6000);
    const auto model = quietModel(store.timeline());
    const Mirror mirror(*model);
    model->setFilter(expression("id==103"));
    const int resets = mirror.resets;
    for (quint64 i = 1; i <= 30; ++i) {
        append(store, 400);
        // Another copy goes on, and the table must not show it before it has told.
        TraceTimeline(store.timeline()).refresh();
        QVERIFY(mirror.isRight());
        model->refresh();
        QCOMPARE(model->total(), i * 40);
        QVERIFY(mirror.isRight());
    }
    QCOMPARE(mirror.resets, resets);
    const auto all = positions(*model);
    for (int row = 0; row < all.size(); ++row)
        QCOMPARE(all[row], quint64(row * 10 + 3));
    QCOMPARE(model->rowOf(1234), -1);
    QCOMPARE(model->rowOf(1233), 123);
    QCOMPARE(model->showPosition(1234).row(), 124);
}

void TestTableModel::findsWithinTheFilter()
{
    const auto source = std::make_shared<HandSource>();
    source->segments = {segmentOf<ListSegment>(numbered(0, 150000), {{149999, "here"}})};
    const auto model = quietModel(TraceTimeline(source));
    const Mirror mirror(*model);
    QSignalSpy found(model.get(), &Model::found);
    QSignalSpy notFound(model.get(), &Model::notFound);
    model->findNext(expression("note"));
    QVERIFY(found.wait());
    QCOMPARE(model->currentPosition().value_or(0), Q_UINT64_C(149999));
    QCOMPARE(text(*model, model->rowOf(149999), Model::NoteColumn), QString("here"));
    model->findNext(expression("b0==22"));
    QVERIFY(notFound.wait());
    // A search that another one supersedes is not heard of.
    model->findNext(expression("b0==22"));
    model->findPrevious(expression("b0==22"));
    QVERIFY(found.wait());
    QCOMPARE(notFound.count(), 1);
    QCOMPARE(model->currentPosition().value_or(0), Q_UINT64_C(149998));

    model->setFilter(expression("number ..1000"));
    QTRY_COMPARE((model->refresh(), model->total()), Q_UINT64_C(1001));
    model->findPrevious(expression("b0==11"));
    QVERIFY(found.wait());
    QCOMPARE(model->currentPosition().value_or(0), Q_UINT64_C(999));
    QCOMPARE(model->rowOf(999), 999);
    model->findNext(expression(""));
    QVERIFY(found.wait());
    QCOMPARE(model->currentPosition().value_or(0), Q_UINT64_C(1000));
    QVERIFY(mirror.isRight());
}

QTEST_GUILESS_MAIN(TestTableModel)

#include "tst_tablemodel.moc"
