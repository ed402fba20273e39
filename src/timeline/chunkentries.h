#pragma once

#include "datachunkglobal.h"

#include <QString>

#include <functional>

struct SaveJob;

/// Tells the directory of its folder of the chunk that \a job has just written whole. False, and
/// the chunk is as good, when the directory cannot be written. Takes some 3 ns for each message.
bool addSavedChunk(const SaveJob &job);

/// Moves the chunk \a from to \a to by calling \a move, whose result it returns, and has the
/// directory of the folder there know what the one here does. Any thread; nobody else may write to
/// the chunk meanwhile.
DATACHUNK_EXPORT bool moveChunk(const QString &from, const QString &to,
                                const std::function<bool()> &move);
