#pragma once

#include "canrxmessage.h"

#include <QByteArray>
#include <QString>

/// Where a message stands in what was searched.
struct FoundPlace
{
    quint64 position = 0;
    bool isContext = false; ///< whether it stands around what was found
};

/// Adds a message as a JSON object in one line, line end included. What QJsonDocument would write,
/// ten times faster; \a place may be null.
void appendMessageJson(QByteArray &text, const CAN::CanRxMessage &message, const QString &note,
                       const FoundPlace *place = nullptr);
