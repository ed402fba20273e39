#pragma once

#include "datachunkhandler.h"
#include "showntrace.h"
#include "tracetable.h"
#include "tracetablemodel.h"
#include "traceview.h"

#include <QAction>
#include <QScrollBar>
#include <QTest>

#include <memory>

/// A trace in a window of its own: message n has the time 10 s + n ms, the payload n & FF and 41,
/// and the identifier 100, or 18FF0001 where n is odd.
class TraceWindow
{
public:
    /// With so many messages. False when no window came.
    bool show(int count, bool isRunning = false)
    {
        append(count);
        trace = std::make_unique<LiveTrace>(store);
        trace->isRunning = isRunning;
        view = std::make_unique<TraceView>(trace.get());
        view->resize(1000, 500);
        view->show();
        view->activateWindow();
        table = view->findChild<TraceTable *>();
        for (QScrollBar *candidate : view->findChildren<QScrollBar *>())
            bar = candidate->inherits("AllRowsBar") ? candidate : bar;
        table->setFocus();
        return QTest::qWaitForWindowActive(view.get()) && bar;
    }
    void append(int count)
    {
        for (int i = 0; i < count; ++i)
            store.appendCanMessage(message(appended++));
    }
    void clear()
    {
        store.clearAllMessages();
        appended = 0;
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(table, key, modifiers);
    }
    void trigger(const QKeySequence &keys)
    {
        for (QAction *action : view->editActions()) {
            if (action->shortcut() == keys)
                action->trigger();
        }
    }
    quint64 total() const { return view->model()->total(); }
    bool isInSight(quint64 position) const { return table->isInSight(position); }

private:
    /// What is received and what has been received.
    class LiveTrace : public ShownTrace
    {
    public:
        explicit LiveTrace(DatachunkHandler &store)
            : ShownTrace(store.timeline(), QStringLiteral("x"))
        {
        }
        bool isGrowing() const override { return isRunning; }

        bool isRunning = false;
    };

    static CAN::CanRxMessage message(quint32 number)
    {
        CAN::CanRxMessage made;
        made.id = number % 2 == 0 ? 0x100 : 0x18ff0001;
        made.extended = number % 2 != 0;
        made.length = 2;
        made.data[0] = quint8(number);
        made.data[1] = quint8('A');
        made.seconds = 10 + qint32(number / 1000);
        made.microseconds = qint32(number % 1000) * 1000;
        return made;
    }

    quint32 appended = 0;
    DatachunkHandler store{1000000};

public:
    std::unique_ptr<LiveTrace> trace;
    std::unique_ptr<TraceView> view;
    TraceTable *table = nullptr;
    QScrollBar *bar = nullptr;
};
