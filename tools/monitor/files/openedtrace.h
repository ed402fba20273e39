#pragma once

#include "showntrace.h"

#include <QTimer>

/// Chunk files, folders of them and archives, shown where they lie.
class OpenedTrace : public ShownTrace
{
    Q_OBJECT
public:
    OpenedTrace(const TraceTimeline &timeline, const QStringList &paths, QObject *parent = nullptr);

    QStringList paths() const override { return ownPaths; }
    bool isGrowing() const override { return timer.isActive(); }

signals:
    /// All of it is known.
    void complete();

private:
    void look();
    void tellProblems(const QStringList &problems);

    const QStringList ownPaths;
    QTimer timer; // runs until all is known
};
