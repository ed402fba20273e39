#include "pacedline.h"

#include <system_error>

PacedLine::~PacedLine()
{
    endThread();
}

void PacedLine::start()
{
    if (isActive())
        return;
    isWanted = thread.joinable();
    if (isWanted)
        return;
    pacer.reset();
    feed->open();
    setState(Running);
    try {
        thread = std::thread([this] {
            const End end = run();
            QMetaObject::invokeMethod(
                this, [this, end] { ended(end); }, Qt::QueuedConnection);
        });
    } catch (const std::system_error &) {
        fail(tr("The system has no thread left."), tr("Close other programs and try again."));
    }
}

// The thread may be in the middle of reading, and is not waited for.
void PacedLine::stop()
{
    isWanted = false;
    feed->close();
    pacer.stop();
    if (isActive())
        setState(Stopped);
}

void PacedLine::setPaused(bool paused)
{
    if (!isActive())
        return;
    pacer.setPaused(paused);
    setState(paused ? Paused : Running);
}

void PacedLine::endThread()
{
    pacer.stop();
    if (thread.joinable())
        thread.join();
}

void PacedLine::ended(const End &end)
{
    thread.join();
    const bool wasStopped = pacer.isStopped();
    if (!wasStopped && !end.failure.isEmpty())
        fail(end.failure, end.advice);
    else
        setState(Stopped);
    if (!wasStopped && !end.remark.isEmpty())
        emit notice({Notice::Warning, end.remark, {}});
    if (isWanted)
        start();
}
