#include "expressionscanner.h"

#include "canframe.h"

namespace {

bool isWordPart(QChar c)
{
    return c.isLetterOrNumber() || c == QLatin1Char('_');
}

// -1 for what is no digit.
int digitOf(QChar c, int base)
{
    const char16_t code = c.unicode();
    int digit = -1;
    if (code >= u'0' && code <= u'9')
        digit = code - u'0';
    else if ((code | 0x20) >= u'a' && (code | 0x20) <= u'f')
        digit = (code | 0x20) - u'a' + 10;
    return digit < base ? digit : -1;
}

constexpr int fractionDigits = 6;
constexpr qint64 million = 1000000;

} // namespace

bool ExpressionScanner::atEnd()
{
    return position() == text.size();
}

int ExpressionScanner::position()
{
    while (at < text.size() && text.at(at).isSpace())
        ++at;
    return at;
}

bool ExpressionScanner::sees(QLatin1String symbol)
{
    return text.mid(position()).startsWith(symbol);
}

bool ExpressionScanner::take(QLatin1String symbol)
{
    if (!sees(symbol))
        return false;
    at += symbol.size();
    return true;
}

QStringView ExpressionScanner::peekWord()
{
    int end = position();
    while (end < text.size() && isWordPart(text.at(end)))
        ++end;
    return text.mid(at, end - at);
}

bool ExpressionScanner::seesWord(QLatin1String word)
{
    return peekWord().compare(word, Qt::CaseInsensitive) == 0;
}

bool ExpressionScanner::takeWord(QLatin1String word)
{
    if (!seesWord(word))
        return false;
    at += word.size();
    return true;
}

// A word such as "and" ends an open range, although it begins with a hexadecimal digit.
bool ExpressionScanner::seesNumber(Notation notation)
{
    if (notation == Notation::Seconds && sees(QLatin1String("-")))
        return true;
    return !peekWord().isEmpty() && !seesWord(QLatin1String("and"))
        && !seesWord(QLatin1String("or"));
}

bool ExpressionScanner::takeNumber(Notation notation, qint64 highest, qint64 &value)
{
    return notation == Notation::Seconds ? takeSeconds(highest, value)
                                         : takeDigits(notation, highest, value);
}

bool ExpressionScanner::takeDigits(Notation notation, qint64 highest, qint64 &value)
{
    const bool isHexadecimal = notation == Notation::Hexadecimal;
    const int base = isHexadecimal ? 16 : 10;
    const int start = position();
    const QStringView word = peekWord();
    const bool hasPrefix =
        isHexadecimal && word.startsWith(QLatin1String("0x"), Qt::CaseInsensitive);
    const QStringView digits = word.mid(hasPrefix ? 2 : 0);
    value = 0;
    for (const QChar c : digits) {
        const int digit = digitOf(c, base);
        if (digit < 0)
            return fail(start,
                        isHexadecimal ? tr("\"%1\" is no hexadecimal number.").arg(shown(word))
                                      : tr("\"%1\" is no decimal number.").arg(shown(word)));
        value = qMin(value * base + digit, qint64(CAN::errorFrameId) * million);
    }
    if (digits.isEmpty())
        return fail(start,
                    isHexadecimal ? tr("A hexadecimal number is missing here.")
                                  : tr("A decimal number is missing here."));
    // Error frames have an identifier behind all that can be on a bus.
    const bool isErrorFrame = isHexadecimal && highest > 0xFF && value == CAN::errorFrameId;
    if (value > highest && !isErrorFrame)
        return failTooHigh(start, notation, highest);
    pass(word);
    return true;
}

