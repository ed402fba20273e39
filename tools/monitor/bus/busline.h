#pragma once

#include "linefeed.h"
#include "notices.h"

#include <QObject>

/// Something that messages come from: an interface, a trace that is replayed, a generator. Lives on
/// the window's thread and works on another one.
class BusLine : public QObject
{
    Q_OBJECT
public:
    enum State {
        Stopped, ///< also one that has come to its end
        Starting,
        Running,
        Paused,
        Lost,  ///< and being brought back
        Failed ///< and not tried again by itself
    };

    /// \a number is the bus line of its messages.
    BusLine(const QString &name, quint8 number, std::shared_ptr<MessageSink> sink);

    const QString &name() const { return ownName; }
    quint8 number() const { return ownNumber; }
    /// The highest number that its messages have, where they have several.
    virtual int lastNumber() const { return ownNumber; }

    State state() const { return ownState; }
    /// Whether messages come, or may come by themselves.
    bool isActive() const { return ownState != Stopped && ownState != Failed; }
    /// What has happened in the states Lost and Failed.
    const QString &errorText() const { return error; }

    quint64 taken() const { return feed->taken(); }
    quint64 unreadable() const { return feed->unreadable(); }

    /// What has come of it is told by stateChanged().
    virtual void start() = 0;
    virtual void stop() = 0;

    /// Whether it can hold its messages back, and choose their speed.
    virtual bool isPaced() const { return false; }
    virtual void setPaused(bool) { }
    /// Times as fast as recorded; 0 for as fast as possible.
    virtual void setSpeed(double) { }
    virtual double speed() const { return 1; }

    /// The state for the user.
    QString stateText() const;

signals:
    void stateChanged();
    void notice(const Notice &notice);

protected:
    void setState(State state, const QString &errorText = {});
    /// The same as a failure that the user is told of.
    void fail(const QString &text, const QString &advice);

    const std::shared_ptr<LineFeed> feed;

private:
    const QString ownName;
    const quint8 ownNumber;
    State ownState = Stopped;
    QString error;
};
