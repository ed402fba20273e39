#include "busdesk.h"

#include "buschoice.h"
#include "buslines.h"
#include "connectdialog.h"
#include "leftrecordings.h"
#include "linesdock.h"
#include "messagesink.h"
#include "recording.h"
#include "recordingkeeper.h"
#include "recordingstatus.h"

#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QLockFile>
#include <QSettings>
#include <QTimer>

BusDesk::BusDesk(QWidget *window)
    : QObject(window), window(window), sink(std::make_shared<MessageSink>()),
      keeper(std::make_unique<RecordingKeeper>(sink, window)),
      left(std::make_unique<LeftRecordings>(window)), ownLines(std::make_unique<BusLines>(sink))
{
    makeActions();
    ownDock = new LinesDock(ownLines.get(), connectAction, tryAction, window);
    ownStatus = new RecordingStatus(keeper.get(), window);
    connectParts();
    // Whoever has made this listens first, and sees the window before anything else is done.
    QTimer::singleShot(0, this, [this] {
        tellOthers();
        left->look();
    });
}

BusDesk::~BusDesk()
{
    ownLines->disconnect(this);
    delete ownDock;
    delete ownStatus;
}

Recording *BusDesk::recording() const
{
    return keeper->recording();
}

QDockWidget *BusDesk::dock() const
{
    return ownDock;
}

QWidget *BusDesk::status() const
{
    return ownStatus;
}

bool BusDesk::mayClose()
{
    return keeper->mayClose();
}

QAction *BusDesk::addAction(const QString &text, const QKeySequence &key, const QString &name)
{
    auto *action = new QAction(text, this);
    action->setShortcut(key);
    action->setObjectName(name);
    ownActions.append(action);
    return action;
}

void BusDesk::makeActions()
{
    connectAction = addAction(tr("&Connect…"), QKeySequence(QStringLiteral("Ctrl+K")),
                              QStringLiteral("connect"));
    tryAction = addAction(tr("&Try it without hardware"), {}, QStringLiteral("try"));
    tryAction->setToolTip(tr("Connects a generator of traffic."));
    stopAction = addAction(tr("Stop &all lines"), QKeySequence(QStringLiteral("Ctrl+Shift+K")),
                           QStringLiteral("stopAll"));
    stopAction->setEnabled(false);
    ownActions.append(nullptr);
    QAction *newAction =
        addAction(tr("&New recording"), QKeySequence::New, QStringLiteral("newRecording"));
    QAction *saveAction =
        addAction(tr("&Save recording…"), QKeySequence::Save, QStringLiteral("saveRecording"));
    QAction *settingsAction =
        addAction(tr("Recording s&ettings…"), {}, QStringLiteral("recordingSettings"));
    connect(connectAction, &QAction::triggered, this, &BusDesk::showConnect);
    connect(tryAction, &QAction::triggered, this, &BusDesk::tryWithoutHardware);
    connect(stopAction, &QAction::triggered, ownLines.get(), &BusLines::stopAll);
    connect(newAction, &QAction::triggered, keeper.get(), &RecordingKeeper::newRecording);
    connect(saveAction, &QAction::triggered, keeper.get(), &RecordingKeeper::save);
    connect(settingsAction, &QAction::triggered, keeper.get(), &RecordingKeeper::showSettings);
}

void BusDesk::connectParts()
{
    connect(keeper.get(), &RecordingKeeper::recordingChanged, this, &BusDesk::recordingChanged);
    connect(keeper.get(), &RecordingKeeper::saved, this, &BusDesk::saved);
    connect(keeper.get(), &RecordingKeeper::notice, this, &BusDesk::notice);
    connect(keeper.get(), &RecordingKeeper::linesToBeStopped, ownLines.get(), &BusLines::stopAll);
    connect(left.get(), &LeftRecordings::recovered, this, &BusDesk::saved);
    connect(left.get(), &LeftRecordings::notice, this, &BusDesk::notice);
    connect(ownLines.get(), &BusLines::notice, this, &BusDesk::notice);
    connect(ownLines.get(), &BusLines::activeChanged, this, &BusDesk::setGrowing);
}

void BusDesk::setGrowing(bool growing)
{
    stopAction->setEnabled(growing);
    keeper->setGrowing(growing);
    ownStatus->setGrowing(growing);
}

void BusDesk::showConnect()
{
    auto *dialog = new ConnectDialog(ownLines->freeNumber(), window);
    connect(dialog, &ConnectDialog::chosen, ownLines.get(), &BusLines::add);
    dialog->open();
}

void BusDesk::tryWithoutHardware()
{
    BusChoice choice;
    choice.kind = BusChoice::Generator;
    choice.number = ownLines->freeNumber();
    ownLines->add(choice);
}

void BusDesk::tellOthers()
{
    const QString folder = QFileInfo(QSettings().fileName()).absolutePath();
    QDir().mkpath(folder);
    lock = std::make_unique<QLockFile>(
        QDir(folder).filePath(QStringLiteral("datachunk-monitor.lock")));
    lock->setStaleLockTime(0);
    if (lock->tryLock(0))
        return;
    emit notice({Notice::Information, tr("Another monitor runs already."),
                 tr("Both may record, each into a folder of its own; settings are kept from the "
                    "one that changes them last.")});
}
