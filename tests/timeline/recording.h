#pragma once

#include "notes.h"
#include "traceexpression.h"

#include <QVector>

using Messages = QVector<CAN::CanRxMessage>;

/// A recording, and what is in it.
struct Recording
{
    Messages messages;
    QVector<QString> notes; // of each message
    QVector<int> sizes;     // of the chunks
};

void writeChunk(const QString &fileName, const Messages &messages, const Notes &notes);

/// Writes chunks of so many random messages each, some with notes, into a folder.
Recording record(const QString &folder, quint32 seed, const QVector<int> &sizes);

/// Fails the program when that is no expression.
TraceExpression expression(const char *text);

/// The positions of what an expression takes, one message after the other. Of those with "changed"
/// only "changed and id==5" is known.
QVector<quint64> found(const Recording &recording, const char *text);
