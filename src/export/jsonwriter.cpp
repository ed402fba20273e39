#include "exportwriter.h"

#include "canerrortypes.h"
#include "canframe.h"
#include "jsontext.h"
#include "linebuffer.h"

#include <QJsonArray>

namespace {

// With its quotes.
QByteArray jsonString(const QString &text)
{
    const QByteArray array = jsonText(QJsonDocument(QJsonArray{text}));
    return array.mid(1, array.size() - 2);
}

void addTruth(LineBuffer &line, bool value)
{
    if (value)
        line.add("true");
    else
        line.add("false");
}

void addErrorType(LineBuffer &line, const CAN::CanRxMessage &message, QByteArray &text)
{
    const QString errorType =
        message.length > 0 ? canErrorTypes().value(message.data[0]) : QString();
    if (errorType.isEmpty())
        return;
    line.add(",\"errorType\":");
    line.flushTo(text);
    text += jsonString(errorType);
}

void addFront(LineBuffer &line, const CAN::CanRxMessage &message, QByteArray &text)
{
    const bool isError = message.id == CAN::errorFrameId;
    line.add("\"data\":\"");
    line.addSmallBytes(message.data, CAN::payloadSize(message));
    line.add("\",\"error\":");
    addTruth(line, isError);
    if (isError)
        addErrorType(line, message, text);
    line.add(",\"extended\":");
    addTruth(line, message.extended);
    line.add(",\"fd\":");
    addTruth(line, message.fdFrame);
    line.add(",\"flagB\":");
    addTruth(line, message.flagB);
    line.add(",\"flagC\":");
    addTruth(line, message.flagC);
    line.add(",\"flagD\":");
    addTruth(line, message.flagD);
    line.add(",\"id\":");
    line.addNumber(message.id);
    line.add(",\"length\":");
    line.addNumber(int(message.length));
    line.add(",\"line\":");
    line.addNumber(message.line);
    line.add(",\"microseconds\":");
    line.addNumber(message.microseconds);
}

class JsonLinesWriter : public ExportWriter
{
    bool append(const CAN::CanRxMessage &message, const QString &note, QByteArray &block) override
    {
        TraceExport::appendJson(block, message, note);
        return true;
    }

    void finish(QByteArray &) override { }
};

} // namespace

// What QJsonDocument would write, ten times faster: in the order of the names, as a QJsonObject has
// them.
void TraceExport::appendJson(QByteArray &text, const CAN::CanRxMessage &message,
                             const QString &note, const Place *place)
{
    LineBuffer line;
    line.add('{');
    if (place && place->isContext)
        line.add("\"context\":true,");
    addFront(line, message, text);
    if (!note.isEmpty()) {
        line.add(",\"note\":");
        line.flushTo(text);
        text += jsonString(note);
    }
    line.add(",\"number\":");
    line.addNumber(message.messageNumber);
    if (place) {
        line.add(",\"position\":");
        line.addNumber(place->position);
    }
    line.add(",\"remote\":");
    addTruth(line, message.remote);
    line.add(",\"seconds\":");
    line.addNumber(message.seconds);
    if (message.transmitted)
        line.add(",\"transmitted\":true");
    line.add("}\n");
    line.flushTo(text);
}

std::unique_ptr<ExportWriter> jsonLinesWriter()
{
    return std::make_unique<JsonLinesWriter>();
}
