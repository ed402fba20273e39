#pragma once

#include <QStringList>

/// False, with a text printed, when something of that name is there already.
bool checkFree(const QString &fileName);

/// Moves each of the \a files to the name at the same place of \a names, and prints the names.
/// All of them are moved or, with a text printed, none: nothing is ever overwritten.
bool moveFiles(const QStringList &files, const QStringList &names);
