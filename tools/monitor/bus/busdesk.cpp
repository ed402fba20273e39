#include "busdesk.h"

#include "recording.h"

#include <QDockWidget>
#include <QLabel>

BusDesk::BusDesk(QWidget *window)
    : QObject(window), window(window), ownDock(new QDockWidget(tr("Bus lines"), window)),
      ownStatus(new QLabel(window)), ownRecording(new Recording(this))
{
    ownDock->setObjectName(QStringLiteral("lines"));
}

BusDesk::~BusDesk() = default;

Recording *BusDesk::recording() const
{
    return ownRecording;
}

QList<QAction *> BusDesk::actions() const
{
    return {};
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
    return true;
}
