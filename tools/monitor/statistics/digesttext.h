#pragma once

#include "digestvalues.h"

#include <QString>

/// How the views of statistics write what they know.
namespace DigestText {

/// Hexadecimal, 3 or 8 digits, or decimal; empty for an error frame.
QString identifier(const CAN::CanRxMessage &message, int base);
/// As the trace has it: "EXT FD"; "ERR" for an error frame.
QString kind(const CAN::CanRxMessage &message);
/// All payload bytes.
QString bytes(const CAN::CanRxMessage &message, int base);
QString byte(quint8 value, int base);
QString count(quint64 count);
/// Of microseconds, in milliseconds or seconds.
QString duration(double microseconds);
/// Of microseconds, in seconds.
QString age(qint64 microseconds);
/// For each second.
QString rate(double perSecond);
/// \a load is 1 for a bus that is always busy.
QString percent(double load);
/// Of a place in the trace: seconds, or hours, minutes and seconds where they are many.
QString time(qint64 microseconds);

/// The filter that takes such messages; of its line only where \a isOfLine.
QString expression(const CAN::CanRxMessage &message, bool isOfLine);
/// How much of the trace the numbers are about; empty for all of it.
QString progress(const TraceSummary &summary);

} // namespace DigestText
