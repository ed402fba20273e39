#pragma once

#include <QStringList>

// Checks of the files that the user names, made before anything is done. Each prints the reason
// when it returns false.

/// Whether that is a regular file that can be opened: others may block for ever or never end.
bool checkReadable(const QString &fileName);

/// The same for a chunk file.
bool checkChunkFile(const QString &fileName);

/// Whether nothing has that name, not even a link that leads nowhere.
bool checkFree(const QString &fileName);

/// Whether \a target is none of the \a inputs, by whatever names and links.
bool checkNoInput(const QString &target, const QStringList &inputs);

/// Whether standard output does not go into one of the \a inputs.
bool checkOutputIsNoInput(const QStringList &inputs);
