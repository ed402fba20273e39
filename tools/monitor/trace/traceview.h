#pragma once

#include "jumptarget.h"
#include "traceexpression.h"

#include <QWidget>

#include <optional>

class JumpLine;
class MessageModel;
class PlaceLine;
class QAction;
class QTimer;
class ShownTrace;
class TraceActions;
class TraceColumns;
class TraceTable;
class TraceTableModel;

/// The messages of a trace as a table, with a scroll bar over all of them.
class TraceView : public QWidget
{
    Q_OBJECT
public:
    explicit TraceView(ShownTrace *trace, QWidget *parent = nullptr);
    ~TraceView() override;

    TraceTableModel *model() const;

    /// That of the current row.
    std::optional<quint64> currentPosition() const;
    /// Those of the selected rows, rising; at most TraceTableModel::mostRows.
    QVector<quint64> selectedPositions() const;

    /// What times count from that are written here.
    JumpTarget::Times times() const;

    /// For the menus: copy, jump and so on; what is shown and how. They belong to the view.
    QList<QAction *> editActions() const;
    QList<QAction *> viewActions() const;

public slots:
    /// They make that row the current one and show it.
    void showPosition(quint64 position);
    void showTime(qint64 time);
    void setFilter(const std::optional<TraceExpression> &expression);

signals:
    void currentPositionChanged(quint64 position);
    /// Times of the first and the last row in sight, in microseconds.
    void shownTimesChanged(qint64 first, qint64 last);
    /// The user wants a filter, such as "only this identifier".
    void filterWanted(const QString &expression);

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void layOut();
    void connectParts();
    bool mayGrow() const;
    void copyShown();
    void copyCandump();
    QVector<quint64> positionsToCopy() const;
    void copied(const QString &text, quint64 count, quint64 leftOut);
    void askNumber();
    void askTime();
    void toggleBookmark();
    void tellShownTimes();

    ShownTrace *const trace;
    MessageModel *const ownModel;
    TraceTable *const table;
    TraceColumns *const columns;
    TraceActions *const actions;
    PlaceLine *const place;
    JumpLine *const jump;
    QTimer *const soon;
};
