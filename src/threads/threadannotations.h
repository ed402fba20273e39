#pragma once

// What a lock guards and who takes it, in words that clang's -Wthread-safety checks. Other
// compilers see nothing of them.
#ifdef __clang__
#define DATACHUNK_THREAD_ATTRIBUTE(...) __attribute__((__VA_ARGS__))
#else
#define DATACHUNK_THREAD_ATTRIBUTE(...)
#endif

/// A class whose objects are locks, and one that holds a lock as long as it lives.
#define CAPABILITY(name) DATACHUNK_THREAD_ATTRIBUTE(capability(name))
#define SCOPED_CAPABILITY DATACHUNK_THREAD_ATTRIBUTE(scoped_lockable)

/// A member that is read only under \a lock, and written only where that is held for writing.
/// Clang takes a call of one of the member's own functions for reading, whatever it does.
#define GUARDED_BY(lock) DATACHUNK_THREAD_ATTRIBUTE(guarded_by(lock))

/// A function whose caller holds the lock, for writing or at least for reading.
#define REQUIRES(...) DATACHUNK_THREAD_ATTRIBUTE(requires_capability(__VA_ARGS__))
#define REQUIRES_SHARED(...) DATACHUNK_THREAD_ATTRIBUTE(requires_shared_capability(__VA_ARGS__))

/// A function that takes the lock itself: whoever holds it already would wait for ever.
#define EXCLUDES(...) DATACHUNK_THREAD_ATTRIBUTE(locks_excluded(__VA_ARGS__))

/// A function that takes a lock and keeps it, or gives it back.
#define ACQUIRE(...) DATACHUNK_THREAD_ATTRIBUTE(acquire_capability(__VA_ARGS__))
#define ACQUIRE_SHARED(...) DATACHUNK_THREAD_ATTRIBUTE(acquire_shared_capability(__VA_ARGS__))
#define RELEASE(...) DATACHUNK_THREAD_ATTRIBUTE(release_capability(__VA_ARGS__))
#define RELEASE_SHARED(...) DATACHUNK_THREAD_ATTRIBUTE(release_shared_capability(__VA_ARGS__))

/// A function that goes without the lock on purpose. A comment beside it says why that is safe.
#define NO_THREAD_SAFETY_ANALYSIS DATACHUNK_THREAD_ATTRIBUTE(no_thread_safety_analysis)
