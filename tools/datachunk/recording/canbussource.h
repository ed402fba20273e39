#pragma once

#include "framesource.h"

#include <QCanBusDevice>
#include <QTimer>

#include <memory>

/// A CAN interface as the user asked for it.
struct CanBusOptions
{
    QString plugin;
    QString interface;
    bool fd = false;         ///< take CAN FD frames; socketcan does in any case
    quint32 bitrate = 0;     ///< in bit/s; 0 leaves it as it is
    quint32 dataBitrate = 0; ///< the same for the data of CAN FD frames
    int retry = 0;           ///< milliseconds between attempts to get a lost interface back; 0 ends
};

/// Frames of a CAN interface, through a QtSerialBus plug-in. The line of the messages is the
/// number at the end of the interface's name. An interface that fails or goes away ends them unless
/// it is to be got back; then there is a gap.
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
    void lose(const QString &text);
    void end(const QString &text);
    void look();
    void connectAgain();
    quint32 socketInterface() const;

    const CanBusOptions options;
    const quint16 line;
    std::unique_ptr<QCanBusDevice> device;
    bool connecting = false; // since then the plug-in may have a thread
    bool running = false;
    bool lost = false;            // and to be brought back
    quint32 networkInterface = 0; // that socketcan was seen to receive from; otherwise 0
    QTimer timer;                 // from one look at the interface to the next
    QString error;
    quint64 unreadable = 0;
};
