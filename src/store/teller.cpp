#include "teller.h"

#include <QCoreApplication>
#include <QThread>

bool Teller::tellErrors(const QStringList &texts) const
{
    for (const QString &text : texts) {
        if (!text.isEmpty() && !tell(&DatachunkHandler::newErrorMessage, text))
            return false;
    }
    return storeExists();
}

void Teller::later(const std::function<void()> &function) const
{
    if (store)
        QMetaObject::invokeMethod(store.data(), function, Qt::QueuedConnection);
}

void Teller::deliverWaiting() const
{
    if (isOnStoreThread())
        QCoreApplication::sendPostedEvents(store.data(), QEvent::MetaCall);
}

bool Teller::isOnStoreThread() const
{
    return store && store->thread() == QThread::currentThread();
}

void Teller::onStoreThread(const std::function<void()> &function) const
{
    if (isOnStoreThread())
        function();
    else
        later(function);
}
