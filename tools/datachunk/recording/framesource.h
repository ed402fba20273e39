#pragma once

#include "canrxmessage.h"

#include <QObject>

/// Where a recording gets its frames from.
class FrameSource : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    /// As the user knows it.
    virtual QString name() const = 0;

    /// False when it cannot be opened; errorText() tells why.
    virtual bool start() = 0;

    /// Holds frames back, or lets them come again. False for a source that cannot wait.
    virtual bool setPaused(bool paused) = 0;

    virtual QString errorText() const = 0;

    /// Number of pieces of input that held no frame.
    virtual quint64 unreadableCount() const = 0;

signals:
    void received(const CAN::CanRxMessage &message);
    /// Frames are missing in front of those that come next: why, as a sentence.
    void gap(const QString &text);
    /// No more frames come; errorText() is empty at a regular end.
    void ended();
};
