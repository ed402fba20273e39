#pragma once

#include "canrxmessage.h"
#include "traceexport.h"

#include <QDateTime>
#include <QVector>

/// What an exported trace holds, as something other than the writers reads it.
struct ReadBack
{
    struct Message
    {
        CAN::CanRxMessage message;
        QString note;
    };
    QVector<Message> messages;
    qint64 start = 0;     ///< microseconds that are the same for all times
    bool isWhole = false; ///< whether everything in it was a message or belongs to the format
};

/// By the importer of the format where there is one.
ReadBack readBack(TraceExport::Format format, const QByteArray &bytes);

/// The time of a message that was read, in microseconds.
struct ReadTime
{
    qint64 read = 0;  ///< with the start
    qint64 start = 0; ///< what the times of the format count from
    qint64 unit = 1;  ///< what one of the last digit is
};

/// What is different, each kind once; lossCount for what no loss stands for.
QVector<TraceExport::Loss> differences(const ReadBack::Message &written,
                                       const ReadBack::Message &read, const ReadTime &time);
