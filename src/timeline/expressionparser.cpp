#include "expressionparser.h"

#include "canframe.h"
#include "expressionscanner.h"
#include "recordview.h"

namespace {

using Notation = ExpressionScanner::Notation;

// What a word asks for that is a number.
struct NumberWord
{
    const char *word;
    FrameTest::Field field;
    Notation notation;
    qint64 highest;
    bool takesMask;
    qint64 highestMask;
};
constexpr qint64 highestIdentifier = 0x1FFFFFFF;
constexpr qint64 highestTime = 9999999999999999;
constexpr NumberWord numberWords[] = {
    {"id", FrameTest::Id, Notation::Hexadecimal, highestIdentifier, true, 0xFFFFFFFF},
    {"line", FrameTest::Line, Notation::Decimal, 255, false, 0},
    {"len", FrameTest::Length, Notation::Decimal, CAN::maxDataBytes, false, 0},
    {"number", FrameTest::Number, Notation::Decimal, 0xFFFFFFFF, false, 0},
    {"time", FrameTest::Time, Notation::Seconds, highestTime, false, 0},
};
constexpr NumberWord byteWord = {"b", FrameTest::Byte, Notation::Hexadecimal, 0xFF, true, 0xFF};

struct FlagWord
{
    const char *word;
    FrameKey::KindBit bit;
};
constexpr FlagWord flagWords[] = {
    {"ext", FrameKey::Extended}, {"rtr", FrameKey::Remote}, {"fd", FrameKey::FdFrame},
    {"brs", FrameKey::FlagC},    {"esi", FrameKey::FlagB},  {"tx", FrameKey::Transmitted},
};

Ranges rangesBelow(qint64 value)
{
    return {{Range::lowest, value - 1}};
}

Ranges rangesAbove(qint64 value)
{
    return {{value + 1, Range::highest}};
}

// What compares so with a value. The longer ones come first, for they begin like others.
struct Comparison
{
    const char *symbol;
    Ranges (*ranges)(qint64 value);
};
const Comparison comparisons[] = {
    {"==",
     [](qint64 value) {
         return Ranges{{value, value}};
     }},
    {"!=",
     [](qint64 value) {
         return Ranges{{Range::lowest, value - 1}, {value + 1, Range::highest}};
     }},
    {"<=", [](qint64 value) { return rangesBelow(value + 1); }},
    {">=", [](qint64 value) { return rangesAbove(value - 1); }},
    {"<", rangesBelow},
    {">", rangesAbove},
};

bool is(QStringView word, const char *name)
{
    return word.compare(QLatin1String(name), Qt::CaseInsensitive) == 0;
}

bool isFlag(QStringView word, FrameTest &test)
{
    for (const FlagWord &flag : flagWords) {
        if (is(word, flag.word)) {
            test.field = FrameTest::Kind;
            test.mask = flag.bit;
            test.ranges = {{flag.bit, flag.bit}};
            return true;
        }
    }
    test.field = is(word, "changed") ? FrameTest::Changed : FrameTest::Id;
    test.ranges = {{CAN::errorFrameId, CAN::errorFrameId}};
    return is(word, "changed") || is(word, "err");
}

// A b and a decimal number; one that no payload has is 255 at most.
bool isByte(QStringView word, FrameTest &test)
{
    int byte = 0;
    for (const QChar c : word.mid(1)) {
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            return false;
        byte = qMin(byte * 10 + c.digitValue(), 255);
    }
    test.field = FrameTest::Byte;
    test.byte = quint8(byte);
    return word.size() > 1 && is(word.left(1), "b");
}

bool haveSameNumber(const FilterNode &a, const FilterNode &b)
{
    return a.kind == FilterNode::Test && b.kind == FilterNode::Test && !a.isNegated && !b.isNegated
        && a.test.field <= FrameTest::Byte && a.test.field == b.test.field
        && a.test.byte == b.test.byte && a.test.mask == b.test.mask;
}

class Parser
{
    Q_DECLARE_TR_FUNCTIONS(TraceExpression)
public:
    explicit Parser(QStringView text) : scanner(text) { }

    bool parse(FilterNode &tree)
    {
        return parseAny(tree)
            && (scanner.atEnd() || scanner.failHere(tr("An \"and\" or \"or\" is missing here.")));
    }
    const TraceExpression::Error &error() const { return scanner.error(); }

private:
    bool takeAnd()
    {
        return scanner.take(QLatin1String("&&")) || scanner.takeWord(QLatin1String("and"));
    }
    bool takeOr()
    {
        return scanner.take(QLatin1String("||")) || scanner.takeWord(QLatin1String("or"));
    }
    bool takeNot()
    {
        return scanner.take(QLatin1String("!")) || scanner.takeWord(QLatin1String("not"));
    }
    bool parseAny(FilterNode &node);
    bool parseAll(FilterNode &node);
    bool parseNot(FilterNode &node);
    bool parseGroup(FilterNode &node);
    bool parseTest(FrameTest &test);
    bool parseNumber(const NumberWord &word, FrameTest &test);
    bool parseRanges(const NumberWord &word, Ranges &ranges);
    bool parseRange(const NumberWord &word, Range &range);
    bool parseData(FrameTest &test);
    bool parseNote(FrameTest &test);

