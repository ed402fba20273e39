#pragma once

/// \file
/// Moving chunk files, and what a folder knows of them.

#include "datachunkglobal.h"

#include <QString>
#include <QStringList>

#include <functional>

/// Moves the chunk \a from to \a to by calling \a move, whose result it returns, and has the
/// directory of the folder there know what the one here does: no move fails for want of that. Any
/// thread; nobody else may write to the chunk meanwhile.
DATACHUNK_EXPORT bool moveChunk(const QString &from, const QString &to,
                                const std::function<bool()> &move);

/// The same for the chunks \a names of the folder \a from, which go to the folder \a to under their
/// names, one after the other until \a move returns false for one. Reads the directory once.
DATACHUNK_EXPORT bool moveChunks(const QString &from, const QString &to, const QStringList &names,
                                 const std::function<bool(const QString &name)> &move);

/// Has the directory of \a folder know all chunks in it; those that it does not know are read.
/// False when it cannot be written. Any thread; nobody may write to the chunks meanwhile.
DATACHUNK_EXPORT bool indexChunks(const QString &folder);
