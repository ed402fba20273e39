#include "framefilter.h"
#include "messages.h"

#include <QtTest>

#include <random>

/// Filter expressions: which messages they take, and what errors they tell.
class TestExpression : public QObject
{
    Q_OBJECT
private slots:
    void takesMessages_data();
    void takesMessages();
    void tellsErrors_data();
    void tellsErrors();
    void countsCharactersOfTwoUnits();
    void isBounded();
    void findsPatternsEverywhere();
    void looksNotesUpByNumber();
};

namespace {

using CAN::CanRxMessage;

TraceExpression parsed(const QString &text)
{
    TraceExpression::Error error;
    const auto expression = TraceExpression::parse(text, &error);
    if (!expression)
        qFatal("%s: column %d: %s", qPrintable(text), error.column, qPrintable(error.text));
    return *expression;
}

struct Named
{
    char name;
    CanRxMessage message;
    QString note;
};

CanRxMessage numbered(CanRxMessage message, quint32 number, qint32 seconds, qint32 microseconds)
{
    message.messageNumber = number;
    message.seconds = seconds;
    message.microseconds = microseconds;
    return message;
}

// What the rows speak of: a plain, an extended, an FD, a remote, an error and a sent frame.
std::vector<Named> someMessages()
{
    std::vector<Named> all{
        {'p', numbered(makeMessage(0x100, "1122334455667788"), 0, -2, 500000), "Start of \"A\""},
        {'x', numbered(makeMessage(0x18FEF100, "22a04411", 0x102), 999, 12, 499999), {}},
        {'f',
         numbered(makeMessage(0x2A1, QByteArray(23, 'f') + "0" + QByteArray(24, '0'), 2), 1000, 12,
                  500000),
         {}},
        {'r', numbered(makeMessage(0x7DF, "1122334455667788"), 1001, 13, 0), "Straße"},
        {'e', numbered(makeMessage(CAN::errorFrameId, "0004", 255), 0xFFFFFFFF, 13, 1), {}},
        {'t', numbered(makeMessage(0x1FF, ""), 5, 2147483647, 999999), {}}};
    all[2].message.fdFrame = all[2].message.flagC = true;
    all[3].message.remote = true;
    all[4].message.flagB = true;
    all[4].message.extended = false;
    all[5].message.transmitted = true;
    return all;
}

} // namespace

void TestExpression::takesMessages_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("taken");
    const auto row = [](const char *text, const char *taken) {
        QTest::newRow(text) << QString::fromUtf8(text) << QString::fromLatin1(taken);
    };
    row("", "pxfret");
    row(" \t\n", "pxfret");
    row("id==2a1", "f");
    row("ID == 0X2A1", "f");
    row("id!=2a1", "pxret");
    row("id<1ff", "p");
    row("id<=1ff", "pt");
    row("id>7df", "xe");
    row("id>=7df", "xre");
    row("id==ffff00ef", "e");
    row("id in 100..1ff,7df", "prt");
    row("id in 7df , 150 .. 1fe , ..100", "pr");
    row("id in 700.. and not err", "xr");
    row("id in ..ff", "");
    row("id&700==200", "f");
    row("id & 700 != 200", "pxret");
    row("id&f in 0..1&&id<300", "pf");
    row("ext", "x");
    row("fd", "f");
    row("rtr", "r");
    row("err", "e");
    row("tx", "t");
    row("brs", "f");
    row("esi", "e");
    row("line==2", "xf");
    row("line in 0,255", "pret");
    row("time 12.5..13", "fr");
    row("time 12.499999", "x");
    row("time>=12.5", "fret");
    row("time ..-1.5", "p");
    row("time -1.500001..-1.499999", "p");
    row("time<-1.5", "");
    row("time>2147483647.9", "t");
    row("number 1000..", "fre");
    row("number==4294967295", "e");
    row("number ..5 or number==999", "pxt");
    row("len>8", "f");
    row("len==0", "t");
    row("len!=8", "xfet");
    row("len==8", "pr");
    row("b0==22", "x");
    row("b1!=a0", "pfe");
    row("b1<a0", "pe");
    row("b1!=ff", "pxe");
    row("b1>ff or b1<0", "");
    row("b1&0!=1", "pxfe");
    row("not b1==a0", "pfret");
    row("b1&f0==a0", "x");
    row("b11&0f==0", "f");
    row("b63>=0", "");
    row("data~\"22 33\"", "p");
    row("data~\"2233445566778?\"", "p");
    row("data~\"22 ?? 44\"", "px");
    row("data~\"?4 1?\"", "x");
    row("data~\"?? ff ff ff ff ff ff ff ff ?f f0\"", "f");
    row("data~\"8? ??\"", "");
    row("data ~ \" 00 04 \" ", "e");
    row("note", "pr");
    row("note~\"START\"", "p");
    row("note~\"of \"\"a\"\"\"", "p");
    row("note~\"aß\"", "r");
    row("changed", "pxfret");
    row("ext or fd and tx", "x");
    row("(ext or fd) and not tx", "xf");
    row("not ext and not fd", "pret");
    row("! ext && !fd || tx", "pret");
    row("not (ext or (fd and brs)) and not not id>0", "pret");
    row("NOT(ext)AND(rtr)", "r");
    row("not not not ext", "pfret");
    row("id==100 or id==1ff or id>7df", "pxet");
    row("b0==11 or b1==a0 or b1==04", "pxe");
    row("not id==100 or id==100", "pxfret");
}

