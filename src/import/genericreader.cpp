#include "genericreader.h"

#include "linefields.h"
#include "messagefeed.h"
#include "writtenframe.h"

#include <QVector>

using namespace LineFields;

namespace {

constexpr char separator = ' ';
constexpr char commentPrefix = '#';

enum class Field { Time, Line, PrefixedId, HexadecimalId, DecimalId, Length, Data, Ignored };

struct FieldCode
{
    const char *code;
    Field field;
};

constexpr FieldCode fieldCodes[] = {
    {"t", Field::Time},          {"n", Field::Line},      {"0xi", Field::PrefixedId},
    {"i", Field::HexadecimalId}, {"I", Field::DecimalId}, {"l", Field::Length},
    {"d", Field::Data},
};

struct Layout
{
    QVector<Field> fields;
    int fewestFields;
};

Field fieldFor(const QString &code)
{
    for (const FieldCode &known : fieldCodes) {
        if (code == QLatin1String(known.code))
            return known.field;
    }
    return Field::Ignored;
}

Layout layoutFor(const QString &formatDescription)
{
    Layout layout;
    for (const QString &code : formatDescription.split(QLatin1Char(separator)))
        layout.fields.append(fieldFor(code));
    // The number of codes is kept in a byte. The last field may be missing: a frame without
    // payload ends before it.
    layout.fewestFields = quint8(layout.fields.size()) - 1;
    return layout;
}

template <typename Char> void readTime(Text<Char> text, CAN::CanRxMessage &message)
{
    const Parts<Char> parts = splitKeepingEmpty<'.'>(text);
    message.seconds = qint32(toNumber<qint64>(parts[0]));
    // Taken as written: traces of this kind have all six digits.
    if (parts.size() > 1)
        message.microseconds = qint32(toNumber<qint64>(parts[1]));
}

template <typename Char>
bool readData(const Parts<Char> &fields, int first, CAN::CanRxMessage &message)
{
    bool ok = true;
    for (int i = 0; ok && i < message.length; ++i)
        storeByte(message, i, quint8(toNumber<quint32>(partAt(fields, first + i), 16, &ok)));
    return ok;
}

// False when the field has to be a number and cannot be read as one.
template <typename Char>
bool readField(Field field, const Parts<Char> &fields, int index, CAN::CanRxMessage &message)
{
    const Text<Char> text = partAt(fields, index);
    bool ok = true;
    switch (field) {
    case Field::Time:
        readTime(text, message);
        break;
    case Field::Line:
        message.line = quint16(toNumber<quint32>(text, 10, &ok));
        break;
    case Field::PrefixedId:
        message.id = quint32(toNumber<quint64>(text, 0, &ok));
        break;
    case Field::HexadecimalId:
        message.id = toNumber<quint32>(text, 16, &ok);
        break;
    case Field::DecimalId:
        message.id = toNumber<quint32>(text, 10, &ok);
        break;
    case Field::Length:
        message.length = qint8(toNumber<qint32>(text, 10, &ok));
        break;
    case Field::Data:
        return readData(fields, index, message);
    case Field::Ignored:
        break;
    }
    return ok;
}

template <typename Char>
Outcome importCANMsgLine(const Parts<Char> &fields, const Layout &layout, MessageFeed &feed)
{
    if (fields.size() < layout.fewestFields)
        return Outcome::wrongLine();
    if (!feed.turnEventLoopWhenDue())
        return Outcome::givenUp();
    CAN::CanRxMessage message;
    for (int i = 0; i < layout.fields.size(); ++i) {
        if (!readField(layout.fields[i], fields, i, message))
            return Outcome::done();
    }
    message.extended = message.id > maxStandardId;
    return feed.addMessageToMessageList(message);
}

class GenericGrammar
{
public:
    GenericGrammar(LineSource &lines, Layout layout)
        : channels(lines), layout(std::move(layout)) { }

    template <typename Char> bool read(Text<Char> line, WrittenFrame &frame)
    {
        const Parts<Char> words = splitAtBlanks(line);
        if (words.isEmpty())
            return false;
        if (words[0].front() == commentPrefix)
            return frame.fail(ImportReport::Comment);
        if (words.size() < layout.fewestFields)
            return frame.fail(ImportReport::TooFewFields);
        for (int i = 0; i < layout.fields.size(); ++i) {
            if (!readWord(words, i, frame))
                return false;
        }
        return true;
    }

private:
    template <typename Char> bool readWord(const Parts<Char> &words, int index, WrittenFrame &frame)
    {
        const Text<Char> word = partAt(words, index);
        const Field field = layout.fields[index];
        quint32 number = 0;
        qint64 microseconds = 0;
        switch (field) {
        case Field::Ignored:
            return true;
        case Field::Data:
            return readPayload(words, index, frame);
        case Field::Line:
            frame.message.line = word.empty() ? quint16(0) : channels.lineOf(word);
            return true;
        case Field::Time:
            return WrittenFields::readSeconds(word, microseconds,
                                              frame.isChanged[ImportReport::ChangedTime])
                ? frame.setTime(microseconds)
                : frame.fail(ImportReport::UnparsableNumber);
        case Field::Length:
            return WrittenFields::readNumber(word, 10, number)
                ? frame.setLength(number, ImportReport::UnparsableNumber)
                : frame.fail(ImportReport::UnparsableNumber);
        case Field::PrefixedId:
        case Field::HexadecimalId:
            return WrittenFields::readHex(word, number)
                ? frame.setId(number, false)
                : frame.fail(ImportReport::UnparsableNumber);
        case Field::DecimalId:
            return WrittenFields::readNumber(word, 10, number)
                ? frame.setId(number, false)
                : frame.fail(ImportReport::UnparsableNumber);
        }
        return false;
    }

    template <typename Char>
    bool readPayload(const Parts<Char> &words, int first, WrittenFrame &frame) const
    {
        const bool isLast = first + 1 == layout.fields.size();
        frame.isChanged[ImportReport::ChangedPayload] =
            isLast && words.size() > first + frame.message.length;
        return frame.readBytes(words, first, frame.message.length, 16);
    }

    WrittenFields::Channels channels;
    const Layout layout;
};

} // namespace

Outcome readGenericFormatTolerantly(LineSource &lines, TraceSink &sink, const TraceRequest &request)
{
    GenericGrammar grammar(lines, layoutFor(request.formatDescription));
    return readWrittenFrames(lines, sink, grammar);
}

Outcome readGenericFormat(LineSource &lines, TraceSink &sink, const TraceRequest &request)
{
    const Layout layout = layoutFor(request.formatDescription);
    MessageFeed feed(lines, sink);
    return readNumberedLines(lines, [&](auto line) {
        const auto fields = splitAtBlanks(line);
        if (fields.isEmpty() || fields[0].front() == commentPrefix)
            return Outcome::done();
        return importCANMsgLine(fields, layout, feed);
    });
}
