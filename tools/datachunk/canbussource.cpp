#include "canbussource.h"

#include "canframe.h"
#include "terminal.h"

#include <QCanBus>
#include <QVariant>

#include <algorithm>
#include <vector>

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

CanBusSource::CanBusSource(const CanBusOptions &options, QObject *parent)
    : FrameSource(parent), options(options), line(trailingNumber(options.interface))
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
    const bool fd = options.fd || options.plugin == QLatin1String("socketcan");
    if (fd)
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
        end(device->errorString());
    if (!error.isEmpty())
        return false;
    connect(device.get(), &QCanBusDevice::stateChanged, this, &CanBusSource::takeState);
    running = true;
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

void CanBusSource::takeError(QCanBusDevice::CanBusError code)
{
    // Errors of sending do not concern a recording.
    if (code != QCanBusDevice::NoError && code != QCanBusDevice::WriteError)
        end(device->errorString());
}

void CanBusSource::takeState(QCanBusDevice::CanBusDeviceState state)
{
    if (state == QCanBusDevice::UnconnectedState)
        end(Cli::tr("The CAN interface was disconnected."));
}

// Only the first error is reported; later ones follow from it.
void CanBusSource::end(const QString &text)
{
    if (!error.isEmpty())
        return;
    error = text.isEmpty() ? Cli::tr("The CAN interface failed.") : text;
    // A failure during the start is what start() returns.
    if (running)
        emit ended();
}
