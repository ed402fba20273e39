#pragma once

#include <QList>
#include <QWidget>

class QAction;

/// What stands in place of a trace without messages: how to come to some.
class StartPage : public QWidget
{
    Q_OBJECT
public:
    /// A button for each of \a actions, which live as long.
    explicit StartPage(const QList<QAction *> &actions, QWidget *parent = nullptr);
};
