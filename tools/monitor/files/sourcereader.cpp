#include "sourcereader.h"

#include <QElapsedTimer>
#include <QFile>

#include <system_error>
#include <utility>

namespace {

constexpr qint64 blockSize = 1024LL * 1024;
constexpr qint64 progressInterval = 100; // milliseconds

} // namespace

/// The file with the index that grows. On the reader's thread.
class SourceReader::Reading
{
public:
    explicit Reading(const QString &fileName) : file(fileName) { }

    bool open()
    {
        if (!file.open(QIODevice::ReadOnly))
            return false;
        index = std::make_unique<LineIndex>(file.size(), file.peek(4));
        return true;
    }
    QString errorText() const { return file.errorString(); }

    // Takes another block into the index.
    void goOn()
    {
        const bool isRead = file.seek(index->taken());
        block = isRead ? file.read(blockSize) : QByteArray();
        index->add(block.constData(), block.size());
        isAtEnd = block.size() < blockSize;
    }
    bool knows(quint64 line) const { return isAtEnd || line < index->lines(); }
    bool isComplete() const { return isAtEnd; }

    QStringList read(quint64 first, int count) { return index->read(file, first, count); }
    quint64 lines() const { return isAtEnd ? index->linesInAll() : index->lines(); }
    qint64 done() const { return index->taken(); }
    qint64 total() const { return file.size(); }

private:
    QFile file;
    std::unique_ptr<LineIndex> index;
    QByteArray block;
    bool isAtEnd = false;
};

SourceReader::SourceReader(QString fileName, int pageLines, QObject *parent)
    : QObject(parent), fileName(std::move(fileName)), pageLines(pageLines)
{
    try {
        thread = std::thread([this] { work(); });
    } catch (const std::system_error &) {
        QMetaObject::invokeMethod(
            this, [this] { emit failed(tr("The system has no thread left.")); },
            Qt::QueuedConnection);
    }
}

SourceReader::~SourceReader()
{
    {
        const std::lock_guard<std::mutex> locker(mutex);
        isEnding = true;
    }
    changed.notify_all();
    if (thread.joinable())
        thread.join();
}

void SourceReader::want(quint64 first)
{
    {
        const std::lock_guard<std::mutex> locker(mutex);
        wanted = first;
    }
    changed.notify_all();
}

// What is wanted; where nothing else is to be done it is waited for.
quint64 SourceReader::waitForWish(bool isComplete)
{
    std::unique_lock<std::mutex> locker(mutex);
    if (isComplete)
        changed.wait(locker, [this] { return isEnding || wanted != 0; });
    return wanted;
}

// Signals from here come to the others' threads queued.
void SourceReader::work()
{
    // What is told once is told when somebody listens: whoever wants a page does.
    waitForWish(true);
    Reading reading(fileName);
    if (!reading.open()) {
        emit failed(reading.errorText());
        return;
    }
    QElapsedTimer clock;
    clock.start();
    for (;;) {
        const quint64 wish = waitForWish(reading.isComplete());
        if (const std::lock_guard<std::mutex> locker(mutex); isEnding)
            return;
        if (wish != 0 && reading.knows(wish + quint64(pageLines))) {
            emit page(wish, reading.read(wish, pageLines));
            const std::lock_guard<std::mutex> locker(mutex);
            if (wanted == wish)
                wanted = 0;
            continue;
        }
        reading.goOn();
        if (reading.isComplete())
            emit complete(reading.lines());
        else if (clock.elapsed() >= progressInterval) {
            emit progress(reading.lines(), reading.done(), reading.total());
            clock.start();
        }
    }
}
