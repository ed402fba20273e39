#pragma once

#include <QString>
#include <QVector>

/// A note or a bookmark, with what a list shows of its message.
struct Mark
{
    enum Kind { Note, Bookmark };
    quint64 position = 0; ///< of the message
    Kind kind = Note;
    QString text;
    qint64 microseconds = 0; ///< time of the message
    QString number;          ///< of the message; empty as long as it is not known
    QString time;            ///< likewise, in seconds from the start of the trace
    QString identifier;      ///< likewise, and of error frames

    /// In the order of a list.
    friend bool operator<(const Mark &a, const Mark &b)
    {
        return a.position != b.position ? a.position < b.position : a.kind < b.kind;
    }
    friend bool operator==(const Mark &a, const Mark &b)
    {
        return a.position == b.position && a.kind == b.kind && a.text == b.text
            && a.number == b.number && a.time == b.time && a.identifier == b.identifier;
    }
};

/// The marks of a trace, rising.
struct MarkList
{
    QVector<Mark> marks;
    bool isCut = false; ///< whether there are more of them
};
