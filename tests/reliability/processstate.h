#pragma once

#include <QMap>
#include <QString>

/// How many a process holds of the things that a store may forget to give back: threads, files,
/// QObjects since countObjects(), folders of stores, and bytes where the allocator counts them.
using ProcessState = QMap<QString, qint64>;

/// Starts counting QObjects.
void countObjects();

/// Ends the global pool's idle threads first.
ProcessState processState();

/// What there is more of than before; empty when everything was given back. Waits for threads
/// that are on their way out.
QString leftBehind(const ProcessState &before);