void TestExpression::takesMessages()
{
    QFETCH(QString, text);
    const TraceExpression expression = parsed(text);
    QString taken;
    for (const Named &named : someMessages()) {
        if (expression.matches(named.message, named.note))
            taken += QLatin1Char(named.name);
    }
    QTEST(taken, "taken");
    QCOMPARE(expression.text(), text);
}

void TestExpression::tellsErrors_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("part");
    const auto row = [](const char *text, int column, const char *part) {
        QTest::newRow(text) << QString::fromUtf8(text) << column << QString::fromLatin1(part);
    };
    row("id==", 5, "hexadecimal number is missing");
    row("id==2g1", 5, "\"2g1\" is no hexadecimal number");
    row("id==0x", 5, "number is missing");
    row("id == 20000000", 7, "highest number here is 1fffffff");
    row("id==ffff00ee", 5, "highest");
    row("id==99999999999999999999999999999", 5, "highest");
    row("id=2a1", 3, "comparison for equality");
    row("id&&ext", 3, "comparison or a range");
    row("id&100000000==0", 4, "ffffffff");
    row("id in 2..1", 7, "ends before it begins");
    row("id in ..", 9, "number is missing");
    row("id in 1,", 9, "number is missing");
    row("line==256", 7, "255");
    row("line==0x2", 7, "no decimal number");
    row("len>65", 5, "64");
    row("number==4294967296", 9, "4294967295");
    row("time 1.2345678", 14, "6 digits");
    row("time>- 1", 7, "blank");
    row("time>10000000000", 6, "9999999999");
    row("time>1.5s", 8, "no decimal number");
    row("time 1...5", 9, "");
    row("b64==0", 1, "b0 to b63");
    row("b999999999999==0", 1, "b0 to b63");
    row("b==0", 1, "no word");
    row("b0==100", 5, "ff");
    row("data==11", 5, "~");
    row("data~11", 6, "quotes");
    row("data~\"\"", 7, "byte is missing");
    row("data~\"11 2\"", 10, "two hexadecimal digits");
    row("data~\"11 2", 10, "two hexadecimal digits");
    row("data~\"11", 9, "quote is missing");
    row("note~\"\"", 6, "empty");
    row("ext and note~\"abc", 14, "no quote at its end");
    row("ext fd", 5, "\"and\" or \"or\"");
    row("ext & fd", 5, "\"and\" or \"or\"");
    row("ext and", 8, "condition is missing");
    row("and ext", 1, "\"and\" is no word");
    row("(ext", 5, "closing parenthesis");
    row("(ext))", 6, "");
    row("()", 2, "condition is missing");
    row("1a0", 1, "id==1a0");
    row("not 0x1a0", 5, "id==0x1a0");
    row("ext or wrong", 8, "\"wrong\" is no word");
    row("ext # fd", 5, "");
}

