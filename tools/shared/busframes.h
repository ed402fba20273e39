#pragma once

#include "canrxmessage.h"

#include <QCanBusDevice>
#include <QCanBusFrame>

/// What QtSerialBus hands out, as this library has it.
namespace BusFrames {

/// The bus line of an interface: the number at the end of its name, else 0.
quint16 lineOf(const QString &interface);

/// Puts \a frame into \a message, but for the line. False for what is no frame of a bus.
bool toMessage(const QCanBusFrame &frame, CAN::CanRxMessage &message);

/// Whether an error frame of SocketCAN tells that the controller has lost frames in front of it.
bool isOverflow(const QCanBusFrame &frame);

/// The number of a network interface that is up; 0 for any other name.
quint32 runningInterface(const QString &name);

/// Connects a device whose interface was lost once more. Not from inside of its own signals, where
/// it may not be ready for it.
void connectAgain(QCanBusDevice &device);

} // namespace BusFrames
