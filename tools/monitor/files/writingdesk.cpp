#include "writingdesk.h"

#include "convertdialog.h"
#include "exportdialog.h"
#include "jobqueue.h"
#include "listdialog.h"
#include "packing.h"
#include "plaintexts.h"
#include "showntrace.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QPointer>
#include <QSettings>
#include <QWidget>

namespace {

const QString archiveFolder = QStringLiteral("files/archiveFolder");

QString lastArchiveFolder()
{
    return QSettings().value(archiveFolder, QDir::homePath()).toString();
}

} // namespace

WritingDesk::WritingDesk(QWidget *window, JobQueue *queue, QObject *parent)
    : QObject(parent), window(window), queue(queue)
{
}

WritingDesk::~WritingDesk() = default;

QStringList WritingDesk::unfinished() const
{
    QStringList titles;
    const auto jobs = findChildren<BackgroundJob *>();
    for (const BackgroundJob *job : jobs) {
        if (!job->isFinished())
            titles += job->title();
    }
    return titles;
}

BackgroundJob *WritingDesk::run(const QString &title, BackgroundJob::Work work)
{
    auto *job = new BackgroundJob(title, std::move(work), this);
    connect(job, &BackgroundJob::finished, this, [this, job](const Notice &told) {
        job->deleteLater();
        if (!told.text.isEmpty())
            emit notice(told);
    });
    queue->add(job);
    return job;
}

// Of all of a trace, when nothing was left out.
void WritingDesk::keepMarks(BackgroundJob *job, ShownTrace *trace)
{
    connect(job, &BackgroundJob::finished, trace,
            [job, trace, marks = trace->marksSet()](const Notice &told) {
                if (told.kind == Notice::Information && !job->control().isCancelled)
                    trace->setMarksKept(marks);
            });
}

// Made on the job's thread, used on the window's.
Notice WritingDesk::withOpen(Notice notice, const QString &path) const
{
    const QPointer<WritingDesk> self(const_cast<WritingDesk *>(this));
    notice.actionText = tr("Open");
    notice.action = [self, path] {
        if (self)
            emit self->openWanted({path});
    };
    return notice;
}

void WritingDesk::askForExport(ShownTrace &trace, const TraceView &view)
{
    auto *dialog = new ExportDialog(trace, view, window);
    connect(dialog, &ExportDialog::chosen, this,
            [this, trace = QPointer<ShownTrace>(&trace), timeline = trace.timeline()](
                const ExportOrder &order, const TraceSelection &selection) {
                BackgroundJob *job = exportTrace(timeline, selection, order);
                if (trace && selection.isAll() && order.withNotes)
                    keepMarks(job, trace);
            });
    dialog->open();
}

BackgroundJob *WritingDesk::exportTrace(const TraceTimeline &timeline,
                                        const TraceSelection &selection, const ExportOrder &order)
{
    return run(tr("Writing %1").arg(shortName(order.target)),
               [timeline, selection, order](JobControl &control) {
                   TimelineItems items(timeline, selection);
                   return exportNotice(order, exportItems(items, order, control));
               });
}

void WritingDesk::askForConversion(bool merged)
{
    auto *dialog = new ConvertDialog(window);
    dialog->setMerged(merged);
    connect(dialog, &ConvertDialog::chosen, this, &WritingDesk::convert);
    dialog->open();
}

void WritingDesk::convert(const ConvertOrder &order)
{
    const QString title = order.isMerged ? tr("Merging into %1") : tr("Converting into %1");
    run(title.arg(shortName(order.target)), [this, order](JobControl &control) {
        return converted(order, convertFiles(order, control));
    });
}

Notice WritingDesk::converted(const ConvertOrder &order, const ConvertResult &result) const
{
    const QString target = shortName(order.target);
    if (result.isCancelled)
        return {Notice::Information, tr("Writing into %1 was cancelled.").arg(target),
                tr("Files that were complete are kept.")};
    const QString written = order.isMerged && result.written > 0
        ? tr("%1 was written.").arg(target)
        : tr("%n files were written into %1.", nullptr, result.written).arg(target);
    if (result.problems.isEmpty())
        return withOpen({Notice::Information, written, {}}, order.target);
    Notice told{result.written > 0 ? Notice::Warning : Notice::Failure,
                written + QLatin1Char(' ') + firstSentences(result.problems),
                tr("A chunk file (.dck) keeps everything that can be read.")};
    const QPointer<WritingDesk> self(const_cast<WritingDesk *>(this));
    told.actionText = tr("Details");
    told.action = [self, problems = result.problems] {
        if (self)
            self->showList(tr("What is missing"), problems);
    };
    return told;
}

