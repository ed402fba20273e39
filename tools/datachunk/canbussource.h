#pragma once

#include "framesource.h"

#include <QCanBusDevice>

#include <memory>

/// A CAN interface as the user asked for it.
struct CanBusOptions
{
    QString plugin;
    QString interface;
    bool fd = false;         ///< take CAN FD frames; socketcan does in any case
    quint32 bitrate = 0;     ///< in bit/s; 0 leaves it as it is
    quint32 dataBitrate = 0; ///< the same for the data of CAN FD frames
};

/// Frames of a CAN interface, through a QtSerialBus plug-in. The line of the messages is the
/// number at the end of the interface's name.
class CanBusSource : public FrameSource
{
    Q_OBJECT
public:
    explicit CanBusSource(const CanBusOptions &options, QObject *parent = nullptr);
    ~CanBusSource() override;

    QString name() const override { return options.interface; }
    bool start() override;
    bool setPaused(bool) override { return false; }
    QString errorText() const override { return error; }
    quint64 unreadableCount() const override { return unreadable; }

private:
    void configure();
    void takeFrames();
    void takeError(QCanBusDevice::CanBusError code);
    void takeState(QCanBusDevice::CanBusDeviceState state);
    void end(const QString &text);

    const CanBusOptions options;
    const quint16 line;
    std::unique_ptr<QCanBusDevice> device;
    bool connecting = false; // since then the plug-in may have a thread
    bool running = false;
    QString error;
    quint64 unreadable = 0;
};
