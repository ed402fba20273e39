#pragma once

#include "rowselection.h"

#include <QTableView>

#include <functional>

class MessageModel;
class QTimer;

/// The rows of a trace, however many: what the model's window leaves out comes when it is scrolled
/// to, and selection and place stay with their messages.
class TraceTable : public QTableView
{
    Q_OBJECT
public:
    static constexpr int refreshInterval = 50; ///< of the model, in milliseconds

    explicit TraceTable(MessageModel *model, QWidget *parent = nullptr);

    /// The row of all on top.
    quint64 topRow() const;
    /// How many rows are in sight as a whole, 1 at least.
    int rowsInSight() const;
    /// The row of all that is on top when the last one is at the bottom.
    quint64 lastTopRow() const;
    bool isInSight(quint64 position) const;
    std::optional<quint64> currentPosition() const { return kept.current; }
    /// Those of the selected rows, rising; \a most at most.
    QVector<quint64> selectedPositions(int most) const;

    /// Scrolls, as the user does.
    void scrollTop(quint64 row);
    /// Makes the row current that a function of the model has shown, and has it in sight. False
    /// when that has found none.
    bool go(const std::function<QModelIndex()> &where);
    /// Opens an editor for the note of the current message.
    void editNote();

signals:
    void currentPositionChanged(quint64 position);
    void selectionTaken();
    /// Other rows are in sight.
    void sightChanged();
    /// The user has gone somewhere, which may be the end.
    void moved(bool toEnd);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint) override;

private:
    std::optional<quint64> rowOfKey(const QKeyEvent &event) const;
    void moveCurrent(quint64 row, bool extends);
    void scrolledInside();
    void restore();
    void restoreTop();
    void settle();
    void choose(const QModelIndex &index);
    void takeTop();
    void takeCurrent();
    void takeFocus();
    void takeSelection();
    int currentColumn() const;

    MessageModel *const rows;
    RowSelection kept;
    std::optional<quint64> top;   // the position of what the user has scrolled to
    std::optional<quint64> focus; // what the model was told to begin at
    QTimer *const soon;
    int restoring = 0; // while the view moves by itself
    int going = 0;     // while the window of the model is moved on purpose
};
