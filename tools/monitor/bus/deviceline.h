#pragma once

#include "busline.h"
#include "devicereader.h"

/// An interface of a QtSerialBus plug-in as a bus line.
class DeviceLine : public BusLine
{
    Q_OBJECT
public:
    DeviceLine(const DeviceOptions &options, quint8 number, std::shared_ptr<MessageSink> sink);
    ~DeviceLine() override;

    void start() override;
    void stop() override;

private:
    void dropReader();
    void nowConnected();
    void nowFailed(const QString &text, const QString &advice);
    void nowLost(const QString &reason);
    void nowOverflowed();

    const DeviceOptions options;
    DeviceReader *reader = nullptr; // on its own thread
    bool overflowTold = false;
};
