#include "exporting.h"

#include "filewriters.h"
#include "partfile.h"
#include "plaintexts.h"

#include <QCoreApplication>

namespace {

struct Exporting
{
    Q_DECLARE_TR_FUNCTIONS(Exporting)
};

// Notes belong to numbers, so that these have to be unique in a file: where they do not rise,
// higher ones are given.
class RisingNumbers
{
public:
    void apply(TraceItem &item)
    {
        CAN::CanRxMessage &message = item.message;
        if (hasAny && message.messageNumber + shift <= highest)
            shift = highest + 1 - message.messageNumber;
        message.messageNumber += shift;
        highest = message.messageNumber;
        hasAny = true;
    }

private:
    quint32 shift = 0;
    quint32 highest = 0;
    bool hasAny = false;
};

// One writing of items, which goes through them once or twice.
class Writing
{
public:
    Writing(TraceItems &items, const ExportOrder &order, JobControl &control)
        : items(items), order(order), control(control)
    {
        control.total = steps;
    }

    ExportResult write(const QString &fileName)
    {
        const bool isOwn = order.format.isOwn();
        passes = isOwn ? 2 : 1;
        if (isOwn && !survey())
            return ended(false);
        const auto writer = writerFor(fileName);
        const bool isComplete = writer->open() && writeAll(*writer) && writer->close();
        if (!isComplete && result.error.isEmpty())
            result.error = writer->errorText();
        result.losses = writer->losses() + items.problems();
        return ended(isComplete);
    }

private:
    static constexpr qint64 steps = 1000;

    bool forEach(const std::function<bool(const TraceItem &item)> &take)
    {
        RisingNumbers numbers;
        const bool isOwn = order.format.isOwn();
        const auto renumber = [&](const TraceItem &item) {
            if (!isOwn)
                return take(item);
            TraceItem own = item;
            numbers.apply(own);
            return take(own);
        };
        const auto goesOn = [this](double part) {
            control.done = qint64((pass + part) / passes * steps);
            return !control.isCancelled;
        };
        const bool isRead = items.forEach(renumber, goesOn);
        ++pass;
        if (!isRead)
            result.error = firstSentences(items.problems());
        return isRead && !control.isCancelled;
    }

    bool survey()
    {
        const bool isRead = forEach([this](const TraceItem &item) {
            if (frame.count++ == 0)
                frame.first = item.message;
            frame.last = item.message;
            if (!item.note.isEmpty())
                frame.notes.insert(item.message.messageNumber, item.note);
            if (item.bookmark.isValid())
                frame.bookmarks.insert(
                    item.message.messageNumber,
                    CanMessageBookmark(item.message.messageNumber, item.bookmark.text()));
            return true;
        });
        return isRead && isAny(frame.count);
    }

    std::unique_ptr<FileWriter> writerFor(const QString &fileName) const
    {
        if (order.format.kind == TargetFormat::Foreign)
            return std::make_unique<ForeignWriter>(fileName, order.format.foreign, order.times);
        if (order.format.kind == TargetFormat::Parquet)
            return std::make_unique<ParquetWriter>(fileName);
        return std::make_unique<OwnWriter>(fileName, frame, order.withNotes);
    }

    bool writeAll(FileWriter &writer)
    {
        bool isWritten = true;
        const bool isRead = forEach([&](const TraceItem &item) {
            isWritten = writer.write(item);
            control.messages = ++result.messages;
            return isWritten;
        });
        return isRead && isWritten && isAny(result.messages);
    }

    bool isAny(quint64 messages)
    {
        if (messages == 0)
            result.error = Exporting::tr("There is no message to write.");
        return messages > 0;
    }

    ExportResult ended(bool isComplete)
    {
        result.isCancelled = control.isCancelled;
        result.isWritten = isComplete && !result.isCancelled;
        if (result.isCancelled)
            result.error.clear();
        return result;
    }

    TraceItems &items;
    const ExportOrder &order;
    JobControl &control;
    TraceFrame frame;
    ExportResult result;
    int passes = 1;
    int pass = 0;
};

} // namespace

ExportResult writeItems(TraceItems &items, const QString &fileName, const ExportOrder &order,
                        JobControl &control)
{
    return Writing(items, order, control).write(fileName);
}

ExportResult exportItems(TraceItems &items, const ExportOrder &order, JobControl &control)
{
    PartFile file(order.target, order.format.suffix());
    ExportResult result;
    if (file.isValid())
        result = writeItems(items, file.name(), order, control);
    if (result.isWritten || !file.isValid()) {
        result.isWritten = file.putInPlace();
        result.error = file.errorText();
    }
    return result;
}

Notice exportNotice(const ExportOrder &order, const ExportResult &result)
{
    const QString name = shortName(order.target);
    if (result.isCancelled)
        return {Notice::Information, Exporting::tr("Writing %1 was cancelled.").arg(name),
                Exporting::tr("Nothing of it was kept.")};
    if (!result.isWritten)
        return {Notice::Failure,
                Exporting::tr("%1 could not be written. %2").arg(name, result.error),
                Exporting::tr("Choose another place or name, or other messages.")};
    const QString written =
        Exporting::tr("%1: %2 written.").arg(name, messagesText(result.messages));
    if (result.losses.isEmpty())
        return {Notice::Information, written, {}};
    return {Notice::Warning, written + QLatin1Char(' ') + firstSentences(result.losses),
            order.format.kind == TargetFormat::OwnChunk
                ? QString()
                : Exporting::tr("A chunk file (.dck) keeps everything.")};
}
