#pragma once

#include "busclock.h"
#include "linefeed.h"

#include <QCanBusDevice>
#include <QTimer>

/// An interface of a QtSerialBus plug-in.
struct DeviceOptions
{
    QString plugin;
    QString interface;
    quint32 bitRate = 0;     ///< in bit/s; 0 leaves it as it is
    quint32 dataBitRate = 0; ///< the same for the data of CAN FD frames
    bool fd = false;         ///< socketcan takes CAN FD frames in any case
};

/// Takes the frames of an interface, and brings it back when it goes away. Lives on the thread of
/// the devices, and sends nothing.
class DeviceReader : public QObject
{
    Q_OBJECT
public:
    DeviceReader(const DeviceOptions &options, quint8 line, std::shared_ptr<LineFeed> feed);
    ~DeviceReader() override;

    void open();

signals:
    /// For the first time, or again.
    void connected();
    /// The interface went away, and is tried again and again.
    void lost(const QString &reason);
    /// It was never there, and is not tried again.
    void failed(const QString &text, const QString &advice);
    /// The controller had no room for all frames.
    void overflowed();

private:
    void configure();
    void takeFrames();
    void takeError(QCanBusDevice::CanBusError code);
    void takeState(QCanBusDevice::CanBusDeviceState state);
    void lose(const QString &reason);
    void look();
    void connectAgain();
    quint32 socketInterface() const;

    const DeviceOptions options;
    const quint8 line;
    const std::shared_ptr<LineFeed> feed;
    std::unique_ptr<QCanBusDevice> device;
    QTimer *const timer;
    BusClock clock;
    int looks = 0;             // without a connection so far
    bool isConnecting = false; // the device was told to
    bool wasConnected = false;
    bool isLost = false;
    bool hasEnded = false;
    quint32 networkInterface = 0;
};
