#pragma once

#include <QFile>

/// Opens the file that \a file names for reading. False, with nothing opened, when it cannot be
/// read or is no regular file: a pipe or a device may block for ever and has no end to wait for.
bool openRegularFile(QFile &file);
