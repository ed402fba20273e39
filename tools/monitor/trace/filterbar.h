#pragma once

#include "traceexpression.h"

#include <QPointer>
#include <QWidget>

#include <optional>

class FilterField;
class QAction;
class QLabel;
class QMenu;
class QTimer;
class TraceTableModel;

/// Where the user writes a filter, and finds with it.
class FilterBar : public QWidget
{
    Q_OBJECT
public:
    /// \a model is what the filter is for: its progress is shown, and its find used.
    explicit FilterBar(TraceTableModel *model, QWidget *parent = nullptr);
    ~FilterBar() override;

    /// Find next and previous, the field itself, saved filters; they belong to the bar.
    QList<QAction *> actions() const;

public slots:
    /// As if the user had written and entered it.
    void setText(const QString &text);

signals:
    /// Nothing where all messages are wanted.
    void filterChanged(const std::optional<TraceExpression> &expression);

private:
    enum Direction { Forwards, Backwards };
    /// What has become of the last search.
    enum Search { NoSearch, Looking, Found, AtEnd };

    void layOut();
    void connectParts();
    QAction *addAction(const QString &text, const QString &keys);
    void addActions();

    void apply();
    void show(const std::optional<TraceExpression> &wanted);
    void enter();
    void remember();
    void escape();
    void focusField();
    void setFindOnly(bool on);
    void find(Direction direction);
    void setSearch(Search state);
    void updateStatus();
    QString statusText() const;

    void fillMenu();
    void askName();
    void manage();

    TraceTableModel *const model;
    FilterField *const field;
    QLabel *const status;
    QMenu *const saved;
    QTimer *const pause;
    QAction *focusAction = nullptr;
    QAction *nextAction = nullptr;
    QAction *previousAction = nullptr;
    QAction *findOnlyAction = nullptr;
    QPointer<QWidget> before;                  // what had the focus in front of the field
    std::optional<TraceExpression> expression; // the last that was written
    std::optional<TraceExpression> shown;      // what the table was told
    Search search = NoSearch;
    Direction searched = Forwards;
    quint64 done = 0; // messages that the filter has looked at
    quint64 of = 0;
};