    ExpressionScanner scanner;
    int level = 0;
};

// Tests of one number in a row become one, so that a long list is as quick as a range.
bool Parser::parseAny(FilterNode &node)
{
    FilterNode any;
    any.kind = FilterNode::Any;
    do {
        FilterNode next;
        if (!parseAll(next))
            return false;
        if (!any.children.empty() && haveSameNumber(any.children.back(), next)) {
            Ranges &ranges = any.children.back().test.ranges;
            ranges.insert(ranges.end(), next.test.ranges.begin(), next.test.ranges.end());
        } else {
            any.children.push_back(std::move(next));
        }
    } while (takeOr());
    for (FilterNode &child : any.children)
        tidy(child.test.ranges);
    node = any.children.size() == 1 ? FilterNode(std::move(any.children.front())) : std::move(any);
    return true;
}

bool Parser::parseAll(FilterNode &node)
{
    FilterNode all;
    all.kind = FilterNode::All;
    do {
        FilterNode next;
        if (!parseNot(next))
            return false;
        all.children.push_back(std::move(next));
    } while (takeAnd());
    node = all.children.size() == 1 ? FilterNode(std::move(all.children.front())) : std::move(all);
    return true;
}

bool Parser::parseNot(FilterNode &node)
{
    bool isNegated = false;
    while (takeNot())
        isNegated = !isNegated;
    if (!(scanner.sees(QLatin1String("(")) ? parseGroup(node) : parseTest(node.test)))
        return false;
    node.isNegated ^= isNegated;
    return true;
}

bool Parser::parseGroup(FilterNode &node)
{
    if (level == TraceExpression::mostLevels)
        return scanner.failHere(
            tr("Parentheses may be %1 levels deep.").arg(TraceExpression::mostLevels));
    ++level;
    scanner.take(QLatin1String("("));
    if (!parseAny(node))
        return false;
    --level;
    return scanner.take(QLatin1String(")"))
        || scanner.failHere(tr("A closing parenthesis is missing here."));
}

bool Parser::parseTest(FrameTest &test)
{
    const int start = scanner.position();
    const QStringView word = scanner.peekWord();
    if (word.isEmpty())
        return scanner.failHere(tr("A condition is missing here."));
    scanner.pass(word);
    for (const NumberWord &number : numberWords) {
        if (is(word, number.word)) {
            test.field = number.field;
            return parseNumber(number, test);
        }
    }
    if (is(word, "data"))
        return parseData(test);
    if (is(word, "note"))
        return parseNote(test);
    if (isFlag(word, test))
        return true;
    if (isByte(word, test))
        return test.byte < CAN::maxDataBytes
            ? parseNumber(byteWord, test)
            : scanner.fail(start, tr("Bytes are counted from b0 to b63."));
    const QString what = word.at(0).isDigit()
        ? tr("A number needs a word in front of it, as in id==%1.")
        : tr("\"%1\" is no word of filters.");
    return scanner.fail(start, what.arg(scanner.shown(word)));
}

bool Parser::parseNumber(const NumberWord &word, FrameTest &test)
{
    qint64 value = 0;
    if (word.takesMask && !scanner.sees(QLatin1String("&&")) && scanner.take(QLatin1String("&"))) {
        if (!scanner.takeNumber(word.notation, word.highestMask, value))
            return false;
        test.mask = quint64(value);
    }
    for (const Comparison &comparison : comparisons) {
        if (scanner.take(QLatin1String(comparison.symbol))) {
            const bool isTaken = scanner.takeNumber(word.notation, word.highest, value);
            test.ranges = comparison.ranges(value);
            return isTaken;
        }
    }
    if (scanner.sees(QLatin1String("=")))
        return scanner.failHere(tr("A comparison for equality has two signs, as in id==1a0."));
    if (!scanner.takeWord(QLatin1String("in")) && !scanner.sees(QLatin1String(".."))
        && !scanner.seesNumber(word.notation))
        return scanner.failHere(tr("A comparison or a range is missing here."));
    return parseRanges(word, test.ranges);
}

bool Parser::parseRanges(const NumberWord &word, Ranges &ranges)
{
    do {
        Range range;
        if (!parseRange(word, range))
            return false;
        ranges.push_back(range);
    } while (scanner.take(QLatin1String(",")));
    tidy(ranges);
    return true;
}

bool Parser::parseRange(const NumberWord &word, Range &range)
{
    const int start = scanner.position();
    const bool isOpenBelow = scanner.take(QLatin1String(".."));
    if (!isOpenBelow) {
        if (!scanner.takeNumber(word.notation, word.highest, range.low))
            return false;
        range.high = range.low;
        if (!scanner.take(QLatin1String("..")))
            return true;
    }
    range.high = Range::highest;
    if ((isOpenBelow || scanner.seesNumber(word.notation))
        && !scanner.takeNumber(word.notation, word.highest, range.high))
        return false;
    return range.low <= range.high || scanner.fail(start, tr("The range ends before it begins."));
}

bool Parser::parseData(FrameTest &test)
{
    test.field = FrameTest::Data;
    if (!scanner.take(QLatin1String("~")))
        return scanner.failHere(tr("A ~ and bytes in quotes are missing here."));
    return scanner.takePattern(test.pattern);
}

bool Parser::parseNote(FrameTest &test)
{
    test.field = FrameTest::Note;
    if (!scanner.take(QLatin1String("~")))
        return true;
    const int start = scanner.position();
    return scanner.takeQuoted(test.text)
        && (!test.text.isEmpty() || scanner.fail(start, tr("The text is empty.")));
}

} // namespace

bool parseExpression(const QString &text, FilterNode &tree, TraceExpression::Error &error)
{
    Parser parser(text);
    const bool isParsed = parser.parse(tree);
    error = parser.error();
    return isParsed;
}
