#include "linefields.h"

#include <QtTest>

#include <random>

/// The quick conversions against QString's own.
class TestLineFields : public QObject
{
    Q_OBJECT
private slots:
    void numbersFollowQt();
    void splitsAsQStringDoes();
};

namespace {

const QString digits = QStringLiteral("0123456789");
const QString odd = QStringLiteral("  \t\u00A0+-xXaAfFgG.,;'_\u0663\uFF11");

QString randomText(std::mt19937 &random)
{
    static const QStringList beginnings = {"",   "0",  "0x", "0X", "00",          "-",  "+",
                                           " ",  "+0", "\t", "0b", "42949672950", "65", "ffff",
                                           "21", "-2", "3.", "1,", "4294967295",  "1 "};
    QString text = beginnings.at(int(random() % unsigned(beginnings.size())));
    for (unsigned left = random() % 22; left > 0; --left) {
        const QString &from = random() % 6 == 0 ? odd : digits;
        text += from.at(int(random() % unsigned(from.size())));
    }
    return text;
}

template <typename Number> bool agrees(const QString &text, int base)
{
    bool okByQt = false;
    bool ok = !okByQt;
    const Number byQt = LineFields::toNumberByQt<Number>(text, base, &okByQt);
    const Text<char16_t> wide(reinterpret_cast<const char16_t *>(text.utf16()),
                              std::size_t(text.size()));
    if (LineFields::toNumber<Number>(wide, base, &ok) != byQt || ok != okByQt)
        return false;
    const QByteArray bytes = text.toLatin1();
    if (QString::fromLatin1(bytes) != text)
        return true;
    const Text<char> narrow(bytes.constData(), std::size_t(bytes.size()));
    return LineFields::toNumber<Number>(narrow, base, &ok) == byQt && ok == okByQt;
}

QStringList strings(const LineFields::Parts<char> &parts)
{
    QStringList list;
    for (const Text<char> part : parts)
        list.append(toQString(part));
    return list;
}

} // namespace

void TestLineFields::numbersFollowQt()
{
    std::mt19937 random(1);
    for (int i = 0; i < 50000; ++i) {
        const QString text = randomText(random);
        for (const int base : {0, 10, 16}) {
            const bool allAgree = agrees<quint16>(text, base) && agrees<quint32>(text, base)
                && agrees<qint32>(text, base) && agrees<quint64>(text, base)
                && agrees<qint64>(text, base);
            QVERIFY2(allAgree, qPrintable(QStringLiteral("'%1' base %2").arg(text).arg(base)));
        }
    }
}

void TestLineFields::splitsAsQStringDoes()
{
    std::mt19937 random(2);
    for (int i = 0; i < 20000; ++i) {
        // Few blanks, so that two of them meet at the border between two looks only.
        const QByteArray alphabet = i % 8 == 0 ? "abcdefgh;\" " : "ab;; \"\t\v\r\x1c";
        QByteArray bytes;
        // Short texts, and those that take more than one look.
        for (unsigned left = random() % (i % 4 == 0 ? 200 : 30); left > 0; --left)
            bytes += alphabet.at(int(random() % unsigned(alphabet.size())));
        const Text<char> text(bytes.constData(), std::size_t(bytes.size()));
        const QString line = QString::fromLatin1(bytes);
        QCOMPARE(strings(LineFields::splitAtBlanks(text)),
                 line.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts));
        QCOMPARE(strings(LineFields::splitKeepingEmpty<';'>(text)), line.split(QLatin1Char(';')));
        LineFields::Scratch<char> scratch;
        QCOMPARE(toQString(LineFields::simplified(text, scratch)), line.simplified());
        // Every second piece between quotes is quoted, and its separators are none.
        QStringList pieces = line.split(QLatin1Char('"'));
        for (int piece = 1; piece < pieces.size(); piece += 2)
            pieces[piece].replace(QLatin1Char(';'), QLatin1Char('_'));
        QStringList parts = strings(LineFields::splitOutsideQuotes<';', '"'>(text));
        for (QString &part : parts)
            part.replace(QLatin1Char(';'), QLatin1Char('_'));
        QCOMPARE(parts, pieces.join(QLatin1Char('"')).split(QLatin1Char(';')));
    }
}

QTEST_GUILESS_MAIN(TestLineFields)
#include "tst_linefields.moc"
