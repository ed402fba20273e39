#pragma once

#include "backgroundjob.h"
#include "traceexpression.h"
#include "tracesorting.h"
#include "tracestream.h"
#include "tracetimeline.h"

#include <functional>
#include <limits>
#include <optional>

/// The messages of something that is to be written, one after the other.
class TraceItems
{
public:
    /// False to stop.
    using Take = std::function<bool(const TraceItem &item)>;
    /// Told now and then which part of the messages, from 0 to 1, has been handed on. False to
    /// stop.
    using GoesOn = std::function<bool(double part)>;

    virtual ~TraceItems() = default;

    /// Hands on all of them; may be called again for the same ones. False when there are none to be
    /// had.
    virtual bool forEach(const Take &take, const GoesOn &goesOn) = 0;

    /// What is missing from the last time, a sentence each.
    QStringList problems() const { return ownProblems; }

protected:
    QStringList ownProblems;
};

/// Which messages of a timeline are wanted.
struct TraceSelection
{
    quint64 first = 0;                                     ///< position
    quint64 behind = std::numeric_limits<quint64>::max();  ///< the position behind the last one
    qint64 firstTime = std::numeric_limits<qint64>::min(); ///< in microseconds
    qint64 lastTime = std::numeric_limits<qint64>::max();  ///< included
    std::optional<TraceExpression> expression;             ///< none for all of these
    std::optional<QVector<quint64>> positions;             ///< only these, rising

    /// Whether nothing is left out.
    bool isAll() const;
};

/// Those of a timeline. What comes to it meanwhile is left out.
class TimelineItems : public TraceItems
{
public:
    TimelineItems(const TraceTimeline &timeline, TraceSelection selection);

    bool forEach(const Take &take, const GoesOn &goesOn) override;

private:
    bool takeRow(quint64 position, const Take &take);
    void visitAll(const Take &take, const GoesOn &goesOn);
    void visitRows(const Take &take, const GoesOn &goesOn);
    void visitFound(const Take &take, const GoesOn &goesOn);
    bool hasTime(const CAN::CanRxMessage &message) const;
    double partAt(quint64 position) const;

    const TraceTimeline timeline;
    TraceSelection selection;
    quint64 gone = 0;
};

/// Those of a foreign trace, as it is read.
class FileItems : public TraceItems
{
public:
    explicit FileItems(ImportSource source) : source(std::move(source)) { }

    bool forEach(const Take &take, const GoesOn &goesOn) override;

private:
    const ImportSource source;
};
