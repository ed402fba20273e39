#pragma once

#include "busdesk.h"
#include "recording.h"

#include <QAction>
#include <QCloseEvent>
#include <QDialog>
#include <QDockWidget>
#include <QLabel>
#include <QMainWindow>
#include <QTest>

#include <algorithm>

/// A window with the desk of the bus lines in it, as in the program, that keeps what it is told.
class DeskWindow : public QMainWindow
{
public:
    DeskWindow() : desk(new BusDesk(this))
    {
        addDockWidget(Qt::LeftDockWidgetArea, desk->dock());
        setCentralWidget(desk->status());
        const auto take = [this](const Notice &notice) { notices.push_back(notice); };
        connect(desk, &BusDesk::notice, this, take);
        connect(desk->recording(), &Recording::notice, this, take);
        connect(desk, &BusDesk::saved, this, [this](const QStringList &paths) { saved = paths; });
        show();
    }

    QAction *action(const char *name) const
    {
        return desk->findChild<QAction *>(QLatin1String(name));
    }
    template <typename Dialog = QDialog> Dialog *dialog(const char *name) const
    {
        return findChild<Dialog *>(QLatin1String(name));
    }
    QString countsText() const
    {
        return findChild<QLabel *>(QStringLiteral("recordingCounts"))->text();
    }

    QString allTexts() const
    {
        QStringList texts;
        for (const Notice &notice : notices)
            texts << notice.text + QLatin1Char(' ') + notice.advice;
        return texts.join(QLatin1Char('\n'));
    }
    bool hasTold(const QString &text) const { return allTexts().contains(text); }

    /// How many messages the store of the recording knows.
    quint64 recorded() const
    {
        TraceTimeline timeline = desk->recording()->timeline();
        timeline.refresh();
        return timeline.count();
    }
    CAN::CanRxMessage message(quint64 position) const
    {
        return desk->recording()->timeline().row(position).message;
    }

    BusDesk *const desk;
    std::vector<Notice> notices;
    QStringList saved;

protected:
    void closeEvent(QCloseEvent *event) override { event->setAccepted(desk->mayClose()); }
};

/// Where there is no window manager, windows do not become active by being shown.
inline bool activate(QWidget &window)
{
    if (!QTest::qWaitForWindowExposed(&window))
        return false;
    window.activateWindow();
    return QTest::qWaitForWindowActive(&window);
}
