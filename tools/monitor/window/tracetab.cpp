#include "tracetab.h"

#include "filterbar.h"
#include "identifierview.h"
#include "overviewstrip.h"
#include "showntrace.h"
#include "tracetablemodel.h"
#include "traceview.h"

#include <QStackedWidget>
#include <QVBoxLayout>

#include <utility>

namespace {

constexpr int startInterval = 100; // milliseconds

} // namespace

TraceTab::TraceTab(ShownTrace *trace, QWidget *parent)
    : QWidget(parent), shown(trace), ownView(new TraceView(trace)),
      bar(new FilterBar(ownView->model())), identifiers(new IdentifierView(trace)),
      strip(new OverviewStrip(trace)), pages(new QStackedWidget)
{
    pages->addWidget(ownView);
    pages->addWidget(identifiers);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(2);
    layout->addWidget(bar);
    layout->addWidget(strip);
    layout->addWidget(pages, 1);
    connectParts();
}

void TraceTab::connectParts()
{
    connect(bar, &FilterBar::filterChanged, ownView, &TraceView::setFilter);
    connect(ownView, &TraceView::filterWanted, bar, &FilterBar::setText);
    connect(ownView, &TraceView::shownTimesChanged, strip, &OverviewStrip::setShownTimes);
    connect(strip, &OverviewStrip::timeChosen, ownView, &TraceView::showTime);
    connect(shown, &ShownTrace::marksChanged, strip, &OverviewStrip::readMarks);
    const auto showMessages = [this] { setByIdentifier(false); };
    connect(identifiers, &IdentifierView::positionChosen, ownView, &TraceView::showPosition);
    connect(identifiers, &IdentifierView::positionChosen, this, showMessages);
    connect(identifiers, &IdentifierView::filterWanted, bar, &FilterBar::setText);
    connect(identifiers, &IdentifierView::filterWanted, this, showMessages);
    connect(ownView->model(), &TraceTableModel::totalChanged, this, &TraceTab::showPage);
    connect(&timer, &QTimer::timeout, this, &TraceTab::lookForFirst);
}

void TraceTab::setStartPage(QWidget *page)
{
    startPage = page;
    pages->addWidget(page);
    showPage();
}

void TraceTab::setByIdentifier(bool on)
{
    if (std::exchange(wantsIdentifiers, on) == on)
        return;
    showPage();
    emit byIdentifierChanged(on);
}

void TraceTab::showPage()
{
    QWidget *page = wantsIdentifiers ? static_cast<QWidget *>(identifiers) : ownView;
    if (startPage && shown->timeline().count() == 0)
        page = startPage;
    const bool begins = pages->currentWidget() == startPage && page != startPage;
    pages->setCurrentWidget(page);
    // What had it is gone, and next to it is what would stop the line.
    if (startPage && begins)
        page->setFocus();
    if (page == startPage)
        timer.start(startInterval);
    else
        timer.stop();
    bar->setVisible(page == ownView);
    strip->setVisible(page != startPage);
}

void TraceTab::lookForFirst()
{
    TraceTimeline timeline = shown->timeline();
    if (timeline.refresh() && timeline.count() != 0)
        showPage();
}
