#pragma once

#include <QtGlobal>

#include <algorithm>
#include <atomic>
#include <functional>
#include <utility>

/// How far a long work on a file has come, and whether anybody wants it still.
class WorkProgress
{
public:
    using IsWanted = std::function<bool()>;

    /// The work goes on until it is cancelled or \a isWanted, which is asked again and again on the
    /// thread that works, returns false.
    explicit WorkProgress(IsWanted isWanted = {}) : isWanted(std::move(isWanted)) { }

    // The thread that works.

    /// What was done so far was preparation; the work itself is that many bytes, unpacked.
    void begin(qint64 bytes)
    {
        done = 0;
        total = bytes;
    }
    void advance(qint64 bytes) { done += bytes; }
    void setMessages(quint64 count) { read = count; }
    bool goesOn() const { return !cancelled && (!isWanted || isWanted()); }

    // Any thread.

    void cancel() { cancelled = true; }
    /// 0 while the work is being prepared.
    qint64 bytes() const { return total; }
    /// Never more than bytes().
    qint64 bytesDone() const { return std::min<qint64>(done, total); }
    quint64 messages() const { return read; }

private:
    const IsWanted isWanted;
    std::atomic<bool> cancelled{false};
    std::atomic<qint64> done{0};
    std::atomic<qint64> total{0};
    std::atomic<quint64> read{0};
};
