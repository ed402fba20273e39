#pragma once

#include <QScrollBar>

class MessageModel;
class TraceTable;

/// The scroll bar beside a table, over all rows of the trace and not over those of the model's
/// window alone.
class AllRowsBar : public QScrollBar
{
    Q_OBJECT
public:
    AllRowsBar(MessageModel *model, TraceTable *table, QWidget *parent = nullptr);

protected:
    void wheelEvent(QWheelEvent *event) override;

private:
    void take(int action);
    void update();
    quint64 rowAt(int step) const;
    int stepOf(quint64 row) const;

    MessageModel *const model;
    TraceTable *const table;
};
