#pragma once

#include "tracelook.h"

#include <QCoreApplication>
#include <QString>

#include <optional>

/// Where a user wants to go, from what he has written; times in microseconds. A plain value.
struct JumpTarget
{
    Q_DECLARE_TR_FUNCTIONS(JumpTarget)

public:
    /// What a time may count from.
    struct Times
    {
        TraceLook::Time shown = TraceLook::SinceStart;
        qint64 start = 0;   ///< of the trace
        qint64 marked = 0;  ///< of the message that the user has marked
        qint64 current = 0; ///< of the current message
    };

    /// The number of a message; nothing, and a sentence in \a error, where \a text is none.
    static std::optional<quint32> number(const QString &text, QString *error);
    /// A time as the table shows it, a time of day, a date with one, or with a sign in front
    /// seconds from the current message on. Likewise.
    static std::optional<qint64> time(const QString &text, const Times &times, QString *error);
    /// \a moment, not in front of the start, as time() reads it with such \a times.
    static QString timeText(qint64 moment, const Times &times);
    /// How a time may be written there.
    static QString timeHint(const Times &times);
};
