#pragma once

#include "messagefeed.h"

/// What a tolerant grammar makes of a line.
struct WrittenFrame
{
    CAN::CanRxMessage message;
    QString note; ///< what the line says behind its frame; mostly empty
    std::array<bool, ImportReport::changeCount> isChanged{};
    ImportReport::Reason reason = ImportReport::WrongShape; ///< why the line is no frame

    /// Always false, so that a grammar can return it.
    bool fail(ImportReport::Reason why)
    {
        reason = why;
        return false;
    }
};

/// Reads every line with a grammar, whose read(Text<Char>, WrittenFrame &) tells whether it is a
/// frame.
template <typename Grammar>
Outcome readWrittenFrames(LineSource &lines, TraceSink &sink, Grammar &grammar)
{
    MessageFeed feed(lines, sink);
    return readNumberedLines(lines, [&](auto line) {
        if (!feed.turnEventLoopWhenDue())
            return Outcome::givenUp();
        WrittenFrame frame;
        if (!grammar.read(line, frame)) {
            lines.leaveOut(frame.reason);
            return Outcome::done();
        }
        for (int i = 0; i < ImportReport::changeCount; ++i) {
            if (frame.isChanged[std::size_t(i)])
                lines.change(ImportReport::Change(i));
        }
        return feed.addMessageWithNote(frame.message, frame.note);
    });
}
