#include "messageprinter.h"

#include "terminal.h"

bool MessagePrinter::print(const CAN::CanRxMessage &message, const QString &note,
                           const FoundPlace *place)
{
    if (form == Text)
        return printText(message, note, place);
    TraceExport::appendJson(block, message, note, place);
    return flushWhenFull();
}

bool MessagePrinter::printText(const CAN::CanRxMessage &message, const QString &note,
                               const FoundPlace *place)
{
    const QString line = worker.getOldStyleTxtOutput(message);
    if (place) {
        block += QByteArray::number(place->position);
        block += place->isContext ? '-' : ':';
    }
    if (note.isEmpty()) {
        block += line.toLatin1(); // of numbers and words of the layout alone
        return flushWhenFull();
    }
    // The note is the last part of a line.
    return flush() && writeLine(line.chopped(1) + note);
}

bool MessagePrinter::printPart()
{
    block += "--\n";
    return flushWhenFull();
}

bool MessagePrinter::flushWhenFull()
{
    constexpr int blockSize = 64 * 1024;
    return block.size() < blockSize || flush();
}

bool MessagePrinter::flush()
{
    const bool isWritten = writeOutput(block);
    block.resize(0);
    return isWritten;
}
