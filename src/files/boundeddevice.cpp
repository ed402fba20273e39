#include "boundeddevice.h"

#include <algorithm>
#include <utility>

BoundedDevice::BoundedDevice(QIODevice &device, std::function<bool()> keepGoing)
    : device(device), keepGoing(std::move(keepGoing))
{
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

qint64 BoundedDevice::readData(char *data, qint64 maxSize)
{
    constexpr qint64 bytesBetweenQuestions = 2LL * 1024 * 1024;
    if (done - lastAsked >= bytesBetweenQuestions) {
        lastAsked = done;
        givenUp = givenUp || !keepGoing();
    }
    const qint64 wanted = std::min(maxSize, limit - done);
    overLimit = overLimit || wanted < maxSize;
    if (givenUp || wanted < 0)
        return -1;
    const qint64 got = device.read(data, wanted);
    done += std::max<qint64>(got, 0);
    return got;
}

qint64 BoundedDevice::writeData(const char *, qint64)
{
    return -1;
}
