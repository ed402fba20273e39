#pragma once

#include "canframe.h"

#include <QString>

/// How messages are written for people.
namespace MessageText {

/// With three digits or eight in hexadecimal; empty for error frames.
QString identifier(const CAN::CanRxMessage &message, int base);
/// Bytes with a wider gap behind each eighth; empty for remote frames.
QString data(const CAN::CanRxMessage &message, int base);
/// The payload as characters, a point for what is none.
QString ascii(const CAN::CanRxMessage &message);

/// Microseconds as seconds with six digits behind the point.
QString seconds(qint64 time);
/// Whether a time in microseconds counts from 1970, and not from the start of its trace.
bool isDate(qint64 time);
/// Date and time of day of this computer's place, "2024-05-31 08:15:00.000123".
QString dateAndTime(qint64 time);
/// The one or the other.
QString moment(qint64 time);

/// An expression that takes messages of the same identifier, or error frames for one of those.
QString filterOfIdentifier(const CAN::CanRxMessage &message);
QString filterOfLine(const CAN::CanRxMessage &message);
/// Those of the same identifier with the same payload.
QString filterOfData(const CAN::CanRxMessage &message);
/// What \a filter, which may be empty, takes without what \a unwanted does.
QString filterWithout(const QString &filter, const QString &unwanted);

} // namespace MessageText
