#pragma once

#include "datachunkhandler.h"
#include "messages.h"
#include "tracesegment.h"
#include "tracesource.h"
#include "tracetablemodel.h"

#include <QAbstractItemModelTester>
#include <QSemaphore>
#include <QtTest>

#include <memory>

// What the tests of the table show in it, and what a view knows of it.

using Model = TraceTableModel;
using CAN::CanRxMessage;

inline TraceExpression expression(const QString &text)
{
    const auto read = TraceExpression::parse(text);
    if (!read)
        qFatal("%s is no expression", qPrintable(text));
    return *read;
}

// Shows what it is told to.
class HandSource : public TraceSource
{
public:
    SharedSnapshot refresh() override
    {
        auto now = std::make_shared<TraceSnapshot>();
        for (const SharedSegment &segment : segments)
            now->append(segment);
        now->setEpoch(epoch);
        return now;
    }
    bool isComplete() const override { return true; }
    bool mayChange() const override { return false; }
    QStringList problems() const override { return {}; }

    std::vector<SharedSegment> segments;
    quint32 epoch = 0;
};

// Claims very many messages and makes them up where they are asked for.
class HugeSegment : public TraceSegment
{
public:
    explicit HugeSegment(quint32 count) : TraceSegment(indexOf(count)) { }

    bool isChunk() const override { return true; }
    bool decode(quint32 step, Messages &messages) const override
    {
        messages.clear();
        for (quint32 i = 0; i < index().sizeOfStep(step); ++i) {
            messages.emplace_back();
            messages.back().messageNumber = step * ChunkIndex::recordsPerStep + i;
        }
        return true;
    }
    bool scan(const Scan &, const TakeStep &) const override { return false; }
    TraceNotes::Marks marks() const override { return {}; }

private:
    static ChunkIndex indexOf(quint32 count)
    {
        ChunkIndex index;
        index.count = count;
        index.minTime = index.maxTime = 0;
        return index;
    }
};

// Can be looked through when its gate is open.
class GatedSegment : public ListSegment
{
public:
    using ListSegment::ListSegment;

    bool scan(const Scan &scan, const TakeStep &take) const override
    {
        gate.acquire();
        gate.release();
        return ListSegment::scan(scan, take);
    }

    mutable QSemaphore gate;
};

template <typename Segment>
std::shared_ptr<Segment> segmentOf(const QVector<CanRxMessage> &messages, const Notes &notes = {})
{
    ChunkIndexer indexer(ChunkFormat::currentVersion, 0);
    MessageList list;
    for (const CanRxMessage &message : messages) {
        indexer.add(MessageView(message));
        list.append(message);
    }
    ChunkIndex index = indexer.finish();
    index.notes = quint32(notes.size());
    return std::make_shared<Segment>(list, index, TraceNotes::Marks{notes, {}});
}

inline QVector<CanRxMessage> numbered(quint32 first, int count)
{
    QVector<CanRxMessage> messages;
    for (int i = 0; i < count; ++i) {
        messages.append(makeMessage(first + quint32(i), QByteArray(i % 2 ? "11" : "22")));
        messages.back().messageNumber = first + quint32(i);
        messages.back().seconds = qint32(first) + i;
    }
    return messages;
}

// A source of segments that can be looked through one by one.
class GatedSource : public HandSource
{
public:
    GatedSource(int count, int messagesInEach)
    {
        for (int i = 0; i < count; ++i) {
            gated.push_back(
                segmentOf<GatedSegment>(numbered(quint32(i * messagesInEach), messagesInEach)));
            segments.push_back(gated.back());
        }
    }

    void open(std::size_t segment) { gated[segment]->gate.release(); }

    // A filter ends when its threads have come through.
    struct OpenAll
    {
        GatedSource &source;
        ~OpenAll()
        {
            for (std::size_t i = 0; i < source.gated.size(); ++i)
                source.open(i);
        }
    };

private:
    std::vector<std::shared_ptr<GatedSegment>> gated;
};

// What a view knows that believes nothing but the signals.
class Mirror : public QObject
{
public:
    explicit Mirror(Model &model)
        : model(model), tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal)
    {
        connect(&model, &Model::modelReset, this, [this] {
            ++resets;
            readAll();
        });
        connect(&model, &Model::rowsInserted, this, [this](const QModelIndex &, int from, int to) {
            for (int row = from; row <= to; ++row)
                rows.insert(row, textOf(row));
        });
        connect(&model, &Model::dataChanged, this,
                [this](const QModelIndex &from, const QModelIndex &to) {
                    for (int row = from.row(); row <= to.row(); ++row)
                        rows[row] = textOf(row);
                });
        readAll();
    }

    bool isRight() const
    {
        for (int row = 0; row < rows.size(); ++row) {
            if (rows[row] != textOf(row))
                return false;
        }
        return rows.size() == model.rowCount();
    }

    int resets = 0;

private:
    QString textOf(int row) const
    {
        QStringList texts;
        for (const int column : {Model::PositionColumn, Model::DataColumn, Model::NoteColumn})
            texts += model.index(row, column).data().toString();
        return texts.join(' ');
    }
    void readAll()
    {
        rows.clear();
        for (int row = 0; row < model.rowCount(); ++row)
            rows.append(textOf(row));
    }

    Model &model;
    QAbstractItemModelTester tester;
    QStringList rows;
};

inline QString text(const Model &model, int row, Model::Column column)
{
    return model.index(row, column).data().toString();
}

inline QVector<quint64> positions(const Model &model)
{
    QVector<quint64> all;
    for (int row = 0; row < model.rowCount(); ++row)
        all.append(model.index(row, 0).data(Model::PositionRole).toULongLong());
    return all;
}

inline void append(DatachunkHandler &store, int count, quint32 firstId = 0x100)
{
    for (int i = 0; i < count; ++i)
        store.appendCanMessage(makeMessage(firstId + quint32(i % 10), i % 2 ? "11" : "22"));
}

// A table whose refreshes come when the test says so.
inline std::unique_ptr<Model> quietModel(const TraceTimeline &timeline)
{
    auto model = std::make_unique<Model>(timeline);
    model->setRefreshInterval(0);
    return model;
}
