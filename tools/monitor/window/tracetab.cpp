#include "tracetab.h"

#include "filterbar.h"
#include "identifierview.h"
#include "overviewstrip.h"
#include "showntrace.h"
#include "traceview.h"

#include <QStackedWidget>
#include <QVBoxLayout>

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
    const auto showMessages = [this] { setByIdentifier(false); };
    connect(identifiers, &IdentifierView::positionChosen, ownView, &TraceView::showPosition);
    connect(identifiers, &IdentifierView::positionChosen, this, showMessages);
    connect(identifiers, &IdentifierView::filterWanted, bar, &FilterBar::setText);
    connect(identifiers, &IdentifierView::filterWanted, this, showMessages);
    connect(pages, &QStackedWidget::currentChanged, this,
            [this] { emit byIdentifierChanged(isByIdentifier()); });
}

void TraceTab::setByIdentifier(bool on)
{
    pages->setCurrentWidget(on ? static_cast<QWidget *>(identifiers) : ownView);
}

bool TraceTab::isByIdentifier() const
{
    return pages->currentWidget() == identifiers;
}
