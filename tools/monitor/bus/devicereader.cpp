#include "devicereader.h"

#include "busadvice.h"
#include "busframes.h"

#include <QCanBus>
#include <QVariant>

#include <utility>

namespace {

constexpr int millisecondsBetweenLooks = 1000;

} // namespace

DeviceReader::DeviceReader(const DeviceOptions &options, quint8 line,
                           std::shared_ptr<LineFeed> feed)
    : options(options), line(line), feed(std::move(feed)), timer(new QTimer(this))
{
    connect(timer, &QTimer::timeout, this, &DeviceReader::look);
}

DeviceReader::~DeviceReader()
{
    if (!device)
        return;
    device->disconnect(this);
    const bool isOpen = device->state() != QCanBusDevice::UnconnectedState;
    if (isOpen)
        device->disconnectDevice();
    // Some plug-ins crash the program when a device whose connection failed is deleted while its
    // thread still runs. Such a device is kept until the program ends.
    if (isConnecting && !isOpen) {
        static std::vector<QCanBusDevice *> kept;
        kept.push_back(device.release());
    }
}

void DeviceReader::open()
{
    QString error;
    if (QCanBus::instance()->plugins().contains(options.plugin))
        device.reset(QCanBus::instance()->createDevice(options.plugin, options.interface, &error));
    if (!device) {
        lose(error);
        return;
    }
    connect(device.get(), &QCanBusDevice::framesReceived, this, &DeviceReader::takeFrames);
    connect(device.get(), &QCanBusDevice::errorOccurred, this, &DeviceReader::takeError);
    connect(device.get(), &QCanBusDevice::stateChanged, this, &DeviceReader::takeState);
    configure();
    timer->start(millisecondsBetweenLooks);
    // A plug-in may tell of a wrong name in its constructor, when nobody listens yet.
    if (device->error() != QCanBusDevice::NoError) {
        lose(device->errorString());
        return;
    }
    isConnecting = true;
    if (!device->connectDevice())
        lose(device->errorString());
}

void DeviceReader::configure()
{
    if (options.fd || options.plugin == QLatin1String("socketcan"))
        device->setConfigurationParameter(QCanBusDevice::CanFdKey, true);
    if (options.bitRate != 0)
        device->setConfigurationParameter(QCanBusDevice::BitRateKey, options.bitRate);
    if (options.dataBitRate != 0)
        device->setConfigurationParameter(QCanBusDevice::DataBitRateKey, options.dataBitRate);
}

void DeviceReader::takeFrames()
{
    const QVector<QCanBusFrame> frames = device->readAllFrames();
    const qint64 now = wallTimeNow();
    std::vector<CAN::CanRxMessage> messages;
    messages.reserve(std::size_t(frames.size()));
    for (const QCanBusFrame &frame : frames) {
        CAN::CanRxMessage message;
        if (BusFrames::isOverflow(frame))
            emit overflowed();
        if (!BusFrames::toMessage(frame, message))
            continue;
        message.line = line;
        clock.set(message, now);
        messages.push_back(message);
    }
    feed->addUnreadable(quint64(frames.size()) - messages.size());
    feed->add(messages);
}

void DeviceReader::takeError(QCanBusDevice::CanBusError code)
{
    // Nothing is sent.
    if (code != QCanBusDevice::NoError && code != QCanBusDevice::WriteError)
        lose(device->errorString());
}

void DeviceReader::takeState(QCanBusDevice::CanBusDeviceState state)
{
    if (state == QCanBusDevice::UnconnectedState)
        lose(device->errorString());
    if (state != QCanBusDevice::ConnectedState)
        return;
    wasConnected = true;
    isLost = false;
    clock = {};
    networkInterface = socketInterface();
    // A socket can be bound to an interface that is down, and then waits for ever.
    if (options.plugin == QLatin1String("socketcan") && networkInterface == 0)
        wasConnected = false;
    if (wasConnected)
        emit connected();
    else
        lose({});
}

void DeviceReader::lose(const QString &reason)
{
    if (hasEnded)
        return;
    if (wasConnected) {
        if (!std::exchange(isLost, true))
            emit lost(reason);
        return;
    }
    hasEnded = true;
    timer->stop();
    const BusAdvice told = BusAdvice::of(options, reason);
    emit failed(told.text, told.advice);
}

// The device is connected anew from here only: inside its own signals it may not be ready for it.
void DeviceReader::look()
{
    constexpr int mostLooks = 15;
    if (!wasConnected && ++looks > mostLooks)
        lose(tr("It does not answer."));
    else if (isLost)
        connectAgain();
    else if (networkInterface != 0 && socketInterface() != networkInterface)
        // The plug-in does not tell that its socket receives nothing any more.
        lose(tr("The interface went down or was unplugged."));
}

quint32 DeviceReader::socketInterface() const
{
    return options.plugin == QLatin1String("socketcan")
        ? BusFrames::runningInterface(options.interface)
        : 0;
}

void DeviceReader::connectAgain()
{
    if (networkInterface == 0 || socketInterface() != 0)
        BusFrames::connectAgain(*device);
}
