#include "jobrows.h"

#include "backgroundjob.h"
#include "jobqueue.h"
#include "plaintexts.h"

#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPointer>
#include <QProgressBar>
#include <QStyle>
#include <QToolButton>

#include <algorithm>

namespace {

// Short jobs end before anybody could read of them.
constexpr int refreshInterval = 250; // milliseconds
constexpr int mostRows = 4;
constexpr int progressSteps = 1000;

} // namespace

/// One job.
class JobRow : public QWidget
{
public:
    JobRow(BackgroundJob *job, QWidget *parent)
        : QWidget(parent), job(job), label(new QLabel(this)), bar(new QProgressBar(this))
    {
        label->setTextFormat(Qt::PlainText);
        bar->setTextVisible(false);
        bar->setMaximumWidth(fontMetrics().averageCharWidth() * 30);
        bar->setMaximumHeight(fontMetrics().height());
        auto *cancel = new QToolButton(this);
        cancel->setObjectName(QStringLiteral("cancel"));
        cancel->setText(JobRows::tr("Cancel"));
        cancel->setAccessibleName(JobRows::tr("Cancel: %1").arg(job->title()));
        connect(cancel, &QToolButton::clicked, job, &BackgroundJob::cancel);
        auto *row = new QHBoxLayout(this);
        row->setContentsMargins(6, 0, 2, 0);
        row->addWidget(label, 1);
        row->addWidget(bar);
        row->addWidget(cancel);
        refresh();
    }

    void refresh()
    {
        if (!job)
            return;
        if (job->isStarted() && !clock.isValid())
            clock.start();
        const JobControl &control = job->control();
        const qint64 total = control.total;
        const qint64 done = std::min(total, control.done.load());
        bar->setRange(0, job->isStarted() && total <= 0 ? 0 : progressSteps);
        bar->setValue(total > 0 ? int(double(done) / double(total) * progressSteps) : 0);
        label->setText(text(control, done, total));
    }

    const QPointer<BackgroundJob> job;

private:
    QString text(const JobControl &control, qint64 done, qint64 total) const
    {
        if (control.isCancelled)
            return JobRows::tr("%1: being cancelled").arg(job->title());
        if (!job->isStarted())
            return JobRows::tr("%1: waits for its turn").arg(job->title());
        QStringList parts(job->title());
        if (const quint64 messages = control.messages)
            parts += messagesText(messages);
        constexpr qint64 leastTime = 2000; // before that nobody can tell
        if (total > 0 && done > 0 && clock.elapsed() > leastTime) {
            const double left = double(clock.elapsed()) * (double(total) / double(done) - 1);
            parts += JobRows::tr("%1 left").arg(durationText(qint64(left)));
        }
        return parts.join(QStringLiteral(" · "));
    }

    QLabel *const label;
    QProgressBar *const bar;
    QElapsedTimer clock;
};

JobRows::JobRows(JobQueue *queue, QWidget *parent)
    : QWidget(parent), queue(queue), layout(new QVBoxLayout(this)), others(new QLabel(this))
{
    setObjectName(QStringLiteral("jobs"));
    layout->setContentsMargins({});
    layout->setSpacing(1);
    layout->addWidget(others);
    others->setIndent(6);
    timer.setInterval(refreshInterval);
    connect(&timer, &QTimer::timeout, this, &JobRows::refresh);
    connect(queue, &JobQueue::jobAdded, &timer, QOverload<>::of(&QTimer::start));
    hide();
}

JobRows::~JobRows() = default;

void JobRows::refresh()
{
    const QList<BackgroundJob *> jobs = queue->jobs();
    const auto isOver = [&jobs](JobRow *row) {
        if (row->job && jobs.contains(row->job.data()))
            return false;
        row->deleteLater();
        return true;
    };
    rows.erase(std::remove_if(rows.begin(), rows.end(), isOver), rows.end());
    for (BackgroundJob *job : jobs) {
        const auto shows = [job](const JobRow *row) { return row->job == job; };
        if (int(rows.size()) >= mostRows || std::any_of(rows.begin(), rows.end(), shows))
            continue;
        rows.push_back(new JobRow(job, this));
        layout->insertWidget(layout->count() - 1, rows.back());
    }
    for (JobRow *row : rows)
        row->refresh();
    const int hidden = jobs.size() - int(rows.size());
    others->setText(tr("%n more wait", nullptr, hidden));
    others->setVisible(hidden > 0);
    setVisible(!jobs.isEmpty());
    if (jobs.isEmpty())
        timer.stop();
}
