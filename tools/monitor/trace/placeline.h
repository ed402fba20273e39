#pragma once

#include <QWidget>

class MessageModel;
class QAction;
class QLabel;
class QToolButton;
class TraceTable;

/// The line below the table: where one is among how many, how many are selected, and whether the
/// table follows the end.
class PlaceLine : public QWidget
{
    Q_OBJECT
public:
    PlaceLine(MessageModel *model, TraceTable *table, QAction *follow, QWidget *parent = nullptr);

    /// Whether to offer that the end is followed.
    void setLive(bool on);
    /// What has just been done, until something else happens.
    void tell(const QString &text);

private:
    void update();
    QString place() const;
    void makeRoomFor(const QString &text);

    MessageModel *const model;
    TraceTable *const table;
    QLabel *const where;
    QLabel *const told;
    QToolButton *const button;
};
