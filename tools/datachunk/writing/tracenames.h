#pragma once

#include <QString>

/// What a trace is called by its path: the name of the file or folder, without its suffix and
/// without that of a compression.
QString traceName(const QString &path);
