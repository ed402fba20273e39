#include "exportwriter.h"

#include "canframe.h"
#include "linebuffer.h"

namespace {

QByteArray quotedWhereNeeded(const QString &note)
{
    QByteArray text = note.toUtf8();
    const bool needsQuotes =
        text.contains(',') || text.contains('"') || text.contains('\n') || text.contains('\r');
    return needsQuotes ? '"' + text.replace('"', "\"\"") + '"' : text;
}

void addFlag(LineBuffer &line, bool isSet)
{
    line.add(isSet ? "1," : "0,");
}

// A row holds the fields of a record as they are, so that there is nothing that it cannot say but
// a length of no payload.
void addFields(LineBuffer &line, const CAN::CanRxMessage &message)
{
    const bool isError = message.id == CAN::errorFrameId;
    line.addSeconds(CAN::timeOf(message));
    line.add(',');
    line.addNumber(message.line);
    line.add(message.transmitted ? ",Tx," : ",Rx,");
    if (!isError)
        line.addHex(message.id);
    line.add(',');
    addFlag(line, message.extended);
    addFlag(line, message.fdFrame);
    addFlag(line, message.flagC);
    addFlag(line, message.flagB);
    addFlag(line, message.remote);
    addFlag(line, isError);
    line.addNumber(CAN::payloadSize(message));
    line.add(',');
    line.addBytes(message.data, CAN::payloadSize(message));
    line.add(',');
}

class CsvWriter : public ExportWriter
{
    bool append(const CAN::CanRxMessage &message, const QString &note, QByteArray &block) override
    {
        writeTitles(block);
        LineBuffer line;
        addFields(line, message);
        if (CAN::payloadSize(message) != message.length)
            lose(TraceExport::Length);
        if (message.flagD)
            lose(TraceExport::Flags);
        if (!note.isEmpty()) {
            line.flushTo(block);
            block += quotedWhereNeeded(note);
        }
        line.add('\n');
        line.flushTo(block);
        return true;
    }

    void finish(QByteArray &block) override { writeTitles(block); }

    void writeTitles(QByteArray &block)
    {
        if (hasTitles)
            return;
        hasTitles = true;
        block += "time,line,direction,id,extended,fd,brs,esi,remote,error,length,data,note\n";
    }

    bool hasTitles = false;
};

} // namespace

std::unique_ptr<ExportWriter> csvWriter()
{
    return std::make_unique<CsvWriter>();
}
