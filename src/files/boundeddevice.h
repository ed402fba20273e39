#pragma once

#include <QIODevice>

#include <functional>

/// Reads from another device up to a limit, and lets others work in between. It never reads ahead,
/// so reading from the other device can go on where this one stopped.
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

    /// The bytes read so far, plus those that the other device claims to have left.
    qint64 bytesRead() const { return done; }
    qint64 bytesLeft() const { return device.bytesAvailable(); }

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
