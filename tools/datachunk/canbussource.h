#pragma once

#include "framesource.h"

#include <QCanBusDevice>

#include <memory>

/// Frames of a CAN interface, through a QtSerialBus plug-in. The line of the messages is the
/// number at the end of the interface's name.
class CanBusSource : public FrameSource
{
    Q_OBJECT
public:
    CanBusSource(const QString &plugin, const QString &interface, QObject *parent = nullptr);

    QString name() const override { return interface; }
    bool start() override;
    bool setPaused(bool) override { return false; }
    QString errorText() const override { return error; }
    quint64 unreadableCount() const override { return unreadable; }

private:
    void takeFrames();
    void stopOnError(QCanBusDevice::CanBusError code);
    void stopWhenDisconnected(QCanBusDevice::CanBusDeviceState state);

    const QString interface;
    const quint16 line;
    std::unique_ptr<QCanBusDevice> device;
    QString error;
    quint64 unreadable = 0;
};
