#pragma once

#include "canrxmessage.h"

#include <QString>

/// The text form of messages: the export file's first line and one line per message.
namespace TextExport {

/// Header line of a text export, line end included.
QString headerLine();

/// One message and its note as a line, line end included. The note stands as it is, whatever
/// it contains.
QString messageLine(const CAN::CanRxMessage &message, const QString &note);
void appendMessageLine(QString &text, const CAN::CanRxMessage &message, const QString &note);

} // namespace TextExport
