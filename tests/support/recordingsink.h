#pragma once

#include "tracedump.h"
#include "tracereader.h"

#include <QStringList>

/// Keeps what a reader reports as texts, in order.
class RecordingSink : public TraceSink
{
public:
    bool message(const CAN::CanRxMessage &message) override
    {
        messages.append(message);
        events.append(messageDump(message));
        return true;
    }
    void note(quint32 number, const QString &text) override
    {
        events.append(QStringLiteral("%1: ").arg(number) + text);
    }
    void appendNote(quint32 number, const QString &text) override
    {
        events.append(QStringLiteral("%1: | ").arg(number) + text);
    }
    void fdFrames(bool seen) override { events.append(seen ? "fd: true" : "fd: false"); }
    bool turnEventLoop() override
    {
        ++turns;
        return true;
    }

    QVector<CAN::CanRxMessage> messages;
    QStringList events; ///< messages, notes and FD reports in the form of the .expected files
    int turns = 0;
};
