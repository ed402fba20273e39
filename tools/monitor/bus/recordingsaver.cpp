#include "recordingsaver.h"

#include "chunkcopy.h"
#include "recording.h"

#include <QDir>
#include <QFileInfo>

#include <limits>
#include <utility>

RecordingSaver::RecordingSaver(QObject *parent) : QObject(parent) { }

RecordingSaver::~RecordingSaver()
{
    cancel();
}

void RecordingSaver::save(std::unique_ptr<Recording> other, const SaveTarget &where)
{
    recording = std::move(other);
    // From here on nothing must go that the user wants to keep.
    recording->store().setMaximumHDDSpace(std::numeric_limits<unsigned>::max());
    recording->store().setMaximumWaitingMessages(std::numeric_limits<unsigned>::max());
    connect(recording.get(), &Recording::storeFailed, this,
            [this](const QString &text) { error = text; });
    saveKept(where);
}

void RecordingSaver::saveKept(const SaveTarget &where)
{
    target = where;
    error.clear();
    isCancelled = false;
    setBusy(true);
    emit progress(0);
    whenWritten(&RecordingSaver::writeLast);
}

void RecordingSaver::cancel()
{
    isCancelled = true;
    if (recording && target.isArchive)
        recording->store().cancelImport();
}

// What the store tells of a save is there before \a next is called, which comes behind it.
void RecordingSaver::whenWritten(void (RecordingSaver::*next)())
{
    worker.run([this, next, store = &recording->store()](const TaskThread::GoesOn &isWanted) {
        constexpr int moment = 100;
        while (goesOn(isWanted) && !store->waitForSaves(moment)) { }
        QMetaObject::invokeMethod(
            this,
            [this, next] {
                if (isCancelled)
                    end({});
                else
                    (this->*next)();
            },
            Qt::QueuedConnection);
    });
}

// An export leaves the messages where they are, so that nothing is lost when the disk is full.
void RecordingSaver::writeLast()
{
    error.clear();
    if (recording->store().getMessageCount() > 0)
        recording->store().exportAllMessages(QStringLiteral("last.dck"),
                                             DatachunkHelper::ExportWithNotes);
    whenWritten(&RecordingSaver::bringToTarget);
}

void RecordingSaver::bringToTarget()
{
    if (!error.isEmpty()) {
        end(error);
        return;
    }
    worker.run(
        [this, folder = recording->store().chunkFolderPath()](const TaskThread::GoesOn &isWanted) {
            const QString failure =
                target.isArchive ? saveArchive(isWanted) : saveFolder(folder, isWanted);
            // The store would delete them on the window's thread.
            if (failure.isEmpty() && !isCancelled)
                removeChunks(folder);
            QMetaObject::invokeMethod(
                this, [this, failure] { end(failure); }, Qt::QueuedConnection);
        });
}

QString RecordingSaver::saveFolder(const QString &chunkFolder, const TaskThread::GoesOn &isWanted)
{
    return copyChunks(chunkFolder, target.path, [&](int percent) {
        QMetaObject::invokeMethod(
            this, [this, percent] { emit progress(percent); }, Qt::QueuedConnection);
        return goesOn(isWanted);
    });
}

// Packed beside its place, so that an archive which is there already stays until this one is whole.
QString RecordingSaver::saveArchive(const TaskThread::GoesOn &isWanted)
{
    const QFileInfo file(target.path);
    const QString folderError = makeFolder(file.absolutePath());
    if (!folderError.isEmpty())
        return folderError;
    const QString unfinished =
        file.absoluteDir().filePath(QStringLiteral(".unfinished-%1").arg(file.fileName()));
    QFile::remove(unfinished);
    DatachunkHandler &store = recording->store();
    store.setZipFileName(unfinished);
    store.saveDatachunksToZip();
    if (!goesOn(isWanted) || !QFile::exists(unfinished)) {
        QFile::remove(unfinished);
        return isCancelled ? QString()
                           : tr("The archive %1 could not be written.").arg(target.path);
    }
    return replaceFile(unfinished, target.path);
}

void RecordingSaver::end(const QString &failure)
{
    setBusy(false);
    if (isCancelled) {
        emit failed({}, {});
    } else if (!failure.isEmpty()) {
        emit failed(tr("The recording was not saved. %1").arg(failure),
                    tr("It is still there: save it to another place, or make room first."));
    } else {
        recording.reset();
        emit saved({target.path});
    }
}

// The chunks go first: the store would delete them on the window's thread.
void RecordingSaver::discard(std::unique_ptr<Recording> other)
{
    const QString folder = other->store().chunkFolderPath();
    discarded.push_back(std::move(other));
    worker.run([this, folder](const TaskThread::GoesOn &) {
        removeChunks(folder);
        QMetaObject::invokeMethod(
            this, [this] { discarded.erase(discarded.begin()); }, Qt::QueuedConnection);
    });
}

void RecordingSaver::discardKept()
{
    if (kept())
        discard(std::move(recording));
}

void RecordingSaver::setBusy(bool on)
{
    busy = on;
    emit busyChanged();
}
