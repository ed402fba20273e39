#pragma once

#include "canrxmessage.h"

#include <QString>

#include <deque>
#include <functional>
#include <map>

/// Messages that wait for a trigger. Those around a time are found without looking at the others,
/// however many there are.
class CaptureRing
{
public:
    using Visit = std::function<void(const CAN::CanRxMessage &message, const QString &note)>;

    bool isEmpty() const { return held.empty(); }
    quint64 count() const { return held.size(); }
    /// Memory of all that is held.
    qint64 bytes() const;

    /// \a time is that of the message, in microseconds.
    void add(const CAN::CanRxMessage &message, qint64 time, const QString &note);

    /// Takes out the messages from time \a begin to \a end, both included, in the order in which
    /// they came. Each gets the notes of those in front of it, too; returns what is left of them.
    QString takeBetween(qint64 begin, qint64 end, const Visit &visit);

    /// Time of the message that came first; there has to be one.
    qint64 oldestTime() const { return arrivals.front().first; }
    /// Its note goes to the one behind it, or is returned where there is none.
    QString dropOldest();

    void clear();

private:
    using Key = std::pair<qint64, quint64>; // time and number of a message
    using Notes = std::map<quint64, QString>;

    QString takeNotesUntil(quint64 number);
    void forgetTaken();

    std::map<Key, CAN::CanRxMessage> held;
    std::deque<Key> arrivals; // the first one is held, others may have been taken out
    Notes notes;              // of some messages, by their numbers
    qint64 noteBytes = 0;
    quint64 nextNumber = 0;
};

/// Two notes as one; what a note must not grow beyond is left out.
QString joinedNotes(const QString &first, const QString &second);
