#include "notes.h"

void joinNote(Notes &notes, quint32 number, const QString &text)
{
    const auto note = notes.find(number);
    if (note == notes.end())
        notes.insert(number, text);
    else
        *note += QLatin1String(" | ") + text;
}
