#pragma once

#include <QObject>

#include <functional>
#include <utility>

/// Calls a function in one of the event turns that somebody makes, counted from 0.
class AtTurn : public QObject
{
public:
    AtTurn(int turn, std::function<void()> act) : act(std::move(act)), turnsLeft(turn)
    {
        startTimer(0);
    }

    bool hasActed() const { return turnsLeft < 0; }

private:
    void timerEvent(QTimerEvent *) override
    {
        if (turnsLeft-- == 0)
            act();
    }

    const std::function<void()> act;
    int turnsLeft;
};
