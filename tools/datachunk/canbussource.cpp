#include "canbussource.h"

#include "canframe.h"
#include "terminal.h"

#include <QCanBus>

#include <algorithm>

namespace {

quint16 trailingNumber(const QString &name)
{
    int start = name.size();
    while (start > 0 && name.at(start - 1).isDigit())
        --start;
    return name.mid(start).toUShort();
}

bool toMessage(const QCanBusFrame &frame, CAN::CanRxMessage &message)
{
    const QCanBusFrame::FrameType type = frame.frameType();
    if (type != QCanBusFrame::DataFrame && type != QCanBusFrame::RemoteRequestFrame
        && type != QCanBusFrame::ErrorFrame)
        return false;
    message.seconds = qint32(frame.timeStamp().seconds());
    message.microseconds = qint32(frame.timeStamp().microSeconds());
    message.id = type == QCanBusFrame::ErrorFrame ? CAN::errorFrameId : frame.frameId();
    message.extended = frame.hasExtendedFrameFormat();
    message.remote = type == QCanBusFrame::RemoteRequestFrame;
    message.fdFrame = frame.hasFlexibleDataRateFormat();
    message.transmitted = frame.hasLocalEcho();
    const QByteArray payload = frame.payload().left(CAN::maxDataBytes);
    message.length = qint8(payload.size());
    std::copy(payload.begin(), payload.end(), message.data);
    return true;
}

} // namespace

CanBusSource::CanBusSource(const QString &plugin, const QString &interface, QObject *parent)
    : FrameSource(parent), interface(interface), line(trailingNumber(interface))
{
    if (!QCanBus::instance()->plugins().contains(plugin)) {
        error = Cli::tr("There is no CAN bus plug-in \"%1\". The plug-ins are: %2")
                    .arg(plugin, QCanBus::instance()->plugins().join(QLatin1String(", ")));
        return;
    }
    device.reset(QCanBus::instance()->createDevice(plugin, interface, &error));
}

bool CanBusSource::start()
{
    if (!device)
        return false;
    connect(device.get(), &QCanBusDevice::framesReceived, this, &CanBusSource::takeFrames);
    if (!device->connectDevice()) {
        error = device->errorString();
        return false;
    }
    connect(device.get(), &QCanBusDevice::errorOccurred, this, &CanBusSource::stopOnError);
    connect(device.get(), &QCanBusDevice::stateChanged, this, &CanBusSource::stopWhenDisconnected);
    return true;
}

void CanBusSource::takeFrames()
{
    const QVector<QCanBusFrame> frames = device->readAllFrames();
    for (const QCanBusFrame &frame : frames) {
        CAN::CanRxMessage message;
        message.line = line;
        if (toMessage(frame, message))
            emit received(message);
        else
            ++unreadable;
    }
}

void CanBusSource::stopOnError(QCanBusDevice::CanBusError code)
{
    // A frame that was not sent is no concern of a recording.
    if (code == QCanBusDevice::NoError || code == QCanBusDevice::WriteError)
        return;
    error = device->errorString();
    emit ended();
}

void CanBusSource::stopWhenDisconnected(QCanBusDevice::CanBusDeviceState state)
{
    if (state != QCanBusDevice::UnconnectedState)
        return;
    error = Cli::tr("The CAN interface was disconnected.");
    emit ended();
}
