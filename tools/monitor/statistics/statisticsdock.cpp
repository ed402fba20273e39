#include "statisticsdock.h"

#include "digesttext.h"
#include "showntrace.h"
#include "statisticspages.h"
#include "tracedigest.h"

#include <QLabel>
#include <QTabWidget>
#include <QVBoxLayout>

StatisticsDock::StatisticsDock(QWidget *parent)
    : QDockWidget(tr("Statistics"), parent), lines(new LinesPage), identifiers(new IdentifiersPage),
      progress(new QLabel)
{
    setObjectName(QStringLiteral("statistics"));
    progress->setObjectName(QStringLiteral("progress"));
    progress->setWordWrap(true);
    progress->hide();
    auto *pages = new QTabWidget;
    pages->setDocumentMode(true);
    pages->addTab(lines, tr("&Lines"));
    pages->addTab(identifiers, tr("&Identifiers"));
    auto *content = new QWidget;
    auto *layout = new QVBoxLayout(content);
    layout->setContentsMargins({});
    layout->setSpacing(2);
    layout->addWidget(pages, 1);
    layout->addWidget(progress);
    setWidget(content);
    connect(this, &QDockWidget::visibilityChanged, this, &StatisticsDock::watch);
}

void StatisticsDock::setTrace(ShownTrace *newTrace)
{
    if (newTrace && trace == newTrace)
        return;
    if (digest) {
        digest->setWatched(this, false);
        digest->disconnect(this);
    }
    trace = newTrace;
    digest = newTrace ? TraceDigest::of(newTrace) : nullptr;
    lines->setDigest(digest);
    identifiers->setDigest(digest);
    if (digest)
        connect(digest, &TraceDigest::updated, this, &StatisticsDock::showProgress);
    watch(isInSight);
    showProgress();
}

void StatisticsDock::watch(bool on)
{
    isInSight = on;
    if (digest)
        digest->setWatched(this, on);
}

void StatisticsDock::showProgress()
{
    const QString text = digest ? DigestText::progress(digest->summary()) : QString();
    progress->setVisible(!text.isEmpty());
    progress->setText(text);
}
