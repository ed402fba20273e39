#include "datasetparts.h"

#include "canrxmessage.h"

#include <algorithm>

namespace {

constexpr int mostOpen = 8;
// Enough for every day of 27 years, in order.
constexpr int mostTimesOpened = 10000;

qint64 timeOf(const CAN::CanRxMessage &message)
{
    constexpr qint64 microsecondsPerSecond = 1000000;
    return message.seconds * microsecondsPerSecond + message.microseconds;
}

} // namespace

struct DatasetParts::Part
{
    QFile file;
    qint64 day = 0;
    ParquetTrace trace;
    QByteArray bytes;
    quint64 lastUse = 0;
};

DatasetParts::DatasetParts(const WorkFolder &work, const Partition &partition, const QString &trace,
                           const QString &prefix)
    : work(work), partition(partition), trace(trace), prefix(prefix)
{
}

DatasetParts::~DatasetParts() = default;

DatasetParts::Result DatasetParts::append(const MessageBlock &block)
{
    constexpr int leastWritten = 256 * 1024;
    Part *part = nullptr;
    for (BlockCursor cursor(block); !cursor.isAtEnd(); cursor.moveOn()) {
        const qint64 day =
            partition.hasDate() ? Partition::dayOf(timeOf(cursor.message())) : qint64(0);
        if (!part || part->day != day) {
            const Result result = partOf(day, part);
            if (result != Written)
                return result;
        }
        part->trace.append(cursor.message(), cursor.note(), part->bytes);
        if (part->bytes.size() >= leastWritten && !flush(*part))
            return NotWritten;
    }
    return Written;
}

DatasetParts::Result DatasetParts::partOf(qint64 day, Part *&part)
{
    std::unique_ptr<Part> &found = days[day];
    if (!found) {
        found = std::make_unique<Part>();
        found->day = day;
        found->file.setFileName(work.filePath(QStringLiteral("%1.%2").arg(prefix).arg(day)));
    }
    part = found.get();
    part->lastUse = ++turn;
    if (part->file.isOpen())
        return Written;
    if (++timesOpened > mostTimesOpened)
        return TooManyDays;
    return (openParts < mostOpen || closeOldest()) && open(*part) ? Written : NotWritten;
}

bool DatasetParts::open(Part &part)
{
    const bool isOpen =
        part.file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered);
    if (!isOpen)
        error = part.file.errorString();
    openParts += isOpen ? 1 : 0;
    return isOpen;
}

// Times may go back to its day, so that its end is not written yet.
bool DatasetParts::closeOldest()
{
    Part *oldest = nullptr;
    for (const auto &[day, part] : days) {
        if (part->file.isOpen() && (!oldest || part->lastUse < oldest->lastUse))
            oldest = part.get();
    }
    oldest->trace.release(oldest->bytes);
    const bool isWritten = flush(*oldest);
    oldest->bytes = {};
    oldest->file.close();
    --openParts;
    return isWritten;
}

bool DatasetParts::flush(Part &part)
{
    for (qint64 at = 0; at < part.bytes.size();) {
        const qint64 taken = part.file.write(part.bytes.constData() + at, part.bytes.size() - at);
        if (taken <= 0) {
            error = part.file.errorString();
            return false;
        }
        at += taken;
    }
    part.bytes.resize(0);
    return true;
}

DatasetParts::Result DatasetParts::finish(const ParquetTrace::Source &source)
{
    for (const auto &[day, part] : days) {
        if (!part->file.isOpen() && !open(*part))
            return NotWritten;
        part->trace.setSource(source);
        part->trace.finish(part->bytes);
        const bool isWritten = flush(*part);
        part->trace.release(part->bytes);
        part->bytes = {};
        part->file.close();
        if (!isWritten || part->file.error() != QFileDevice::NoError)
            return NotWritten;
    }
    return Written;
}

std::vector<DatasetPart> DatasetParts::parts() const
{
    std::vector<DatasetPart> list;
    for (const auto &[day, part] : days)
        list.push_back(
            {part->file.fileName(), partition.folderOf(trace, day), part->trace.written()});
    return list;
}

quint64 DatasetParts::notesCut() const
{
    quint64 sum = 0;
    for (const auto &[day, part] : days)
        sum += part->trace.notesCut();
    return sum;
}
