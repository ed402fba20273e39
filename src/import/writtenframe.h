#pragma once

#include "lineparts.h"
#include "messagefeed.h"
#include "writtenfields.h"

/// What a tolerant grammar makes of a line.
struct WrittenFrame
{
    /// With the number of its place among the frames, which a grammar may replace.
    CAN::CanRxMessage message;
    QString note; ///< on this frame, or on the next one where the line is none; mostly empty
    std::array<bool, ImportReport::changeCount> isChanged{};
    ImportReport::Reason reason = ImportReport::WrongShape; ///< why the line is no frame

    /// Always false, so that a grammar can return it.
    bool fail(ImportReport::Reason why)
    {
        reason = why;
        return false;
    }

    /// False for a time for which a record has no room.
    bool setTime(qint64 microseconds)
    {
        return WrittenFields::trySetTime(message, microseconds)
            || fail(ImportReport::UnparsableNumber);
    }

    /// Sets an identifier, which is also extended where it has more than 11 bits. False for one of
    /// more than 29.
    bool setId(quint32 id, bool isExtended)
    {
        message.id = id;
        message.extended = isExtended || id > WrittenFields::maxStandardId;
        return id <= WrittenFields::maxExtendedId || fail(ImportReport::UnparsableNumber);
    }

    /// False for a length of more than 64 bytes.
    bool setLength(quint32 length, ImportReport::Reason whyTooLong)
    {
        message.length = qint8(std::min(length, quint32(CAN::maxDataBytes)));
        return length <= quint32(CAN::maxDataBytes) || fail(whyTooLong);
    }

    /// Sets the length of a frame without CAN FD, in which every code above 8 stands for 8 bytes.
    void setClassicLength(quint32 code)
    {
        message.length = qint8(std::min(code, WrittenFields::maxClassicBytes));
        isChanged[ImportReport::ChangedLength] = code > WrittenFields::maxClassicBytes;
    }

    void setErrorFrame() { WrittenFields::setErrorFrame(message); }

    /// Reads \a count parts, at most 64, from \a first on as the payload.
    template <typename Char>
    bool readBytes(const LineFields::Parts<Char> &parts, int first, int count, unsigned base)
    {
        if (parts.size() - first < count)
            return fail(ImportReport::TooFewFields);
        const Text<Char> *part = parts.constData() + first;
        for (int i = 0; i < count; ++i, ++part) {
            if (!WrittenFields::readByte(*part, base, message.data[i]))
                return fail(ImportReport::UnparsableNumber);
        }
        return true;
    }
};

/// Reads every line with a grammar, whose read(Text<Char>, WrittenFrame &) tells whether it is a
/// frame, and tells at the end whether any was a CAN FD frame.
template <typename Grammar>
Outcome readWrittenFrames(LineSource &lines, TraceSink &sink, Grammar &grammar)
{
    const CAN::CanRxMessage blank;
    WrittenFrame frame;
    bool hasFdFrame = false;
    MessageFeed feed(lines, sink);
    const Outcome result = readNumberedLines(lines, [&](auto line) {
        if (!feed.turnEventLoopWhenDue())
            return Outcome::givenUp();
        frame.message = blank;
        frame.message.messageNumber = feed.nextNumber();
        frame.isChanged = {};
        frame.reason = ImportReport::WrongShape;
        const bool isFrame = grammar.read(line, frame);
        if (!frame.note.isEmpty()) {
            feed.appendNote(frame.note);
            frame.note.clear();
        }
        if (!isFrame) {
            lines.leaveOut(frame.reason);
            return Outcome::done();
        }
        for (int i = 0; i < ImportReport::changeCount; ++i) {
            if (frame.isChanged[std::size_t(i)])
                lines.change(ImportReport::Change(i));
        }
        hasFdFrame |= frame.message.fdFrame;
        return feed.addNumbered(frame.message);
    });
    if (result.isDone())
        sink.fdFrames(hasFdFrame);
    return result;
}
