#pragma once

#include <QtGlobal>

/// The most heap memory in bytes that was in use at once since the last resetHeapPeak(), beyond
/// what was in use then. Counts all threads of the program that links this.
qint64 heapPeak();

/// How often memory was taken since then; 0 where that cannot be counted.
qint64 heapCalls();

void resetHeapPeak();
