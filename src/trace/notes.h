#pragma once

#include "canmessagebookmark.h"

#include <QMap>
#include <QString>

/// The notes and bookmarks on the messages of a trace, by message number.
using Notes = QMap<unsigned int, QString>;
using Bookmarks = QMap<unsigned int, CanMessageBookmark>;

/// Adds \a text to the note on the message with \a number, behind " | " if there is one.
void joinNote(Notes &notes, quint32 number, const QString &text);
