#pragma once

#include "messageblock.h"
#include "selectedmessages.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

/// Reads an input on a thread of its own, a few blocks ahead of whoever takes them.
class InputThread
{
public:
    /// The input and \a selection must live as long; a block has at most \a blockSize messages.
    InputThread(TraceInput &input, const Selection &selection, std::size_t blockSize);
    /// Ends the reading, at the next message that comes.
    ~InputThread();

    InputThread(const InputThread &) = delete;
    InputThread &operator=(const InputThread &) = delete;

    /// False when the system has no thread left.
    bool start();
    /// Waits for the next block, which is never empty. False at the end of the input.
    bool next(MessageBlock &block);
    /// What became of the reading, once next() has returned false.
    TraceReading::Result result() const { return outcome; }
    QString subject() const { return input.subject(); }

private:
    void run();
    bool add(const TraceItem &item);
    bool handOn();

    TraceInput &input;
    SelectedMessages selected;
    const std::size_t blockSize;
    MessageBlock filling; // of the thread

    std::mutex mutex;
    std::condition_variable changed;
    std::deque<MessageBlock> waiting; // guarded by mutex, as the two below
    bool isOver = false;
    bool isClosed = false;

    TraceReading::Result outcome = TraceReading::Complete; // of the thread until it is over
    std::thread thread;
};
