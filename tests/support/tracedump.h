#pragma once

#include "canrxmessage.h"
#include "datachunkhelper.h"

#include <QString>

/// One message as a line of the form below, without its line end.
QString messageDump(const CAN::CanRxMessage &message);

/// What an import of a trace gives, in the form of the .expected files:
///
///     number seconds microseconds id(hex) extended remote fd flagB flagC transmitted line length
///     data(hex)
///
/// one line per message ("-" for no data), then one line "number: text" per note, then, where they
/// came, "fd: true" or "fd: false" and one line "error: text" per error with %1 for the file name.
QString traceDump(const QString &fileName, DatachunkHelper::ImportFileType type,
                  const QString &formatDescription);
