#include "canbussource.h"

#include "busframes.h"
#include "terminal.h"

#include <QCanBus>
#include <QVariant>

#include <utility>
#include <vector>

namespace {

const QLatin1String socketCan("socketcan");

} // namespace

CanBusSource::CanBusSource(const CanBusOptions &options, QObject *parent)
    : FrameSource(parent), options(options), line(BusFrames::lineOf(options.interface))
{
    const QStringList plugins = QCanBus::instance()->plugins();
    if (plugins.contains(options.plugin))
        device.reset(QCanBus::instance()->createDevice(options.plugin, options.interface, &error));
    else
        error = Cli::tr("There is no CAN bus plug-in \"%1\". The plug-ins are: %2")
                    .arg(options.plugin, plugins.join(QLatin1String(", ")));
}

CanBusSource::~CanBusSource()
{
    if (!device)
        return;
    device->disconnect(this);
    // Some plug-ins crash the program when a device whose connection failed is deleted while its
    // thread still runs. Such a device is kept until the program ends.
    if (connecting && device->state() == QCanBusDevice::UnconnectedState) {
        static std::vector<QCanBusDevice *> kept;
        kept.push_back(device.release());
    }
}

void CanBusSource::configure()
{
    if (options.fd || options.plugin == socketCan)
        device->setConfigurationParameter(QCanBusDevice::CanFdKey, true);
    if (options.bitrate != 0)
        device->setConfigurationParameter(QCanBusDevice::BitRateKey, options.bitrate);
    if (options.dataBitrate != 0)
        device->setConfigurationParameter(QCanBusDevice::DataBitRateKey, options.dataBitrate);
}

bool CanBusSource::start()
{
    if (!device)
        return false;
    connect(device.get(), &QCanBusDevice::framesReceived, this, &CanBusSource::takeFrames);
    connect(device.get(), &QCanBusDevice::errorOccurred, this, &CanBusSource::takeError);
    configure();
    connecting = error.isEmpty();
    if (connecting && !device->connectDevice())
        lose(device->errorString());
    if (!error.isEmpty())
        return false;
    connect(device.get(), &QCanBusDevice::stateChanged, this, &CanBusSource::takeState);
    running = true;
    networkInterface = socketInterface();
    connect(&timer, &QTimer::timeout, this, &CanBusSource::look);
    if (options.retry != 0)
        timer.start(options.retry);
    return true;
}

void CanBusSource::takeFrames()
{
    const QVector<QCanBusFrame> frames = device->readAllFrames();
    for (const QCanBusFrame &frame : frames) {
        CAN::CanRxMessage message;
        message.line = line;
        if (BusFrames::isOverflow(frame))
            emit gap(Cli::tr("The receive buffer of the CAN controller ran over."));
        if (BusFrames::toMessage(frame, message))
            emit received(message);
        else
            ++unreadable;
    }
}

void CanBusSource::takeError(QCanBusDevice::CanBusError code)
{
    // Errors of sending do not concern a recording.
    if (code != QCanBusDevice::NoError && code != QCanBusDevice::WriteError)
        lose(device->errorString());
}

void CanBusSource::takeState(QCanBusDevice::CanBusDeviceState state)
{
    if (state == QCanBusDevice::UnconnectedState)
        lose(Cli::tr("The CAN interface was disconnected."));
    if (state != QCanBusDevice::ConnectedState || !lost)
        return;
    lost = false;
    networkInterface = socketInterface();
    printError(name(), Cli::tr("The CAN interface is back, and the recording goes on."));
}

void CanBusSource::lose(const QString &text)
{
    const QString reason = text.isEmpty() ? Cli::tr("The CAN interface failed.") : text;
    if (options.retry == 0 || !running) {
        end(reason);
        return;
    }
    if (std::exchange(lost, true))
        return;
    emit gap(Cli::tr("%1 The recording goes on when the interface is back.").arg(reason));
}

// The device is connected anew from here only: inside its own signals it may not be ready for it.
void CanBusSource::look()
{
    if (lost)
        connectAgain();
    else if (networkInterface == 0)
        networkInterface = socketInterface();
    else if (socketInterface() != networkInterface)
        // The plug-in does not tell that its socket receives nothing any more.
        lose(Cli::tr("The CAN interface went down or was unplugged."));
}

quint32 CanBusSource::socketInterface() const
{
    return options.plugin == socketCan ? BusFrames::runningInterface(options.interface) : 0;
}

void CanBusSource::connectAgain()
{
    // A socket can be bound to an interface that is down.
    if (networkInterface == 0 || socketInterface() != 0)
        BusFrames::connectAgain(*device);
}

// Only the first error is reported; later ones follow from it.
void CanBusSource::end(const QString &text)
{
    if (!error.isEmpty())
        return;
    error = text;
    // A failure during the start is what start() returns.
    if (running)
        emit ended();
}
