#pragma once

#include "traceexport.h"

using FoundPlace = TraceExport::Place;

/// Adds a message as a JSON object in one line, line end included; \a place may be null.
inline void appendMessageJson(QByteArray &text, const CAN::CanRxMessage &message,
                              const QString &note, const FoundPlace *place = nullptr)
{
    TraceExport::appendJson(text, message, note, place);
}
