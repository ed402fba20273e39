#include "notes.h"

void joinNote(Notes &notes, quint32 number, const QString &text)
{
    const auto note = notes.find(number);
    if (note == notes.end())
        notes.insert(number, text);
    else
        *note += QLatin1String(" | ") + text;
}

bool applyChange(const MarkChange &change, Notes &notes)
{
    const auto note = notes.constFind(change.number);
    const bool isThere = note != notes.constEnd();
    // An empty note is one as well, until somebody takes it away.
    const bool goes = change.note && change.note->isEmpty();
    if (!change.note || (goes ? !isThere : isThere && *note == *change.note))
        return false;
    if (goes)
        notes.remove(change.number);
    else
        notes.insert(change.number, *change.note);
    return true;
}

bool applyChange(const MarkChange &change, Bookmarks &bookmarks)
{
    const QString before = bookmarks.value(change.number).text();
    if (!change.bookmark || before == *change.bookmark)
        return false;
    if (change.bookmark->isEmpty())
        bookmarks.remove(change.number);
    else
        bookmarks.insert(change.number, CanMessageBookmark(change.number, *change.bookmark));
    return true;
}
