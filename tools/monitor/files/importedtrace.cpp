#include "importedtrace.h"

#include "plaintexts.h"
#include "rotation.h"
#include "storeremoval.h"

#include <QPointer>

#include <limits>

ImportedTrace::ImportedTrace(const ImportSource &source, QObject *parent)
    // The import has it rotate before the store would by itself.
    : ImportedTrace(
        source, std::make_unique<DatachunkHandler>(importedInMemory + 1 + rotationMargin), parent)
{
}

ImportedTrace::ImportedTrace(const ImportSource &source, std::unique_ptr<DatachunkHandler> newStore,
                             QObject *parent)
    : ShownTrace(newStore->timeline(), shortName(source.path), parent), ownSource(source),
      desk(parent), bookmarks(std::make_unique<BookmarkHandler>()), store(std::move(newStore)),
      ownOutcome(std::make_unique<ImportOutcome>())
{
    store->setBookmarkhandler(bookmarks.get());
    // Nothing of an import may be removed to make room.
    store->setMaximumHDDSpace(std::numeric_limits<quint32>::max());
    connect(store.get(), &DatachunkHandler::newErrorMessage, this, &ImportedTrace::storeFailed,
            Qt::QueuedConnection);
    ownJob = std::make_unique<BackgroundJob>(
        tr("Reading %1").arg(title()), [this](JobControl &control) { return import(control); });
}

ImportedTrace::~ImportedTrace()
{
    ownJob.reset();
    store->disconnect(this);
    if (desk)
        StoreRemoval::begin(std::move(bookmarks), std::move(store), desk);
}

// On the job's thread.
Notice ImportedTrace::import(JobControl &control)
{
    const auto tellBegun = [this] {
        QMetaObject::invokeMethod(this, &ImportedTrace::begun, Qt::QueuedConnection);
    };
    *ownOutcome = importTrace(ownSource, {*store, *bookmarks, isFull, tellBegun}, control);
    return ended(*ownOutcome, control);
}

Notice ImportedTrace::ended(const ImportOutcome &outcome, const JobControl &control) const
{
    const QString name = shortName(ownSource.path);
    if (isFull)
        return {};
    if (control.isCancelled)
        return {Notice::Warning, tr("Reading %1 was cancelled.").arg(name),
                outcome.messages > 0
                    ? tr("The %1 up to there are shown.").arg(messagesText(outcome.messages))
                    : QString()};
    const QString errors = firstSentences(outcome.errors);
    Notice notice;
    if (outcome.result == TraceStream::Failed)
        notice = {Notice::Failure,
                  tr("%1 cannot be read as %2. %3").arg(name, typeName(ownSource.type), errors),
                  tr("Try another type or way of reading it.")};
    else if (outcome.result == TraceStream::Incomplete)
        notice = {Notice::Warning, tr("%1 is not complete. %2").arg(name, errors),
                  tr("What could be read is shown. Try another copy of it.")};
    else
        notice = lossNotice(outcome);
    if (outcome.report.lines > 0)
        withReport(notice);
    return notice;
}

Notice ImportedTrace::lossNotice(const ImportOutcome &outcome) const
{
    const ImportReport &report = outcome.report;
    const QString read =
        tr("%1: %2 read.").arg(shortName(ownSource.path), messagesText(outcome.messages));
    if (!report.hasLoss())
        return {Notice::Information, read, {}};
    QStringList losses(read);
    if (const quint64 lost = report.linesLost())
        losses += tr("%L1 lines could not be read as frames.", nullptr, int(lost)).arg(lost);
    quint64 changed = report.unlikely.count;
    for (const ImportReport::Lines &lines : report.changed)
        changed += lines.count;
    if (changed > 0)
        losses +=
            tr("%L1 frames may not be as the file means them.", nullptr, int(changed)).arg(changed);
    return {Notice::Warning, losses.join(QLatin1Char(' ')),
            tr("The report tells which lines these are.")};
}

void ImportedTrace::withReport(Notice &notice) const
{
    const QPointer<ImportedTrace> self(const_cast<ImportedTrace *>(this));
    notice.actionText = tr("Report");
    notice.action = [self] {
        if (self)
            emit self->reportWanted();
    };
}

void ImportedTrace::storeFailed(const QString &text)
{
    if (isFull.exchange(true))
        return;
    emit notice({Notice::Failure, tr("Reading %1 has ended early. %2").arg(title(), text),
                 tr("Make room on the disk of %1 and open it again; what was read is shown.")
                     .arg(store->chunkFolderPath())});
}
