#pragma once

#include "canrxmessage.h"
#include "datachunkhelper.h"

#include <QByteArray>
#include <QString>
#include <QVector>

/// Deterministic traffic: 5.9 payload bytes on average, 19 % extended identifiers, a message
/// every 200 µs.
QVector<CAN::CanRxMessage> generateTraffic(int count);

/// A trace format that the generator writes.
struct GeneratedFormat
{
    const char *name;
    const char *suffix;
    DatachunkHelper::ImportFileType type;
    const char *description; ///< the described layout, for GenericFormat
    const char *header;
    void (*appendLine)(QByteArray &text, const CAN::CanRxMessage &message);
    const char *footer;
};

const QVector<GeneratedFormat> &generatedFormats();

QByteArray generateTrace(const GeneratedFormat &format, const QVector<CAN::CanRxMessage> &traffic);
