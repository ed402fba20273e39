#include "notewriter.h"

NoteWriter::NoteWriter(const TraceTimeline &timeline, QObject *parent)
    : QObject(parent), timeline(timeline),
      worker(std::make_unique<TurningThread>([this](const TurningThread::KeepGoing &) {
          writeAll();
          return -1;
      }))
{
    qRegisterMetaType<Change>("NoteWriter::Change");
}

NoteWriter::~NoteWriter()
{
    worker.reset();
    // What it has not come to, also where the system refused a thread. Whoever owns this is about
    // to go as well, and is told nothing more.
    blockSignals(true);
    writeAll();
}

void NoteWriter::write(const Change &change)
{
    {
        const std::lock_guard<std::mutex> locker(mutex);
        changes.push_back({change, timeline.generation()});
    }
    worker->setRunning(true);
    worker->wake();
}

void NoteWriter::writeAll()
{
    std::unique_lock<std::mutex> locker(mutex);
    while (!changes.empty()) {
        const Waiting next = changes.front();
        changes.pop_front();
        locker.unlock();
        const QString error = written(next);
        emit ended(next.change, error); // queued, for whoever lives on another thread
        locker.lock();
    }
}

// Empty when it is, else why not.
QString NoteWriter::written(const Waiting &next)
{
    const Change &change = next.change;
    QString error;
    if (change.kind == Change::Note)
        timeline.setNote(change.position, change.text, &error, next.generation);
    else
        timeline.setBookmark(change.position, change.text, &error, next.generation);
    return error;
}
