#pragma once

#include <QObject>
#include <QStringList>

class QMenu;

/// The traces that were opened last, as a menu.
class RecentFiles : public QObject
{
    Q_OBJECT
public:
    explicit RecentFiles(QWidget *window);

    /// What was opened together becomes one entry, the first.
    void add(const QStringList &paths);
    void remove(const QStringList &paths);

    QMenu *menu() const { return ownMenu; }

signals:
    void chosen(const QStringList &paths);

private:
    void fill();

    QMenu *const ownMenu;
};
