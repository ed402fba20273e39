#pragma once

/// \file
/// Bookmarks of messages.

#include "datachunkglobal.h"

#include <QDataStream>
#include <QString>

/// A text that a user pinned to one message. A plain value.
class DATACHUNK_EXPORT CanMessageBookmark
{
public:
    /// Number 0 and no text.
    CanMessageBookmark();
    /// Valid when \a text is not empty.
    CanMessageBookmark(unsigned int messageNumber, QString text);

    /// Number of the message that it belongs to.
    unsigned int messageNumber() const;
    /// What the user wrote.
    QString text() const;

    /// False for a bookmark without text, such as the default one.
    bool isValid() const;

    /// Whether number and text are equal.
    bool operator==(const CanMessageBookmark &other) const;

    /// Writes magic, form version, number and text, in the stream's settings.
    void insertToDataStream(QDataStream &stream) const;

    /// Reads what insertToDataStream wrote. Stops behind a magic or a form version that is not
    /// ours and leaves the bookmark as it was.
    void extractFromDataStream(QDataStream &stream);

private:
    quint32 number = 0;
    QString content;
};

/// As insertToDataStream().
DATACHUNK_EXPORT QDataStream &operator<<(QDataStream &stream, const CanMessageBookmark &bookmark);
/// As extractFromDataStream().
DATACHUNK_EXPORT QDataStream &operator>>(QDataStream &stream, CanMessageBookmark &bookmark);
