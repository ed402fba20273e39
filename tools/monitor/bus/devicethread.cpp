#include "devicethread.h"

#include <QCoreApplication>
#include <QThread>

namespace {

struct Running
{
    QThread *thread = nullptr;
    QObject *worker = nullptr; // lives on it
};

Running &running()
{
    static Running instance;
    return instance;
}

void end()
{
    constexpr unsigned long moment = 2000;
    Running &now = running();
    now.worker->deleteLater();
    now.thread->quit();
    // A plug-in that does not return must not keep the program from ending.
    if (now.thread->wait(moment))
        delete now.thread;
    now = {};
}

void begin()
{
    Running &now = running();
    if (now.thread)
        return;
    now.thread = new QThread;
    now.thread->setObjectName(QStringLiteral("buses"));
    now.worker = new QObject;
    now.worker->moveToThread(now.thread);
    now.thread->start();
    qAddPostRoutine(end);
}

} // namespace

QThread *DeviceThread::thread()
{
    begin();
    return running().thread;
}

void DeviceThread::run(const std::function<void()> &work)
{
    begin();
    QMetaObject::invokeMethod(running().worker, work, Qt::QueuedConnection);
}
