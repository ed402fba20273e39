#pragma once

#include <functional>

class QObject;
class QThread;

/// The thread on which all of QtSerialBus runs, for the whole program: plug-ins may block, need not
/// be safe for several threads, and some keep on it what all their devices share.
namespace DeviceThread {

/// Started when it is first wanted, ended with the application object. For the window's thread.
QThread *thread();

/// Has \a work done there.
void run(const std::function<void()> &work);

} // namespace DeviceThread
