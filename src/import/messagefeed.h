#pragma once

#include "tracereader.h"

/// Hands the messages of one trace on to the sink, numbered from 0.
class MessageFeed
{
public:
    MessageFeed(LineSource &lines, TraceSink &sink, quint32 messagesBetweenTurns = 1000)
        : lines(lines), sink(sink), messagesBetweenTurns(messagesBetweenTurns)
    {
    }

    /// Turns the event loop if the number of messages so far is a multiple of messagesBetweenTurns.
    /// Called for each line, it turns again at every line that brings no message. False when the
    /// reader has to stop.
    bool turnEventLoopWhenDue()
    {
        return messageCounter % messagesBetweenTurns != 0 || sink.turnEventLoop();
    }

    /// Gives \a message the next number.
    Outcome addMessageToMessageList(CAN::CanRxMessage &message)
    {
        message.messageNumber = messageCounter;
        return addNumbered(message);
    }

    /// The number for the message that comes next.
    quint32 nextNumber() const { return messageCounter; }

    /// Leaves \a message the number that it has.
    Outcome addNumbered(const CAN::CanRxMessage &message)
    {
        ++messageCounter;
        lines.keep();
        return sink.message(message) ? Outcome::done() : Outcome::givenUp();
    }

    /// The same with a note on the message, unless it is empty.
    Outcome addMessageWithNote(CAN::CanRxMessage &message, const QString &note)
    {
        if (!note.isEmpty())
            addNote(note);
        return addMessageToMessageList(message);
    }

    /// Adds to the note on the message that comes next.
    void appendNote(const QString &text)
    {
        sink.appendNote(messageCounter, text);
        ++lines.report().notes;
    }

private:
    void addNote(const QString &text)
    {
        sink.note(messageCounter, text);
        ++lines.report().notes;
    }

    LineSource &lines;
    TraceSink &sink;
    const quint32 messagesBetweenTurns;
    quint32 messageCounter = 0;
};
