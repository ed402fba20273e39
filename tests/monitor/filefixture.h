#pragma once

#include "canframe.h"
#include "exporting.h"
#include "filedesk.h"
#include "showntrace.h"
#include "traceview.h"

#include <QAction>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QVBoxLayout>
#include <QWidget>

#include <memory>
#include <vector>

/// A window with nothing but a desk for files in it.
class FileWindow : public QWidget
{
public:
    FileWindow() : desk(this)
    {
        (new QVBoxLayout(this))->addWidget(desk.progress());
        connect(&desk, &FileDesk::opened, this, [this](ShownTrace *trace) { take(trace); });
        connect(&desk, &FileDesk::notice, this, [this](const Notice &told) { notices << told; });
        show();
    }
    ~FileWindow() override { traces.clear(); }

    ShownTrace *trace(std::size_t number = 0) { return traces[number].get(); }
    quint64 countOf(std::size_t number = 0)
    {
        TraceTimeline timeline = trace(number)->timeline();
        timeline.refresh();
        return timeline.count();
    }
    /// Has the first trace be the one that actions are about.
    void showFirst()
    {
        view = new TraceView(trace(), this);
        layout()->addWidget(view);
        desk.setCurrent(trace(), view);
    }
    void trigger(const char *action)
    {
        desk.findChild<QAction *>(QLatin1String(action))->trigger();
    }
    template <typename Dialog> Dialog *dialog(const char *name) const
    {
        return findChild<Dialog *>(QLatin1String(name));
    }

    FileDesk desk;
    std::vector<std::unique_ptr<ShownTrace>> traces;
    QList<Notice> notices;
    TraceView *view = nullptr;

private:
    void take(ShownTrace *trace)
    {
        connect(trace, &ShownTrace::notice, this, [this](const Notice &told) { notices << told; });
        traces.emplace_back(trace);
    }
};

/// Messages that a test makes up.
class MadeItems : public TraceItems
{
public:
    explicit MadeItems(quint32 count, qint64 start = 1000, qint64 step = 10)
        : count(count), start(start), step(step)
    {
    }

    bool forEach(const Take &take, const GoesOn &goesOn) override
    {
        for (quint32 i = 0; i < count; ++i) {
            TraceItem item;
            item.message = message(i);
            item.note = notes.value(i);
            if (bookmarks.contains(i))
                item.bookmark = CanMessageBookmark(i, bookmarks.value(i));
            if (!take(item) || (i % 100 == 0 && !goesOn(double(i) / count)))
                return true;
        }
        return true;
    }
    CAN::CanRxMessage message(quint32 number) const
    {
        CAN::CanRxMessage made;
        const qint64 time = start + step * number;
        made.messageNumber = number;
        made.seconds = time / 1000000;
        made.microseconds = time % 1000000;
        made.id = number % 0x700;
        made.length = 2;
        made.data[0] = uchar(number);
        made.data[1] = uchar(number >> 8);
        return made;
    }

    const quint32 count;
    const qint64 start; // in microseconds
    const qint64 step;
    QMap<quint32, QString> notes;
    QMap<quint32, QString> bookmarks;
};

inline bool writeFile(const QString &name, const QByteArray &bytes)
{
    QFile file(name);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

/// As a chunk file, or whatever the name ends in.
inline bool writeTrace(TraceItems &items, const QString &name)
{
    JobControl control;
    const ExportOrder order{name, TargetFormat::ofFile(name).value()};
    return exportItems(items, order, control).isWritten;
}
