#pragma once

#include <QWidget>

class FilterBar;
class IdentifierView;
class OverviewStrip;
class QStackedWidget;
class ShownTrace;
class TraceView;

/// A trace with all that belongs to it: filter, table or identifiers, overview.
class TraceTab : public QWidget
{
    Q_OBJECT
public:
    explicit TraceTab(ShownTrace *trace, QWidget *parent = nullptr);

    ShownTrace *trace() const { return shown; }
    TraceView *view() const { return ownView; }
    FilterBar *filterBar() const { return bar; }

    /// One row for each message, or for each identifier.
    void setByIdentifier(bool on);
    bool isByIdentifier() const;

signals:
    void byIdentifierChanged(bool on);

private:
    void connectParts();

    ShownTrace *const shown;
    TraceView *const ownView;
    FilterBar *const bar;
    IdentifierView *const identifiers;
    OverviewStrip *const strip;
    QStackedWidget *const pages;
};
