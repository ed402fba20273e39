#include "storedriver.h"

#include <QtTest>

StoreDriver::StoreDriver(quint32 seed, Weights weights, int readers)
    : random(seed), weights(weights), readerCount(readers)
{
}

StoreDriver::~StoreDriver() = default;

QString StoreDriver::run(int commandCount, quint64 messages)
{
    commandLog = QStringList{QString()};
    beginStore();
    for (int i = 0; i < commandCount && appended < messages && firstFailure.isEmpty(); ++i) {
        const Command &command = anyCommand();
        if (weights == Recording && commandLog.size() > 1000)
            commandLog.erase(commandLog.begin(), commandLog.begin() + 500);
        commandLog += QStringLiteral("%1: %2").arg(i).arg(QLatin1String(command.name));
        command.run(*this);
        check();
    }
    commandLog += QStringLiteral("end");
    if (firstFailure.isEmpty() && weights != EndingAtOnce)
        settle();
    endStore();
    if (weights != EndingAtOnce)
        qInfo("%llu messages appended; %llu found in chunks, %llu removed with theirs before, %llu "
              "live or on their way at a clearing or an end, or lost by design",
              appended, verified, lostByBudgetUnseen, lostWithReason);
    compare("messages accounted for:", verified + lostByBudgetUnseen + lostWithReason, appended);
    // The end of a long text is not printed.
    return firstFailure.isEmpty() ? QString() : firstFailure + '\n' + commandLog.join('\n');
}

void StoreDriver::beginStore()
{
    static constexpr quint32 limits[] = {5001, 5000, 4999, 5010, 5100, 5999, 7000, 12000, 0};
    quint32 limit = limits[below(int(std::size(limits)))];
    if (weights == Recording)
        limit = 20000;
    const bool hasBookmarks = below(4) != 0;
    note(QStringLiteral("store %1%2").arg(limit).arg(hasBookmarks ? " with bookmarks" : ""));
    model = std::make_unique<StoreModel>(limit, hasBookmarks, serials, imported);
    store = std::make_unique<DatachunkHandler>(limit);
    bookmarks = hasBookmarks ? std::make_unique<BookmarkHandler>() : nullptr;
    store->setBookmarkhandler(bookmarks.get());
    if (weights == Recording)
        store->setMaximumHDDSpace(model->budget = 100);
    switches = switchStarts = switchesSettled = 0;
    connectStore();
    timeline = store->timeline();
    filter = timeline->filter(*TraceExpression::parse(QStringLiteral("b0<40")));
    stopReading = false;
    for (int i = 0; i < readerCount; ++i)
        readers.emplace_back([this, seed = random()] { read(seed); });
}

void StoreDriver::endStore()
{
    forgetTrace();
    const QString base = QFileInfo(store->chunkFolderPath()).path();
    stopReading = true;
    for (std::thread &reader : readers)
        reader.join();
    readers.clear();
    store.reset();
    timeline->refresh();
    require(timeline->row(0).state != TraceRow::Known || filter->wait(), QStringLiteral("the end"));
    filter.reset();
    timeline.reset();
    QCoreApplication::processEvents();
    require(toldChunks == 0 && told.isEmpty(), QStringLiteral("a store that is gone told a thing"));
    compare("left:", QDir(base).entryList(), QStringList{".", ".."});
    checkExports();
    lastChunk.reset();
    serials = model->nextSerial();
    imported = model->imports;
}

// Looks at messages as a view of the application does, which keeps what it was given.
void StoreDriver::read(quint32 seed)
{
    std::mt19937 numbers(seed);
    CAN::CanRxMessage message;
    TraceTimeline trace = store->timeline();
    while (!stopReading) {
        trace.refresh();
        const auto place = quint32(numbers() % (trace.count() + 1));
        const TraceRow row = trace.row(place);
        if (row.state == TraceRow::Known
            && (!isWhole(row.message) || row.message.messageNumber != place))
            sawTorn = true;
        const quint32 count = store->getMessageCount();
        const int position = int(numbers() % (count + 2)) - 1;
        const CAN::CanRxMessage last = store->getLastMessage();
        if (store->getMessageAtIndex(message, position) && !isWhole(message))
            sawTorn = true;
        store->nextMessageForLine(message, 1);
        if (!isWhole(message) || !isWhole(last) || !isWhole(store->messageAt(position)))
            sawTorn = true;
        std::this_thread::yield();
    }
}
