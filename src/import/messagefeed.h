#pragma once

#include "tracereader.h"

/// Hands the messages of one trace on to the sink, numbered from 0.
class MessageFeed
{
public:
    explicit MessageFeed(TraceSink &sink) : sink(sink) { }

    /// Turns the event loop as long as the number of messages is a multiple of 1000. False when
    /// the reader has to stop.
    bool turnEventLoopWhenDue()
    {
        constexpr quint32 messagesBetweenTurns = 1000;
        return messageCounter % messagesBetweenTurns != 0 || sink.turnEventLoop();
    }

    /// Gives \a message the next number.
    ReadResult addMessageToMessageList(CAN::CanRxMessage &message)
    {
        message.messageNumber = messageCounter++;
        return sink.message(message) ? ReadResult::done() : ReadResult::stopped();
    }

    /// The same with a note on the message, unless it is empty.
    ReadResult addMessageWithNote(CAN::CanRxMessage &message, const QString &note)
    {
        if (!note.isEmpty())
            sink.note(messageCounter, note);
        return addMessageToMessageList(message);
    }

    /// Adds to the note on the message that comes next.
    void appendNote(const QString &text) { sink.appendNote(messageCounter, text); }

private:
    TraceSink &sink;
    quint32 messageCounter = 0;
};
