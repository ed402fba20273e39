#pragma once

#include "canmessagebookmark.h"

#include <QMap>
#include <QString>

#include <optional>

/// The notes and bookmarks on the messages of a trace, by message number.
using Notes = QMap<unsigned int, QString>;
using Bookmarks = QMap<unsigned int, CanMessageBookmark>;

/// What is to become of the note and the bookmark on one message.
struct MarkChange
{
    quint32 number = 0;
    std::optional<QString> note;     ///< an empty one goes; nothing where it stays as it is
    std::optional<QString> bookmark; ///< the same
};

/// False when nothing of \a notes changes.
bool applyChange(const MarkChange &change, Notes &notes);
/// The same for the bookmarks.
bool applyChange(const MarkChange &change, Bookmarks &bookmarks);

/// Adds \a text to the note on the message with \a number, behind " | " if there is one.
void joinNote(Notes &notes, quint32 number, const QString &text);
