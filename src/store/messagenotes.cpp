#include "datachunkhandler.h"
#include "datachunkhandler_p.h"

#include <QMutexLocker>
#include <QReadLocker>
#include <QTime>

namespace {

QString timeOfDay()
{
    return QTime::currentTime().toString(QStringLiteral("hh:mm:ss.zzz"));
}

} // namespace

QString DatachunkHandler::getMessageNote(unsigned int number) const
{
    const QMutexLocker locker(&d->notesLock);
    return d->notes.value(number);
}

void DatachunkHandler::setMessageNote(unsigned int number, QString text)
{
    const QMutexLocker locker(&d->notesLock);
    d->notes[number] = text;
}

void DatachunkHandler::appendMessageNote(unsigned int number, QString text)
{
    const QMutexLocker locker(&d->notesLock);
    const QString existing = d->notes.value(number);
    if (existing.contains(text))
        return;
    d->notes[number] = existing.isEmpty() ? text : existing + QLatin1String(" ; ") + text;
}

void DatachunkHandler::addMessageNoteToNextMessage(QString text)
{
    const QMutexLocker locker(&d->notesLock);
    d->noteForNextMessage = timeOfDay() + QLatin1String(" - %1 - ") + text;
    d->noteForNextMessagePending = true;
}

void DatachunkHandler::addMessageNoteToLastMessage(QString text)
{
    appendMessageNote(getLastMessage().messageNumber, timeOfDay() + QLatin1String(" - ") + text);
}

CanMessageBookmark DatachunkHandler::bookmarkAt(int number) const
{
    return d->bookmarkHandler ? d->bookmarkHandler->bookmarkAt(unsigned(number))
                              : CanMessageBookmark();
}
