#pragma once

#include <QString>

/// How much memory there is.
namespace MemoryLimit {

/// Bytes of memory in the machine.
qint64 ofMachine();

/// The bytes that the control groups of this process, of both versions, allow it and others
/// together; the largest number where they set no limit. \a root is where the system's files
/// are looked for, "/" as a rule.
qint64 ofControlGroups(const QString &root);

} // namespace MemoryLimit
