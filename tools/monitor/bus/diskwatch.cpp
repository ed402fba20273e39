#include "diskwatch.h"

#include <QDirIterator>
#include <QFileInfo>
#include <QLocale>
#include <QStorageInfo>

#include <utility>

namespace {

constexpr int millisecondsBetweenLooks = 5000;

DiskState stateOf(const QString &folder)
{
    DiskState state;
    state.isFolderThere = QFileInfo(folder).isDir();
    QDirIterator files(folder, QDir::Files);
    while (files.hasNext()) {
        files.next();
        state.used += files.fileInfo().size();
    }
    // Of a folder that is gone it is the one above that tells.
    const QStorageInfo disk(state.isFolderThere ? folder : QFileInfo(folder).path());
    if (disk.isValid() && disk.isReady()) {
        state.free = disk.bytesAvailable();
        state.size = qMax<qint64>(0, disk.bytesTotal());
    }
    return state;
}

} // namespace

bool DiskState::isNearlyFull() const
{
    constexpr qint64 enough = 1024LL * 1024 * 1024;
    constexpr qint64 part = 10;
    return size > 0 && free < qMin(enough, size / part);
}

DiskWatch::DiskWatch(QObject *parent) : QObject(parent)
{
    connect(&timer, &QTimer::timeout, this, &DiskWatch::look);
}

void DiskWatch::setFolder(const QString &path)
{
    folder = path;
    latest = {};
    isFullTold = false;
    isGoneTold = false;
    look();
}

void DiskWatch::setOn(bool on)
{
    if (on)
        timer.start(millisecondsBetweenLooks);
    else
        timer.stop();
    look();
}

// A disk that does not answer is asked once, not again and again.
void DiskWatch::look()
{
    if (folder.isEmpty() || std::exchange(isLooking, true))
        return;
    worker.run([this, path = folder](const TaskThread::GoesOn &) {
        const DiskState state = stateOf(path);
        QMetaObject::invokeMethod(
            this, [this, path, state] { take(path, state); }, Qt::QueuedConnection);
    });
}

void DiskWatch::take(const QString &ofFolder, const DiskState &state)
{
    isLooking = false;
    if (ofFolder != folder) {
        look();
        return;
    }
    latest = state;
    if (!state.isFolderThere && !std::exchange(isGoneTold, true))
        emit folderGone();
    if (state.isNearlyFull() && !std::exchange(isFullTold, true))
        emit notice({Notice::Warning,
                     tr("The disk of the recording is nearly full: %1 are left.")
                         .arg(QLocale().formattedDataSize(state.free)),
                     tr("Delete what is not needed, or save the recording to another disk.")});
    if (!state.isNearlyFull())
        isFullTold = false;
    emit looked();
}
