#include "interfacefinder.h"

#include "devicethread.h"

#include <QCanBus>
#include <QCoreApplication>
#include <QPointer>

namespace {

void lookAt(const QString &plugin, QStringList &names, QStringList &descriptions)
{
    const QList<QCanBusDeviceInfo> devices = QCanBus::instance()->availableDevices(plugin);
    for (const QCanBusDeviceInfo &device : devices) {
        names.append(device.name());
        QString text = device.description();
        if (!device.serialNumber().isEmpty())
            text += QLatin1Char(' ') + device.serialNumber();
        descriptions.append(text.trimmed());
    }
}

// On the window's thread, where \a receiver may be gone by then.
void post(const QPointer<InterfaceFinder> &receiver, const std::function<void()> &work)
{
    const auto deliver = [receiver, work] {
        if (receiver)
            work();
    };
    QMetaObject::invokeMethod(QCoreApplication::instance(), deliver, Qt::QueuedConnection);
}

} // namespace

void InterfaceFinder::look()
{
    const QPointer<InterfaceFinder> self(this);
    const int which = ++current;
    DeviceThread::run([self, which] {
        const QStringList plugins = QCanBus::instance()->plugins();
        for (const QString &plugin : plugins) {
            QStringList names;
            QStringList descriptions;
            lookAt(plugin, names, descriptions);
            post(self, [self, which, plugin, names, descriptions] {
                self->takeFound(which, plugin, names, descriptions);
            });
        }
        post(self, [self, which] { self->takeDone(which); });
    });
}

void InterfaceFinder::takeFound(int which, const QString &plugin, const QStringList &names,
                                const QStringList &descriptions)
{
    if (which == current)
        emit found(plugin, names, descriptions);
}

void InterfaceFinder::takeDone(int which)
{
    if (which == current)
        emit done();
}
