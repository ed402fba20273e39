#include "linesource.h"

#include <QBuffer>
#include <QTextCodec>
#include <QTextStream>
#include <QtTest>

#include <random>

/// The lines against those of a QTextStream on a device in text mode.
class TestLineSource : public QObject
{
    Q_OBJECT
private slots:
    void givesTheLinesOfATextStream_data();
    void givesTheLinesOfATextStream();
    void keepsOneMiBOfALine();
    void beginsAgain();
    void carriageReturnsCanBeKept();
};

namespace {

QStringList linesOf(QByteArray bytes,
                    LineSource::Decoding decoding = LineSource::Decoding::WhereNeeded,
                    LineSource::CarriageReturns returns = LineSource::CarriageReturns::Dropped)
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    LineSource source(buffer, returns, decoding);
    QStringList lines;
    while (source.next())
        lines.append(source.visit([](auto text) { return toQString(text); }));
    return lines;
}

QStringList linesOfTextStream(QByteArray bytes)
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly | QIODevice::Text);
    QTextStream stream(&buffer);
    QStringList lines;
    while (!stream.atEnd())
        lines.append(stream.readLine());
    return lines;
}

// Pieces of all lengths, so that lines and characters fall on the borders of all blocks.
QByteArray randomText(const QByteArrayList &pieces, int size)
{
    std::mt19937 random(7);
    QByteArray text;
    while (text.size() < size) {
        const QByteArray &piece = pieces.at(int(random() % unsigned(pieces.size())));
        text += piece.repeated(1 + int(random() % 4));
        if (random() % 16 == 0)
            text += '\n';
        if (random() % 4000 == 0)
            text += piece.repeated(20000);
    }
    return text;
}

QByteArray withByteOrderMark(const QString &text, const char *codec)
{
    const std::unique_ptr<QTextEncoder> encoder(
        QTextCodec::codecForName(codec)->makeEncoder(QTextCodec::IgnoreHeader));
    return encoder->fromUnicode(QChar(QChar::ByteOrderMark) + text);
}

} // namespace

void TestLineSource::givesTheLinesOfATextStream_data()
{
    constexpr int severalBlocks = 900000;
    QTest::addColumn<QByteArray>("bytes");
    const QByteArrayList ascii = {"a", "bc ", "\t", "0.125 ", "12345678"};
    const QByteArrayList returns = {"a", "bc\r", "\r\n", "\r\r\n", "\n", "x y"};
    const QByteArrayList utf8 = {"a", "\xC3\xA4", "\xE2\x82\xAC", "\xF0\x9F\x98\x80", "\r\n"};
    const QByteArrayList broken = {"a", "\xC3", "\xE2\x82", "\xF0\x9F", "\xFF", "\x80", "b\n"};
    QTest::newRow("last line without line feed") << QByteArray("a\n\nb");
    QTest::newRow("only carriage returns") << QByteArray("\r\r");
    QTest::newRow("carriage returns") << randomText(returns, severalBlocks);
    QTest::newRow("UTF-8") << randomText(utf8, severalBlocks);
    QTest::newRow("UTF-8 with a byte order mark")
        << "\xEF\xBB\xBF" + randomText(utf8, severalBlocks);
    // How many characters stand for a broken sequence on one of QTextStream's own block borders
    // is an accident, so this text stays within a block.
    constexpr int withinBlock = 16000;
    QTest::newRow("broken UTF-8") << randomText(broken, withinBlock).left(withinBlock) + "end\n";
    QTest::newRow("ASCII, then UTF-8")
        << randomText(ascii, severalBlocks) + '\n' + randomText(utf8, severalBlocks);
    QTest::newRow("byte order marks within the text") << QByteArray("\xEF\xBB\xBF"
                                                                    "a\n\xEF\xBB\xBF"
                                                                    "b\n\xC3\xA4\xEF\xBB\xBF\n");
    QTest::newRow("sequence cut by the end of the file") << QByteArray("a\nb\xC3");
    // Behind a mark of two bytes, blocks end within the characters of four.
    const QString text = QString::fromUtf8(
        QByteArray("\xF0\x9F\x98\x80").repeated(70000)
        + randomText({"a", "\xC3\xA4\n", "\xE2\x82\xAC", "\xF0\x9F\x98\x80"}, 700000));
    for (const char *name : {"UTF-16LE", "UTF-16BE", "UTF-32LE"})
        QTest::newRow(name) << withByteOrderMark(text, name);
}

void TestLineSource::givesTheLinesOfATextStream()
{
    QFETCH(QByteArray, bytes);
    const QStringList expected = linesOfTextStream(bytes);
    for (const auto decoding : {LineSource::Decoding::WhereNeeded, LineSource::Decoding::Always})
        QCOMPARE(linesOf(bytes, decoding), expected);
}

void TestLineSource::keepsOneMiBOfALine()
{
    constexpr int mebibyte = 1024 * 1024;
    const QStringList lines = linesOf("a\n" + QByteArray(3 * mebibyte + 5, 'b') + "\nc");
    QCOMPARE(lines, QStringList({"a", QString(mebibyte, QLatin1Char('b')), "c"}));
}

void TestLineSource::beginsAgain()
{
    const QString text = QStringLiteral("one \u20AC\ntwo\n");
    for (const char *name : {"UTF-8", "UTF-16LE"}) {
        QByteArray bytes = withByteOrderMark(text, name);
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::ReadOnly);
        LineSource source(buffer, LineSource::CarriageReturns::Dropped);
        while (source.next()) { }
        source.rewind();
        QVERIFY(source.next());
        QCOMPARE(source.visit([](auto line) { return toQString(line); }), text.left(5));
    }
}

void TestLineSource::carriageReturnsCanBeKept()
{
    constexpr auto kept = LineSource::CarriageReturns::Kept;
    QCOMPARE(linesOf("a\rb\r\n", LineSource::Decoding::WhereNeeded, kept), QStringList("a\rb\r"));
}

QTEST_GUILESS_MAIN(TestLineSource)
#include "tst_linesource.moc"
