#include "candumpline.h"
#include "canframe.h"

#include <QtTest>

class TestCandumpLine : public QObject
{
    Q_OBJECT
private slots:
    void frames_data();
    void frames();
};

namespace {

// "seconds.microseconds line id length flags: data" with x, r and f for extended, remote and FD.
QString describe(const char *text, int size)
{
    const auto line = readCandumpLine({text, std::size_t(size)});
    if (!line)
        return QStringLiteral("none");
    const CAN::CanRxMessage &m = line->message;
    const QByteArray data(reinterpret_cast<const char *>(m.data), CAN::payloadSize(m));
    return QStringLiteral("%1 %2 %3 %4%5%6%7: %8")
        .arg(line->hasTime ? QStringLiteral("%1.%2").arg(m.seconds).arg(m.microseconds)
                           : QStringLiteral("now"))
        .arg(m.line)
        .arg(m.id, 0, 16)
        .arg(m.length)
        .arg(QLatin1String(m.extended ? "x" : ""), QLatin1String(m.remote ? "r" : ""),
             QLatin1String(m.fdFrame ? "f" : ""), QLatin1String(data.toHex()));
}

} // namespace

void TestCandumpLine::frames_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("expected");
    // Name, line and what is read of it, with tabs in between.
    QFile cases(QStringLiteral(TESTDATA "/candumplines.tsv"));
    QVERIFY(cases.open(QIODevice::ReadOnly));
    while (!cases.atEnd()) {
        const QByteArrayList fields = cases.readLine().chopped(1).split('\t');
        QCOMPARE(fields.size(), 3);
        QTest::newRow(fields[0]) << fields[1] << QString::fromLatin1(fields[2]);
    }
}

void TestCandumpLine::frames()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, expected);
    QCOMPARE(describe(line, line.size()), expected);
    for (int size = 0; size < line.size(); ++size) {
        // A copy of its own, so that a sanitizer sees a read behind the end.
        const std::vector<char> cut(line.constData(), line.constData() + size);
        describe(cut.data(), size);
    }
}

QTEST_APPLESS_MAIN(TestCandumpLine)
#include "tst_candumpline.moc"
