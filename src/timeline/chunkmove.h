#pragma once

#include "datachunkglobal.h"

#include <QString>

#include <functional>

/// Moves the chunk \a from to \a to by calling \a move, whose result it returns, and has the
/// directory of the folder there know what the one here does: no move fails for want of that. Any
/// thread; nobody else may write to the chunk meanwhile.
DATACHUNK_EXPORT bool moveChunk(const QString &from, const QString &to,
                                const std::function<bool()> &move);
