#include "busframes.h"

#include "canframe.h"

#include <algorithm>

#include <net/if.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

quint16 BusFrames::lineOf(const QString &interface)
{
    int start = interface.size();
    while (start > 0 && interface.at(start - 1).isDigit())
        --start;
    return interface.mid(start).toUShort();
}

bool BusFrames::toMessage(const QCanBusFrame &frame, CAN::CanRxMessage &message)
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

// Of the error frames of SocketCAN: the class "controller", and in the second byte "RX overflow".
bool BusFrames::isOverflow(const QCanBusFrame &frame)
{
    constexpr char receiveOverflow = 1;
    return frame.frameType() == QCanBusFrame::ErrorFrame
        && frame.error().testFlag(QCanBusFrame::ControllerError) && frame.payload().size() > 1
        && (frame.payload().at(1) & receiveOverflow) != 0;
}

quint32 BusFrames::runningInterface(const QString &name)
{
    ifreq request = {};
    const QByteArray bytes = name.toLocal8Bit();
    if (bytes.isEmpty() || bytes.size() >= int(sizeof(request.ifr_name)))
        return 0;
    std::copy(bytes.begin(), bytes.end(), request.ifr_name);
    const int socket = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    const bool isUp =
        ioctl(socket, SIOCGIFFLAGS, &request) == 0 && (request.ifr_flags & IFF_UP) != 0;
    const bool isFound = isUp && ioctl(socket, SIOCGIFINDEX, &request) == 0;
    if (socket >= 0)
        close(socket);
    return isFound ? quint32(request.ifr_ifindex) : 0;
}

void BusFrames::connectAgain(QCanBusDevice &device)
{
    if (device.state() != QCanBusDevice::UnconnectedState)
        device.disconnectDevice();
    if (device.state() == QCanBusDevice::UnconnectedState)
        device.connectDevice();
}
