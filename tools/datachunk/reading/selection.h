#pragma once

#include "positions.h"
#include "traceexpression.h"

#include <QCommandLineParser>
#include <QList>

/// Which messages of a trace a command works on: at these positions, and of them those that an
/// expression takes, and of them so many at most. A value.
class Selection
{
public:
    /// The options that say so, but for the names that the command itself has \a taken.
    static QList<QCommandLineOption> options(const QStringList &taken = {});

    /// Takes over what the options ask for, the number of messages from \a countOption. False, with
    /// the usage error printed, when they are wrong.
    bool read(const QCommandLineParser &parser,
              const QString &countOption = QStringLiteral("count"));

    /// The same expression for all messages, however many.
    Selection withoutPositions() const;

    /// Leaves of the messages only those that \a other takes.
    void narrow(const TraceExpression &other);

    const Positions &positions() const { return wanted; }
    const TraceExpression &expression() const { return taken; }
    /// Whether the expression leaves out any message.
    bool hasExpression() const { return !taken.text().trimmed().isEmpty(); }
    quint64 most() const { return count; }

private:
    static constexpr quint64 unlimited = std::numeric_limits<qint64>::max();

    bool readTests(const QCommandLineParser &parser);

    Positions wanted;
    TraceExpression taken;
    quint64 count = unlimited;
};

/// Reads an expression. False, with its place shown as a usage error, when \a text is none.
bool readExpression(const QString &text, TraceExpression &expression);
