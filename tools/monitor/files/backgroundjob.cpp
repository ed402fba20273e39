#include "backgroundjob.h"

#include <system_error>
#include <utility>

BackgroundJob::BackgroundJob(const QString &title, Work work, QObject *parent)
    : QObject(parent), ownTitle(title), work(std::move(work))
{
}

BackgroundJob::~BackgroundJob()
{
    ownControl.isCancelled = true;
    if (thread.joinable())
        thread.join();
}

void BackgroundJob::start()
{
    started = true;
    try {
        thread = std::thread([this] { run(); });
    } catch (const std::system_error &) {
        finish({Notice::Failure, tr("%1: the system has no thread left.").arg(ownTitle),
                tr("Close other programs and try again.")});
    }
}

void BackgroundJob::run()
{
    Notice notice;
    try {
        notice = work(ownControl);
    } catch (const std::bad_alloc &) {
        notice = {Notice::Failure, tr("%1: the memory is not enough.").arg(ownTitle),
                  tr("Close other programs or traces and try again.")};
    }
    QMetaObject::invokeMethod(
        this, [this, notice] { finish(notice); }, Qt::QueuedConnection);
}

void BackgroundJob::cancel()
{
    ownControl.isCancelled = true;
    if (started || ended)
        return;
    started = true;
    finish({});
}

void BackgroundJob::finish(const Notice &notice)
{
    ended = true;
    emit finished(notice);
}
