#include "sourcereader.h"

#include <QFile>

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
    : QObject(parent), fileName(std::move(fileName)), pageLines(pageLines),
      thread([this](const TurningThread::KeepGoing &keepGoing) {
          if (hasFile())
              work(keepGoing);
          return -1;
      })
{
}

SourceReader::~SourceReader() = default;

void SourceReader::want(quint64 first)
{
    wanted = first;
    if (thread.setRunning(true))
        thread.wake();
    else
        QMetaObject::invokeMethod(
            this, [this] { emit failed(tr("The system has no thread left.")); },
            Qt::QueuedConnection);
}

// Signals from here on come to the others' threads queued.
bool SourceReader::hasFile()
{
    if (hasFailed)
        return false;
    if (reading)
        return true;
    reading = std::make_unique<Reading>(fileName);
    hasFailed = !reading->open();
    if (hasFailed)
        emit failed(reading->errorText());
    sinceProgress.start();
    return !hasFailed;
}

// Until all lines are known, and what is wanted is there.
void SourceReader::work(const TurningThread::KeepGoing &keepGoing)
{
    while (keepGoing()) {
        quint64 wish = wanted;
        if (wish != 0 && reading->knows(wish + quint64(pageLines))) {
            emit page(wish, reading->read(wish, pageLines));
            wanted.compare_exchange_strong(wish, 0);
        } else if (reading->isComplete()) {
            return;
        } else {
            readOn();
        }
    }
}

void SourceReader::readOn()
{
    reading->goOn();
    if (reading->isComplete()) {
        emit complete(reading->lines());
    } else if (sinceProgress.elapsed() >= progressInterval) {
        emit progress(reading->lines(), reading->done(), reading->total());
        sinceProgress.start();
    }
}
