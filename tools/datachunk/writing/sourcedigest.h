#pragma once

#include "parquettrace.h"
#include "traceinput.h"

#include <atomic>
#include <thread>

/// What is told of where messages come from. The files are read a second time for it, on a thread
/// of its own, while the messages are read.
class SourceDigest
{
public:
    /// \a inputs must live as long.
    explicit SourceDigest(std::vector<TraceInput *> inputs);
    /// Gives up what is not done.
    ~SourceDigest();

    SourceDigest(const SourceDigest &) = delete;
    SourceDigest &operator=(const SourceDigest &) = delete;

    /// Waits for the digests. What an import reports is there once the inputs are read. Of several
    /// names and digests each has a line; folders and standard input have no digest.
    ParquetTrace::Source source();

private:
    void run();
    QByteArray digestOf(const QString &fileName) const;

    const std::vector<TraceInput *> inputs;
    QStringList names;
    QByteArrayList digests; // of the thread until it is joined
    std::atomic<bool> isGivenUp{false};
    std::thread thread;
};
