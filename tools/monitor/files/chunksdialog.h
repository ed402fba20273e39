#pragma once

#include "tracetimeline.h"

#include <QDialog>

class QTableView;
class ShownTrace;

/// The chunks that a trace lies in, to go to one of them.
class ChunksDialog : public QDialog
{
    Q_OBJECT
public:
    /// \a position is where the user is: its chunk is the current one.
    ChunksDialog(const ShownTrace &trace, quint64 position, QWidget *parent);

signals:
    /// The user wants to go to a chunk; it is that of its first message.
    void positionChosen(quint64 position);

private:
    void choose();

    QTableView *const table;
    const QVector<TraceChunk> chunks;
};
