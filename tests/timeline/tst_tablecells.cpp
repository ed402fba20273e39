#include "tablefixture.h"

/// What stands in the cells of the table.
class TestTableCells : public QObject
{
    Q_OBJECT
private slots:
    void showsWhatAnEngineerExpects_data();
    void showsWhatAnEngineerExpects();
    void countsTimesFromWhereItIsAsked();
    void foreignIndexesShowNothing();
};

void TestTableCells::showsWhatAnEngineerExpects_data()
{
    QTest::addColumn<CanRxMessage>("message");
    QTest::addColumn<QString>("expected");

    CanRxMessage message = makeMessage(0x7A, "00FF1e", 0x203);
    message.seconds = 12;
    message.microseconds = 345678;
    QTest::newRow("a standard frame") << message << "12.345678|3|Rx|07A||3|00 FF 1E";
    message.extended = true;
    message.transmitted = true;
    QTest::newRow("an extended frame that was sent")
        << message << "12.345678|3|Tx|0000007A|EXT|3|00 FF 1E";
    message.remote = true;
    QTest::newRow("a remote frame has no data") << message << "12.345678|3|Tx|0000007A|EXT RTR|3|";
    CanRxMessage fd = makeMessage(0x123, QByteArray(128, 'a'));
    fd.fdFrame = fd.flagC = fd.flagB = true;
    fd.microseconds = -500000;
    QTest::newRow("a CAN FD frame in front of the time's start")
        << fd
        << "-0.500000|0|Rx|123|FD BRS ESI|64|"
            + QStringList(QVector<QString>(64, "AA").toList()).join(' ');
    CanRxMessage lying;
    lying.length = 127;
    QTest::newRow("a length that cannot be")
        << lying
        << "0.000000|0|Rx|000||64|" + QStringList(QVector<QString>(64, "00").toList()).join(' ');
    CanRxMessage error;
    error.id = CAN::errorFrameId;
    QTest::newRow("an error frame") << error << "0.000000|0|Rx||ERR|0|";
}

void TestTableCells::showsWhatAnEngineerExpects()
{
    QFETCH(CanRxMessage, message);
    QFETCH(QString, expected);
    const auto source = std::make_shared<HandSource>();
    source->segments = {segmentOf<ListSegment>({message})};
    const auto model = quietModel(TraceTimeline(source));
    QStringList texts;
    for (int column = Model::TimeColumn; column <= Model::DataColumn; ++column)
        texts += text(*model, 0, Model::Column(column));
    QCOMPARE(texts.join('|'), expected);
}

void TestTableCells::countsTimesFromWhereItIsAsked()
{
    const auto source = std::make_shared<HandSource>();
    auto messages = numbered(7, 3);
    messages[2].seconds = 5;
    source->segments = {segmentOf<ListSegment>(messages)};
    const auto model = quietModel(TraceTimeline(source));
    const Mirror mirror(*model);
    const auto times = [&] {
        QStringList all;
        for (int row = 0; row < model->rowCount(); ++row)
            all += text(*model, row, Model::TimeColumn);
        return all.join(' ');
    };
    QCOMPARE(times(), QString("7.000000 8.000000 5.000000"));
    model->setTimeForm(Model::SinceStart);
    QCOMPARE(times(), QString("2.000000 3.000000 0.000000"));
    model->setTimeForm(Model::SinceRowBefore);
    QCOMPARE(times(), QString(" 1.000000 -3.000000"));
    model->setFilter(expression("b0==22"));
    QTRY_COMPARE((model->refresh(), times()), QString(" -2.000000"));
}

void TestTableCells::foreignIndexesShowNothing()
{
    const auto source = std::make_shared<HandSource>();
    const auto model = quietModel(TraceTimeline(source));
    const Mirror mirror(*model);
    QCOMPARE(model->rowCount(), 0);
    QVERIFY(!model->showRow(0).isValid());
    QVERIFY(!model->jumpToTime(0).isValid());
    QVERIFY(!model->jumpToNumber(0).isValid());
    source->segments = {segmentOf<ListSegment>(numbered(0, 10))};
    model->refresh();
    const QModelIndex last = model->index(9, Model::DataColumn);
    QCOMPARE(last.data().toString(), QString("11"));
    source->segments = {segmentOf<ListSegment>(numbered(0, 5))};
    source->epoch = 1;
    model->refresh();
    QVERIFY(!model->data(last, Qt::DisplayRole).isValid());
    QVERIFY(!model->data(QModelIndex(), Qt::DisplayRole).isValid());
    const auto other = quietModel(TraceTimeline(source));
    QVERIFY(!model->data(other->index(0, 0), Qt::DisplayRole).isValid());
    QVERIFY(mirror.isRight());
}

QTEST_GUILESS_MAIN(TestTableCells)
#include "tst_tablecells.moc"
