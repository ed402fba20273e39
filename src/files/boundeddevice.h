#pragma once

#include <QIODevice>

#include <functional>

/// Hands on what another device reads, up to a limit, and lets others work meanwhile. It reads
/// nothing ahead, so that the other device goes on where this one has stopped.
class BoundedDevice : public QIODevice
{
public:
    /// \a keepGoing is asked every few MiB; false ends the reading.
    BoundedDevice(QIODevice &device, std::function<bool()> keepGoing);

    bool isSequential() const override { return true; }

    /// Reading fails once \a bytes have been read in all.
    void setLimit(qint64 bytes) { limit = bytes; }
    bool limitReached() const { return overLimit; }

    bool isGivenUp() const { return givenUp; }

    /// The bytes read so far.
    qint64 bytesRead() const { return done; }

protected:
    qint64 readData(char *data, qint64 maxSize) override;
    qint64 writeData(const char *data, qint64 maxSize) override;

private:
    QIODevice &device;
    const std::function<bool()> keepGoing;
    qint64 limit = 0;
    qint64 done = 0;
    qint64 lastAsked = 0;
    bool overLimit = false;
    bool givenUp = false;
};
