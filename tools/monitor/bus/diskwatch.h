#pragma once

#include "notices.h"
#include "taskthread.h"

#include <QObject>
#include <QTimer>

/// What is known of the disk that a recording is on.
struct DiskState
{
    bool isFolderThere = true;
    qint64 used = 0; ///< bytes of the recording's folder
    qint64 free = 0; ///< bytes left to this user
    qint64 size = 0; ///< of the disk; 0 where it is not known

    /// Whether so little is left that the user has to do something.
    bool isNearlyFull() const;
};

/// Looks at the disk now and then, without waiting for it, and warns before it is full.
class DiskWatch : public QObject
{
    Q_OBJECT
public:
    explicit DiskWatch(QObject *parent = nullptr);

    /// From now on this folder; what was told of the one before may be told again.
    void setFolder(const QString &folder);
    /// Looks again and again as long as that is on; in any case once now.
    void setOn(bool on);
    void look();

    const DiskState &state() const { return latest; }

signals:
    void looked();
    /// The folder of the recording was removed by somebody.
    void folderGone();
    void notice(const Notice &notice);

private:
    void take(const QString &ofFolder, const DiskState &state);

    QString folder;
    DiskState latest;
    bool isFullTold = false;
    bool isGoneTold = false;
    bool isLooking = false;
    QTimer timer;
    TaskThread worker; // last: what it does uses the others
};
