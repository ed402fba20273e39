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

    /// To be called first. Anything but Complete is told.
    virtual Result open() { return Result::Complete; }

    /// Null where it is read from front to back alone.
    virtual const TraceTimeline *timeline() const { return nullptr; }

    /// Hands on the messages at \a from and behind, the first one having position 0, until \a visit
    /// returns false, which is no failure. Those of a timeline come without their bookmarks.
    virtual Result forEachMessage(quint64 from, const Visit &visit) = 0;
};

/// The worse of two results.
inline TraceReading::Result worse(TraceReading::Result a, TraceReading::Result b)
{
    return std::max(a, b);
}

/// Tells how many messages are no longer there, and whether that is damage.
TraceReading::Result tellGone(const QString &subject, quint64 messages);

/// The traces of a command line, each checked.
class TraceInputs
{
public:
    /// How a chunk file or an archive is read that is named alone.
    enum Alone { AsStream, AsTimeline };

    /// Reads each path as \a options say.
    explicit TraceInputs(TraceFile options = {}) : options(std::move(options)) { }

    /// Takes over the options of a trace. False, with the usage error printed, for wrong ones.
    bool readOptions(const QCommandLineParser &parser) { return readTraceOptions(parser, options); }

    /// False, with a text printed, when one of the paths is no trace. Chunk files, folders of them
    /// and archives are one input; as soon as something else is among the paths each is one.
    bool open(const QStringList &paths, Alone alone);

    const std::vector<std::unique_ptr<TraceInput>> &all() const { return inputs; }

private:
    TraceFile options;
    std::vector<std::unique_ptr<TraceInput>> inputs;
};
