#pragma once

/// Keeps those apart who write to the same file, in whatever process: who writes records holds the
/// lock, and so does who puts another file in place of it. It ends with the handle. Where a file
/// system has no locks, nobody is kept apart.
namespace FileLock {

/// Locks an open file unless somebody else has it. False when somebody does.
bool tryLock(int handle);

} // namespace FileLock
