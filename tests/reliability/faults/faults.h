#pragma once

#include <string>

/// Failing calls of the C library. A program that links this defines the calls itself, before the
/// library does, so that Qt and the ZIP library call them too; and it can be asked from within.
/// Only files below watchBelow() are touched; handles, volumes, threads and allocations everywhere.
namespace Faults {

enum Call {
    Open,
    Read,
    Write,
    Close,  ///< of a file open for writing that somebody would miss: of no directory of chunks
    Rename, ///< and link
    Unlink, ///< and rmdir
    Mkdir,
    List,  ///< the opening of a folder
    Entry, ///< the reading of the next one in a folder
    Stat,  ///< what asks for the kind, size or rights of a file
    Mode,  ///< what sets the rights of a file
    Sync,
    Space,  ///< the asking for a volume
    Handle, ///< whatever makes a file handle; for ever, the process has none to give from then on
    Thread,
    Allocate ///< of at least 1 MiB
};

/// A sanitizer keeps the memory to itself.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool allocationsFail = false;
#else
constexpr bool allocationsFail = true;
#endif

/// In place of an error number.
constexpr int shortCount = -1; ///< half of the bytes, at least one
constexpr int delay = -2;      ///< 10 ms
constexpr int end = -3;        ///< no byte, as from a file that has been cut meanwhile
constexpr int held = -4;       ///< until disarm(), as on a disk that does not answer

struct Fault
{
    Call call = Open;
    int effect = 0; ///< the errno of the failing call, or one of the above
    int at = 1;     ///< which of the calls since arm() is the first to fail
    /// An EINTR then comes with every second call, so that trying again helps.
    bool forEver = false;
};

/// Before any file is opened. Symbolic links are not followed.
void watchBelow(const std::string &folder);

void arm(const Fault &fault);

/// Whether the fault has been met since arm().
bool isMet();

/// Returns that.
bool disarm();

/// Number of the watched files that are open.
int openFiles();

} // namespace Faults
