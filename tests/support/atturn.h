#pragma once

#include <QObject>

#include <functional>
#include <utility>

/// Calls a function in one of the event turns that somebody makes, counted from 0, or in the first
/// one behind it in which \a isDue holds.
class AtTurn : public QObject
{
public:
    AtTurn(int turn, std::function<void()> act, std::function<bool()> isDue = {})
        : act(std::move(act)), isDue(std::move(isDue)), turnsLeft(turn)
    {
        startTimer(0);
    }

    bool hasActed() const { return acted; }
    /// How many turns there have been since.
    int turnsBehind() const { return behind; }

private:
    void timerEvent(QTimerEvent *) override
    {
        if (acted) {
            ++behind;
            return;
        }
        if (turnsLeft > 0)
            --turnsLeft;
        else if (!isDue || isDue()) {
            acted = true;
            act();
        }
    }

    const std::function<void()> act;
    const std::function<bool()> isDue;
    int turnsLeft;
    bool acted = false;
    int behind = 0;
};
