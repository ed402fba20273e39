#pragma once

/// \file
/// The names of CAN errors.

#include <QMap>
#include <QString>

/// The names of the CAN error types by their number, 1 to 8.
inline const QMap<unsigned char, QString> &canErrorTypes()
{
    static const QMap<unsigned char, QString> names = {
        {1, QStringLiteral("Stuff error")},          {2, QStringLiteral("Form error")},
        {3, QStringLiteral("Acknowledgment error")}, {4, QStringLiteral("Bit error")},
        {5, QStringLiteral("Fast data bit error")},  {6, QStringLiteral("CRC error")},
        {7, QStringLiteral("Data length error")},    {8, QStringLiteral("unspecified error")},
    };
    return names;
}