void TestExpression::tellsErrors()
{
    QFETCH(QString, text);
    QFETCH(QString, part);
    TraceExpression::Error error;
    QVERIFY(!TraceExpression::parse(text, &error));
    QTEST(error.column, "column");
    QVERIFY2(error.text.contains(part) && error.text.endsWith('.'), qPrintable(error.text));
    QVERIFY(!TraceExpression::parse(text));
}

void TestExpression::countsCharactersOfTwoUnits()
{
    TraceExpression::Error error;
    QVERIFY(!TraceExpression::parse(QString::fromUtf8("note~\"\U0001F600\U0001F600\" 1"), &error));
    QCOMPARE(error.column, 11);
}

void TestExpression::isBounded()
{
    TraceExpression::Error error;
    const auto nested = [](int levels) {
        return QString("not (").repeated(levels) + "ext" + QString(")").repeated(levels);
    };
    QVERIFY(TraceExpression::parse(nested(TraceExpression::mostLevels)));
    QVERIFY(!TraceExpression::parse(nested(TraceExpression::mostLevels + 1), &error));
    QCOMPARE(error.column, 5 * TraceExpression::mostLevels + 5);

    QVERIFY(TraceExpression::parse(QString("(ext) or ").repeated(300) + "fd"));
    const QString many = "id==1" + QString(" or b0==1 or id==2").repeated(555);
    QVERIFY(many.size() < TraceExpression::mostCharacters);
    QVERIFY(parsed(many).matches(makeMessage(2, "")) && !parsed(many).matches(makeMessage(3, "")));
    const QString blanks = QString(TraceExpression::mostCharacters, ' ');
    QVERIFY(TraceExpression::parse(blanks));
    QVERIFY(!TraceExpression::parse(blanks + ' ', &error));
    QCOMPARE(error.column, TraceExpression::mostCharacters + 1);
    QVERIFY(!TraceExpression::parse(QString(TraceExpression::mostCharacters, 'a'), &error));
    QVERIFY(error.text.size() < 100);
}

// Payloads and patterns of every size. The bytes end where reading has to, for the sanitizers.
void TestExpression::findsPatternsEverywhere()
{
    std::mt19937 random(14);
    int found = 0;
    for (int i = 0; i < 20000; ++i) {
        const unsigned length = random() % 65;
        std::vector<quint8> data(qMax(length, 8u));
        std::generate(data.begin(), data.end(), [&] { return quint8(random() % 2); });
        BytePattern pattern;
        std::string bytes;
        const unsigned size = 1 + random() % (random() % 2 ? 4 : 20);
        for (unsigned byte = 0; byte < size; ++byte) {
            const bool isOpen = random() % 3 == 0;
            bytes += isOpen ? '?' : char(random() % 2);
            pattern.add(quint8(bytes.back()), isOpen ? 0 : 0xFF);
        }
        const auto end = data.begin() + length;
        const bool isIn = size <= length
            && std::search(data.begin(), end, bytes.begin(), bytes.end(),
                           [](quint8 a, char b) { return b == '?' || a == quint8(b); })
                != end;
        QCOMPARE(pattern.isIn(data.data(), int(length)), isIn);
        found += isIn;
    }
    QVERIFY(found > 5000 && found < 15000);
}

void TestExpression::looksNotesUpByNumber()
{
    const Notes notes{{7, "here"}};
    CanRxMessage message;
    const TraceExpression expression = parsed("note~\"HERE\"");
    const auto matches = [&](quint32 number) {
        message.messageNumber = number;
        return filterOf(expression).matches(MessageView(message), {&notes, u"here", false});
    };
    QVERIFY(matches(7) && !matches(8));
    QVERIFY(filterOf(expression).needsNotes() && !filterOf(expression).needsPayload());
    QVERIFY(filterOf(parsed("changed")).needsPayload()
            && filterOf(parsed("changed")).needsChanged());
}

QTEST_GUILESS_MAIN(TestExpression)
#include "tst_expression.moc"
