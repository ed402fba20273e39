#include "messagejson.h"

#include "errorframes.h"
#include "jsontext.h"

#include <QJsonArray>

#include <charconv>
#include <cstring>
#include <iterator>

namespace {

// All of a message but its note, which may be of any length.
class Buffer
{
public:
    template <int size> void add(const char (&literal)[size])
    {
        std::memcpy(end, literal, size - 1);
        end += size - 1;
    }

    template <typename Number> void addNumber(Number value)
    {
        end = std::to_chars(end, std::end(bytes), value).ptr;
    }

    void addTruth(bool value)
    {
        if (value)
            add("true");
        else
            add("false");
    }

    void addHex(const quint8 *data, int count)
    {
        static constexpr char digits[] = "0123456789abcdef";
        for (int i = 0; i < count; ++i) {
            *end++ = digits[data[i] >> 4];
            *end++ = digits[data[i] & 15];
        }
    }

    void flushTo(QByteArray &text)
    {
        text.append(bytes, int(end - bytes));
        end = bytes;
    }

private:
    char bytes[1024];
    char *end = bytes;
};

// With its quotes.
QByteArray jsonString(const QString &text)
{
    const QByteArray array = jsonText(QJsonDocument(QJsonArray{text}));
    return array.mid(1, array.size() - 2);
}

void addFront(Buffer &buffer, const CAN::CanRxMessage &message, QByteArray &text)
{
    buffer.add("\"data\":\"");
    buffer.addHex(message.data, CAN::payloadSize(message));
    buffer.add("\",\"error\":");
    buffer.addTruth(message.id == CAN::errorFrameId);
    const QString errorType = errorTypeName(message);
    if (!errorType.isEmpty()) {
        buffer.add(",\"errorType\":");
        buffer.flushTo(text);
        text += jsonString(errorType);
    }
    buffer.add(",\"extended\":");
    buffer.addTruth(message.extended);
    buffer.add(",\"fd\":");
    buffer.addTruth(message.fdFrame);
    buffer.add(",\"flagB\":");
    buffer.addTruth(message.flagB);
    buffer.add(",\"flagC\":");
    buffer.addTruth(message.flagC);
    buffer.add(",\"flagD\":");
    buffer.addTruth(message.flagD);
    buffer.add(",\"id\":");
    buffer.addNumber(message.id);
    buffer.add(",\"length\":");
    buffer.addNumber(int(message.length));
    buffer.add(",\"line\":");
    buffer.addNumber(message.line);
    buffer.add(",\"microseconds\":");
    buffer.addNumber(message.microseconds);
}

} // namespace

// In the order of the names, as a QJsonObject has them.
void appendMessageJson(QByteArray &text, const CAN::CanRxMessage &message, const QString &note,
                       const FoundPlace *place)
{
    Buffer buffer;
    buffer.add("{");
    if (place && place->isContext)
        buffer.add("\"context\":true,");
    addFront(buffer, message, text);
    if (!note.isEmpty()) {
        buffer.add(",\"note\":");
        buffer.flushTo(text);
        text += jsonString(note);
    }
    buffer.add(",\"number\":");
    buffer.addNumber(message.messageNumber);
    if (place) {
        buffer.add(",\"position\":");
        buffer.addNumber(place->position);
    }
    buffer.add(",\"remote\":");
    buffer.addTruth(message.remote);
    buffer.add(",\"seconds\":");
    buffer.addNumber(message.seconds);
    buffer.add("}\n");
    buffer.flushTo(text);
}
