#include "notewriter.h"

NoteWriter::NoteWriter(const TraceTimeline &timeline, QObject *parent)
    : QObject(parent), timeline(timeline)
{
    qRegisterMetaType<Change>("NoteWriter::Change");
}

NoteWriter::~NoteWriter()
{
    {
        const std::lock_guard<std::mutex> locker(mutex);
        isStopping = true;
    }
    wake.notify_one();
    if (thread.joinable())
        thread.join();
}

void NoteWriter::write(const Change &change)
{
    {
        const std::lock_guard<std::mutex> locker(mutex);
        changes.push_back(change);
    }
    if (!thread.joinable())
        thread = std::thread([this] { work(); });
    wake.notify_one();
}

void NoteWriter::work()
{
    std::unique_lock<std::mutex> locker(mutex);
    for (;;) {
        wake.wait(locker, [this] { return isStopping || !changes.empty(); });
        if (changes.empty())
            return;
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