void WritingDesk::showList(const QString &title, const QStringList &lines)
{
    auto *dialog = new ListDialog(title, lines, window);
    dialog->show();
}

void WritingDesk::askForPacking(ShownTrace &trace)
{
    auto *dialog = new QFileDialog(window, tr("Pack into an archive"), lastArchiveFolder(),
                                   tr("Archives (*.zip)"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(QStringLiteral("zip"));
    dialog->selectFile(QFileInfo(trace.title()).completeBaseName() + QLatin1String(".zip"));
    connect(dialog, &QFileDialog::fileSelected, this,
            [this, trace = QPointer<ShownTrace>(&trace), timeline = trace.timeline(),
             paths = trace.paths()](const QString &archive) {
                QSettings().setValue(archiveFolder, QFileInfo(archive).path());
                BackgroundJob *job = pack(timeline, paths, archive);
                if (trace)
                    keepMarks(job, trace);
            });
    dialog->open();
}

BackgroundJob *WritingDesk::pack(const TraceTimeline &timeline, const QStringList &paths,
                                 const QString &archive)
{
    return run(
        tr("Packing %1").arg(shortName(archive)), [timeline, paths, archive](JobControl &control) {
            const ArchiveResult result = packTrace(timeline, paths, archive, control);
            const QString name = shortName(archive);
            if (result.isCancelled)
                return Notice{Notice::Information, tr("Packing %1 was cancelled.").arg(name), {}};
            const QString problems = firstSentences(result.problems);
            if (!result.isDone)
                return Notice{Notice::Failure, tr("%1 could not be packed. %2").arg(name, problems),
                              tr("Choose another place, or make room on the disk.")};
            const QString packed = tr("%1: %n chunks packed.", nullptr, result.chunks).arg(name);
            return result.problems.isEmpty()
                ? Notice{Notice::Information, packed, {}}
                : Notice{Notice::Warning, packed + QLatin1Char(' ') + problems, {}};
        });
}

void WritingDesk::askForUnpacking(const QString &archive)
{
    if (archive.endsWith(QLatin1String(".zip"), Qt::CaseInsensitive)) {
        askForFolder(archive);
        return;
    }
    auto *dialog = new QFileDialog(window, tr("Archive to unpack"), lastArchiveFolder(),
                                   tr("Archives (*.zip);;All files (*)"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    connect(dialog, &QFileDialog::fileSelected, this, &WritingDesk::askForFolder);
    dialog->open();
}

void WritingDesk::askForFolder(const QString &archive)
{
    QSettings().setValue(archiveFolder, QFileInfo(archive).path());
    auto *dialog =
        new QFileDialog(window, tr("Folder for the chunks of %1").arg(shortName(archive)),
                        QFileInfo(archive).path());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::Directory);
    connect(dialog, &QFileDialog::fileSelected, this,
            [this, archive](const QString &folder) { unpack(archive, folder); });
    dialog->open();
}

void WritingDesk::unpack(const QString &archive, const QString &folder)
{
    run(tr("Unpacking %1").arg(shortName(archive)), [this, archive, folder](JobControl &control) {
        const ArchiveResult result = unpackArchive(archive, folder, control);
        const QString name = shortName(archive);
        if (result.isCancelled)
            return Notice{Notice::Information, tr("Unpacking %1 was cancelled.").arg(name),
                          tr("Nothing of it was kept.")};
        const QString problems = firstSentences(result.problems);
        if (!result.isDone)
            return Notice{Notice::Failure, tr("%1 could not be unpacked. %2").arg(name, problems),
                          tr("Only archives of chunk files can be unpacked; open others as they "
                             "are.")};
        const QString unpacked =
            tr("%n chunks were unpacked into %1.", nullptr, result.chunks).arg(shortName(folder));
        return withOpen(result.problems.isEmpty()
                            ? Notice{Notice::Information, unpacked, {}}
                            : Notice{Notice::Warning, unpacked + QLatin1Char(' ') + problems, {}},
                        folder);
    });
}
