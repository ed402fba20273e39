#include "datachunkhandler.h"
#include "datachunkhandler_p.h"

#include <QTime>

namespace {

QString timeOfDay()
{
    return QTime::currentTime().toString(QStringLiteral("hh:mm:ss.zzz"));
}

} // namespace

QString DatachunkHandler::getMessageNote(unsigned int number) const
{
    return d->trace.notes().note(number);
}

void DatachunkHandler::setMessageNote(unsigned int number, QString text)
{
    d->trace.notes().set(number, text);
}

void DatachunkHandler::appendMessageNote(unsigned int number, QString text)
{
    d->trace.notes().append(number, text);
}

void DatachunkHandler::addMessageNoteToNextMessage(QString text)
{
    d->trace.notes().setForNext(timeOfDay() + QLatin1String(" - %1 - ") + text);
}

void DatachunkHandler::addMessageNoteToLastMessage(QString text)
{
    appendMessageNote(getLastMessage().messageNumber, timeOfDay() + QLatin1String(" - ") + text);
}

CanMessageBookmark DatachunkHandler::bookmarkAt(int number) const
{
    return d->trace.notes().bookmarkAt(unsigned(number));
}
