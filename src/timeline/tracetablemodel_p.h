#pragma once

#include "tablefind.h"
#include "tablerows.h"
#include "tablewindow.h"
#include "tracetablemodel.h"

#include <QCache>
#include <QTimer>

/// The moment that a table shows, its window, and their ways to the next.
class Q_DECL_HIDDEN TraceTableModel::Private
{
public:
    /// A row with what it shows.
    struct Shown
    {
        std::optional<quint64> position;
        TraceRow row;
    };

    Private(TraceTableModel &model, const TraceTimeline &timeline);

    std::optional<quint64> positionOf(quint64 row) const;
    Shown shown(quint64 row) const;
    QVariant text(quint64 row, int column) const;
    static QVariant value(const Shown &shown, int role);
    static QVariant alignment(int column);

    void refresh();
    void setFilter(const std::optional<TraceExpression> &wanted);
    void moveTo(const TableWindow &to);
    TableWindow atEnd() const { return TableWindow::from(rows.total(), rows.total()); }
    void updateTimer();
    void cancelFind() { find.cancel(); }
    void startFind(const TraceExpression &wanted, TableFind::Direction direction);

    TraceTableModel &model;
    TraceTimeline timeline;
    std::optional<TraceExpression> expression;
    std::shared_ptr<FilterRun> run; // null without a filter
    TableRows rows;
    TableWindow window;
    std::optional<quint64> current;
    TimeForm timeForm = AbsoluteTime;
    bool isFollowing = false;
    int interval = 50;

private:
    struct Progress
    {
        quint64 done = 0;
        quint64 of = 0;
        bool isComplete = true;
    };

    QString timeText(quint64 row, qint64 time) const;
    TableRows rowsNow();
    void adopt(TableRows next);
    void reset(TableRows next);
    bool grow(const TableRows::Growth &growth);
    void tell(quint64 totalBefore);
    void tellProgress();
    void tellAllChanged();
    void take(TableFind::Ticket ticket, std::optional<quint64> position);

    QTimer *timer;
    bool isRefreshing = false;
    quint32 version = 0; // rises when the rows are others
    qint64 start;        // the lowest time of all
    Progress progress;
    Progress told;
    mutable QCache<quint64, Shown> screen; // by row of all
    TableFind find;                        // last, so that it ends first
};
