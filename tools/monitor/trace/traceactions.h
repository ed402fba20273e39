#pragma once

#include <QKeySequence>
#include <QList>
#include <QObject>

class LookMenus;
class MessageModel;
class QAction;
class QMenu;
class TraceColumns;
class TraceTable;

/// What a user can do with the messages of a table, as actions for the menus of the window and of
/// the table.
class TraceActions : public QObject
{
    Q_OBJECT
public:
    TraceActions(MessageModel *model, TraceTable *table, TraceColumns *columns);

    QAction *follow() const { return ownFollow; }
    QList<QAction *> edit() const { return editActions; }
    QList<QAction *> view() const { return viewActions; }
    LookMenus *look() const { return ownLook; }

signals:
    void copyWanted();
    void candumpWanted();
    void numberWanted();
    void timeWanted();
    void noteWanted();
    void bookmarkWanted();
    void filterWanted(const QString &expression);

private:
    /// Where its keys count.
    enum Reach {
        InTable, ///< they mean something else where text is written
        InWindow
    };

    QAction *addEdit(const QString &text, const QKeySequence &keys, Reach reach);
    void addSeparator();
    void addEditActions();
    void addViewActions();
    void markTime();
    void updateEnabled();
    void showMenu(const QPoint &point);
    void addFilters(QMenu *menu);

    MessageModel *const model;
    TraceTable *const table;
    TraceColumns *const columns;
    LookMenus *const ownLook;
    QAction *const ownFollow;
    QAction *ownMark = nullptr;
    QList<QAction *> editActions;
    QList<QAction *> ofMessages; // those that need a current message
    QList<QAction *> viewActions;
};
