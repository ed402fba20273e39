#include "candumpline.h"

#include "canframe.h"

#include <charconv>
#include <limits>

namespace {

constexpr quint32 maxStandardId = 0x7FF;
constexpr quint32 maxExtendedId = 0x1FFFFFFF;
constexpr quint32 errorFlag = 0x20000000;
constexpr std::size_t extendedIdDigits = 8;
constexpr std::string_view blanks = " \t\r\n";

// Gives the words of a line one after the other, and empty ones at its end.
class Words
{
public:
    explicit Words(std::string_view line) : rest(line) { }

    std::string_view next()
    {
        rest.remove_prefix(std::min(rest.find_first_not_of(blanks), rest.size()));
        const std::string_view word = rest.substr(0, rest.find_first_of(blanks));
        rest.remove_prefix(word.size());
        return word;
    }

private:
    std::string_view rest;
};

template <typename Number> bool toNumber(std::string_view text, Number &number, int base = 10)
{
    const char *const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number, base);
    return error == std::errc() && stop == end;
}

bool removeBrackets(std::string_view &word, char open, char close)
{
    if (word.size() < 2 || word.front() != open || word.back() != close)
        return false;
    word = word.substr(1, word.size() - 2);
    return true;
}

// "(seconds.fraction)"; digits beyond the microseconds are cut.
bool readTime(std::string_view word, CAN::CanRxMessage &message)
{
    if (!removeBrackets(word, '(', ')'))
        return false;
    const std::size_t point = word.find('.');
    std::string_view fraction = point == word.npos ? "0" : word.substr(point + 1, 6);
    quint32 microseconds = 0;
    quint32 seconds = 0;
    if (!toNumber(word.substr(0, point), seconds) || !toNumber(fraction, microseconds)
        || seconds > quint32(std::numeric_limits<qint32>::max()))
        return false;
    for (std::size_t digits = fraction.size(); digits < 6; ++digits)
        microseconds *= 10;
    message.seconds = qint32(seconds);
    message.microseconds = qint32(microseconds);
    return true;
}

quint16 lineOfInterface(std::string_view name)
{
    quint16 line = 0;
    const std::size_t lastLetter = name.find_last_not_of("0123456789");
    const std::size_t start = lastLetter == name.npos ? 0 : lastLetter + 1;
    return toNumber(name.substr(start), line) ? line : 0;
}

bool readId(std::string_view word, CAN::CanRxMessage &message)
{
    quint32 id = 0;
    if (word.size() > extendedIdDigits || !toNumber(word, id, 16))
        return false;
    if (id & errorFlag) {
        message.id = CAN::errorFrameId;
        return id <= (errorFlag | maxExtendedId);
    }
    message.id = id;
    message.extended = word.size() == extendedIdDigits || id > maxStandardId;
    return id <= maxExtendedId;
}

bool addByte(std::string_view digits, CAN::CanRxMessage &message)
{
    return digits.size() == 2 && message.length < CAN::maxDataBytes
        && toNumber(digits, message.data[message.length++], 16);
}

// "R" or "R8": a remote frame, with the length that it asks for.
bool readRemote(std::string_view data, CAN::CanRxMessage &message)
{
    message.remote = true;
    quint8 length = 0;
    if (data.size() > 1 && (!toNumber(data.substr(1), length) || length > 8))
        return false;
    message.length = qint8(length);
    return true;
}

// "123#1122", "123#R" or, for CAN FD with a digit of flags, "123##01122".
bool readLogFrame(std::string_view frame, CAN::CanRxMessage &message)
{
    const std::size_t separator = frame.find('#');
    if (!readId(frame.substr(0, separator), message))
        return false;
    std::string_view data = frame.substr(separator + 1);
    message.fdFrame = !data.empty() && data.front() == '#';
    if (message.fdFrame) {
        quint8 flags = 0;
        if (!toNumber(data.substr(1, 1), flags, 16))
            return false;
        data.remove_prefix(2);
    } else if (!data.empty() && data.front() == 'R') {
        return readRemote(data, message);
    }
    for (; !data.empty(); data.remove_prefix(2)) {
        if (data.size() < 2 || !addByte(data.substr(0, 2), message))
            return false;
    }
    return true;
}

// "123  [2]  11 22"; a length of two digits is CAN FD.
bool readScreenFrame(std::string_view id, Words &words, CAN::CanRxMessage &message)
{
    std::string_view lengthWord = words.next();
    quint8 length = 0;
    if (!readId(id, message) || !removeBrackets(lengthWord, '[', ']')
        || !toNumber(lengthWord, length) || length > CAN::maxDataBytes)
        return false;
    message.fdFrame = lengthWord.size() > 1;
    std::string_view word = words.next();
    if (word == "remote") {
        message.remote = true;
        message.length = qint8(length);
        return true;
    }
    for (; message.length < length; word = words.next()) {
        if (!addByte(word, message))
            return false;
    }
    return true;
}

} // namespace

std::optional<CandumpLine> readCandumpLine(std::string_view line)
{
    Words words(line);
    CandumpLine result;
    std::string_view word = words.next();
    result.hasTime = !word.empty() && word.front() == '(';
    if (result.hasTime) {
        if (!readTime(word, result.message))
            return {};
        word = words.next();
    }
    result.message.line = lineOfInterface(word);
    word = words.next();
    const bool isLog = word.find('#') != word.npos;
    const bool read =
        isLog ? readLogFrame(word, result.message) : readScreenFrame(word, words, result.message);
    return read ? std::optional(result) : std::nullopt;
}
