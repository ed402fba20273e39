#pragma once

#include <QTimer>
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

    /// Stands in place of the messages as long as there are none. Takes it over.
    void setStartPage(QWidget *page);

    /// One row for each message, or for each identifier.
    void setByIdentifier(bool on);
    bool isByIdentifier() const { return wantsIdentifiers; }

signals:
    void byIdentifierChanged(bool on);

private:
    void connectParts();
    void showPage();
    void lookForFirst();

    ShownTrace *const shown;
    TraceView *const ownView;
    FilterBar *const bar;
    IdentifierView *const identifiers;
    OverviewStrip *const strip;
    QStackedWidget *const pages;
    QWidget *startPage = nullptr;
    QTimer timer; // while the start page is there: the table rests where it is not in sight
    bool wantsIdentifiers = false;
};