bool ExpressionScanner::takeSeconds(qint64 highest, qint64 &value)
{
    const int start = position();
    const bool isNegative = take(QLatin1String("-"));
    qint64 microseconds = 0;
    if (at < text.size() && text.at(at).isSpace())
        return fail(at, tr("A blank behind the sign is not allowed."));
    if (!takeDigits(Notation::Decimal, highest, value) || !takeFraction(microseconds))
        return false;
    if (value > highest / million)
        return failTooHigh(start, Notation::Decimal, highest / million);
    value = value * million + microseconds;
    value = isNegative ? -value : value;
    return true;
}

// The point and the digits behind the seconds, if they are there.
bool ExpressionScanner::takeFraction(qint64 &microseconds)
{
    const bool hasFraction = text.mid(at).startsWith(QLatin1Char('.')) && at + 1 < text.size()
        && isWordPart(text.at(at + 1));
    if (!hasFraction)
        return true;
    ++at;
    const int start = at;
    const int digits = int(peekWord().size());
    if (digits > fractionDigits)
        return fail(start + fractionDigits, tr("A second has at most 6 digits behind the point."));
    if (!takeDigits(Notation::Decimal, million, microseconds))
        return false;
    for (int i = digits; i < fractionDigits; ++i)
        microseconds *= 10;
    return true;
}

bool ExpressionScanner::failTooHigh(int position, Notation notation, qint64 highest)
{
    const int base = notation == Notation::Hexadecimal ? 16 : 10;
    return fail(position, tr("The highest number here is %1.").arg(highest, 0, base));
}

bool ExpressionScanner::takeQuoted(QString &content)
{
    const QLatin1Char quote('"');
    const int start = position();
    if (!take(QLatin1String("\"")))
        return failHere(tr("A text in quotes is missing here."));
    for (; at < text.size(); ++at) {
        const bool isQuote = text.at(at) == quote;
        const bool isDoubled = isQuote && at + 1 < text.size() && text.at(at + 1) == quote;
        if (isQuote && !isDoubled) {
            ++at;
            return true;
        }
        content += text.at(at);
        at += isDoubled ? 1 : 0;
    }
    return fail(start, tr("The text that begins here has no quote at its end."));
}

bool ExpressionScanner::takePattern(BytePattern &pattern)
{
    if (!take(QLatin1String("\"")))
        return failHere(tr("Bytes in quotes are missing here."));
    while (!take(QLatin1String("\""))) {
        if (pattern.size() == CAN::maxDataBytes)
            return failHere(tr("No message has more than %1 bytes.").arg(CAN::maxDataBytes));
        if (!takePatternByte(pattern))
            return false;
    }
    return pattern.size() > 0 || fail(at - 1, tr("A byte is missing here."));
}

bool ExpressionScanner::takePatternByte(BytePattern &pattern)
{
    const int start = position();
    quint8 value = 0;
    quint8 mask = 0;
    if (!takeNibble(value, mask) || !takeNibble(value, mask))
        return fail(start,
                    start == text.size()
                        ? tr("A quote is missing here.")
                        : tr("A byte is two hexadecimal digits, or ? for those that are open."));
    pattern.add(value, mask);
    return true;
}

bool ExpressionScanner::takeNibble(quint8 &value, quint8 &mask)
{
    if (at == text.size())
        return false;
    const QChar c = text.at(at);
    const bool isOpen = c == QLatin1Char('?');
    const int digit = isOpen ? 0 : digitOf(c, 16);
    if (digit < 0)
        return false;
    value = quint8(value << 4 | digit);
    mask = quint8(mask << 4 | (isOpen ? 0 : 0xF));
    ++at;
    return true;
}

QString ExpressionScanner::shown(QStringView word)
{
    constexpr int most = 40;
    return word.left(most).toString() + QLatin1String(word.size() > most ? "..." : "");
}

bool ExpressionScanner::fail(int position, const QString &what)
{
    if (firstError.column > 0)
        return false;
    // A character that takes two units of the text counts once.
    int column = 1;
    for (int i = 0; i < position; ++i)
        column += text.at(i).isLowSurrogate() ? 0 : 1;
    firstError = {column, what};
    return false;
}
