#include "deviceline.h"

#include "devicethread.h"

#include <QThread>

#include <utility>

DeviceLine::DeviceLine(const DeviceOptions &options, quint8 number,
                       std::shared_ptr<MessageSink> sink)
    : BusLine(tr("%1 (%2)").arg(options.interface, options.plugin), number, std::move(sink)),
      options(options)
{
}

DeviceLine::~DeviceLine()
{
    dropReader();
}

void DeviceLine::start()
{
    if (isActive())
        return;
    dropReader();
    feed->open();
    reader = new DeviceReader(options, number(), feed);
    reader->moveToThread(DeviceThread::thread());
    connect(reader, &DeviceReader::connected, this, &DeviceLine::nowConnected);
    connect(reader, &DeviceReader::lost, this, &DeviceLine::nowLost);
    connect(reader, &DeviceReader::overflowed, this, &DeviceLine::nowOverflowed);
    connect(reader, &DeviceReader::failed, this, &DeviceLine::nowFailed);
    setState(Starting);
    DeviceThread::run([reader = reader] { reader->open(); });
}

void DeviceLine::stop()
{
    dropReader();
    setState(Stopped);
}

// It is deleted where it lives, whenever the plug-in lets it.
void DeviceLine::dropReader()
{
    feed->close();
    if (!reader)
        return;
    reader->disconnect(this);
    std::exchange(reader, nullptr)->deleteLater();
}

// What a reader has told may still be on its way when it is dropped, so it is asked for each time
// whether anything is expected.
void DeviceLine::nowConnected()
{
    if (!isActive())
        return;
    const bool wasLost = state() == Lost;
    setState(Running);
    if (wasLost)
        emit notice(
            {Notice::Information, tr("%1 is back, and the recording goes on.").arg(name()), {}});
}

void DeviceLine::nowFailed(const QString &text, const QString &advice)
{
    if (isActive())
        fail(text, advice);
}

void DeviceLine::nowLost(const QString &reason)
{
    if (!isActive())
        return;
    const QString text = reason.isEmpty() ? tr("%1 was lost.").arg(name())
                                          : tr("%1 was lost: %2").arg(name(), reason);
    setState(Lost, text);
    emit notice({Notice::Warning, text,
                 tr("Plug the adapter in again: the recording goes on as soon as it is back.")});
}

void DeviceLine::nowOverflowed()
{
    if (std::exchange(overflowTold, true))
        return;
    emit notice(
        {Notice::Warning,
         tr("The controller of %1 had no room for all frames, and some are lost.").arg(name()),
         tr("Close programs that keep the computer busy.")});
}
