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
        changes.push_back(change);
    }
    worker->setRunning(true);
    worker->wake();
}

void NoteWriter::writeAll()
{
    std::unique_lock<std::mutex> locker(mutex);
    while (!changes.empty()) {
        const Change change = changes.front();
        changes.pop_front();
        locker.unlock();
        QString error;
        if (change.kind == Change::Note)
            timeline.setNote(change.position, change.text, &error);
        else
            timeline.setBookmark(change.position, change.text, &error);
        emit ended(change, error); // queued, for whoever lives on another thread
        locker.lock();
    }
}
