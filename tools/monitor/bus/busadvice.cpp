#include "busadvice.h"

#include "busframes.h"
#include "devicereader.h"

#include <QCanBus>

#include <net/if.h>

namespace {

constexpr quint32 usualBitRate = 500000;

QStringList interfacesOf(const QString &plugin)
{
    QStringList names;
    const QList<QCanBusDeviceInfo> found = QCanBus::instance()->availableDevices(plugin);
    for (const QCanBusDeviceInfo &device : found)
        names.append(device.name());
    return names;
}

bool speaksOf(const QString &reason, const QStringList &words)
{
    for (const QString &word : words) {
        if (reason.contains(word, Qt::CaseInsensitive))
            return true;
    }
    return false;
}

} // namespace

BusAdvice BusAdvice::of(const DeviceOptions &options, const QString &reason)
{
    const QStringList plugins = QCanBus::instance()->plugins();
    BusAdvice result;
    if (!plugins.contains(options.plugin)) {
        result.text = tr("There is no CAN bus plug-in \"%1\".").arg(options.plugin);
        result.advice = plugins.isEmpty()
            ? tr("Install the plug-ins of Qt's serial bus module.")
            : tr("The plug-ins here are: %1.").arg(plugins.join(QLatin1String(", ")));
        return result;
    }
    return options.plugin == QLatin1String("socketcan") ? ofSocket(options, reason)
                                                        : ofPlugin(options, reason);
}

BusAdvice BusAdvice::ofSocket(const DeviceOptions &options, const QString &reason)
{
    const QString &name = options.interface;
    const quint32 bitRate = options.bitRate != 0 ? options.bitRate : usualBitRate;
    const bool isVirtual = name.startsWith(QLatin1String("vcan"));
    BusAdvice result;
    if (if_nametoindex(name.toLocal8Bit().constData()) == 0) {
        result.text = tr("There is no CAN interface %1.").arg(name);
        result.advice = isVirtual
            ? tr("Make it: \"sudo ip link add %1 type vcan\", then \"sudo ip link set %1 up\".")
                  .arg(name)
            : others(options);
    } else if (BusFrames::runningInterface(name) == 0) {
        result.text = tr("The CAN interface %1 is down.").arg(name);
        result.advice = isVirtual
            ? tr("Bring it up: \"sudo ip link set %1 up\".").arg(name)
            : tr("Bring it up: \"sudo ip link set %1 up type can bitrate %2\".")
                  .arg(name, QString::number(bitRate));
    } else {
        return ofPlugin(options, reason);
    }
    return result;
}

BusAdvice BusAdvice::ofPlugin(const DeviceOptions &options, const QString &reason)
{
    BusAdvice result;
    result.text = tr("%1 of %2 could not be connected.").arg(options.interface, options.plugin);
    if (!reason.isEmpty())
        result.text += QLatin1Char(' ') + reason;
    if (speaksOf(reason, {QStringLiteral("permission"), QStringLiteral("not permitted")}))
        result.advice = tr("You may not use this device: have yourself added to the group that "
                           "owns it, and log in again.");
    else if (speaksOf(reason,
                      {QStringLiteral("library"), QStringLiteral("shared object"),
                       QStringLiteral(".so")}))
        result.advice = tr("The library of the adapter's maker is missing: install his driver for "
                           "Linux and connect again.");
    else
        result.advice = others(options);
    return result;
}

QString BusAdvice::others(const DeviceOptions &options)
{
    QStringList names = interfacesOf(options.plugin);
    names.removeAll(options.interface);
    if (names.isEmpty())
        return tr("Plug the adapter in and connect again; no other interface is found.");
    return tr("Plug the adapter in and connect again, or take one of these: %1.")
        .arg(names.join(QLatin1String(", ")));
}
