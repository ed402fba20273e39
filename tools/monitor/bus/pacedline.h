#pragma once

#include "busline.h"
#include "pacer.h"

#include <thread>

/// A line that makes its messages on a thread of its own.
class PacedLine : public BusLine
{
    Q_OBJECT
public:
    using BusLine::BusLine;
    ~PacedLine() override;

    void start() override;
    void stop() override;
    bool isPaced() const override { return true; }
    void setPaused(bool paused) override;
    void setSpeed(double speed) override { pacer.setSpeed(speed); }
    double speed() const override { return pacer.speed(); }

protected:
    /// How the work has ended.
    struct End
    {
        QString failure; ///< empty when it has not failed
        QString advice;
        QString remark; ///< for the user, when it has come to its end all the same
    };

    /// Makes the messages until it is stopped; on the other thread.
    virtual End run() = 0;

    /// To be called by the destructors of derived classes, whose run() it ends.
    void endThread();

    Pacer pacer;

private:
    void ended(const End &end);

    std::thread thread;
    bool isWanted = false; // again, once the thread has ended
};
