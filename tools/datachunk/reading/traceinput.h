#pragma once

#include "tracereading.h"
#include "tracetimeline.h"

#include <memory>
#include <vector>

/// What the user named, to be read in one go.
class TraceInput
{
public:
    using Result = TraceReading::Result;
    using Visit = std::function<bool(quint64 position, const TraceItem &item)>;

    /// How a path is named to the user, and what it is.
    struct Name
    {
        QString path;
        QString type;
    };

    virtual ~TraceInput() = default;

    virtual std::vector<Name> names() const = 0;
    /// What errors and the progress are said to be about.
    virtual QString subject() const = 0;

    /// To be called first; again, it only returns the same. Anything but Complete is told.
    virtual Result open() { return Result::Complete; }

    /// Null where it is read from front to back alone.
    virtual const TraceTimeline *timeline() const { return nullptr; }

    /// Has the messages of a timeline come with their bookmarks, which takes a look at all chunks
    /// that have notes; those of a stream always do.
    virtual void keepBookmarks() { }

    /// Hands on the messages at \a from and behind, the first one having position 0, until \a visit
    /// returns false, which is no failure.
    virtual Result forEachMessage(quint64 from, const Visit &visit) = 0;

    /// What became of the lines of a text, as JSON, once it is read; empty for other traces.
    virtual QByteArray report() const { return {}; }

    /// The part that was handed on, from 0 to 1; less than 0 where nobody knows. Any thread.
    virtual double part() const = 0;
};

/// The worse of two results.
inline TraceReading::Result worse(TraceReading::Result a, TraceReading::Result b)
{
    return std::max(a, b);
}

/// Tells how many messages are no longer there, and whether that is damage.
TraceReading::Result tellGone(const QString &subject, quint64 messages);

class StandardInput;

/// The traces of a command line, each checked.
class TraceInputs
{
public:
    /// How a chunk file or an archive is read that is named alone.
    enum Alone { AsStream, AsTimeline };

    /// Reads each path as \a options say, and "-" from standard input.
    explicit TraceInputs(TraceFile options = {});
    ~TraceInputs();

    /// Takes over the options of a trace. False, with the usage error printed, for wrong ones.
    bool readOptions(const QCommandLineParser &parser) { return readTraceOptions(parser, options); }

    /// False, with a text printed, when one of the paths is no trace. Chunk files, folders of them
    /// and archives are one input; as soon as something else is among the paths each is one.
    bool open(const QStringList &paths, Alone alone);
    /// The same with an input for each of the paths, chunk files and archives as streams.
    bool openEach(const QStringList &paths);

    const std::vector<std::unique_ptr<TraceInput>> &all() const { return inputs; }

private:
    struct Path
    {
        TraceFile file;
        bool isFolder = false;
    };

    bool check(const QString &name, Path &path);

    TraceFile options;
    std::unique_ptr<StandardInput> standardInput;
    std::vector<std::unique_ptr<TraceInput>> inputs;
};
