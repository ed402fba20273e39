#pragma once

#include <QObject>
#include <QVector>

#include <functional>

class MessageModel;
class QAction;
class QMenu;
class QWidget;
struct TraceLook;

/// The menus in which the user chooses how times and numbers are written.
class LookMenus : public QObject
{
    Q_OBJECT
public:
    LookMenus(MessageModel *model, QWidget *parent);

    QMenu *times() const { return ownTimes; }
    QMenu *numbers() const { return ownNumbers; }

    /// Takes over what was chosen for another table.
    void load();
    /// Shows what the model has.
    void update();

signals:
    /// What stands in a column is written in another way.
    void chosen(int column);

private:
    struct Choice
    {
        QAction *action;
        std::function<void(TraceLook &)> choose;
    };

    void addChoice(QMenu *menu, const QString &text,
                   const std::function<void(TraceLook &)> &choose);

    MessageModel *const model;
    QMenu *const ownTimes;
    QMenu *const ownNumbers;
    QVector<Choice> choices;
};
