#pragma once

#include <QCoreApplication>
#include <QString>

/// What the user is told by a check.
struct CheckTexts
{
    Q_DECLARE_TR_FUNCTIONS(TraceCheck)

public:
    static QString seconds(qint64 microseconds)
    {
        constexpr double perSecond = 1e6;
        return QString::number(double(microseconds) / perSecond, 'f', 6);
    }

    /// The first message that is missing follows \a before.
    static QString gap(quint32 before, quint32 next)
    {
        return tr("Behind message %1 comes message %2: %3 messages are missing.")
            .arg(before)
            .arg(next)
            .arg(next - before - 1);
    }

    static QString timeFalls(qint64 before, qint64 next)
    {
        return tr("The time falls from %1 s to %2 s.").arg(seconds(before), seconds(next));
    }
};
