#pragma once

#include <QDockWidget>
#include <QElapsedTimer>
#include <QTimer>

class BusLine;
class BusLines;
class LineModel;
class QStackedWidget;
class QTreeView;

/// The bus lines with what comes from them.
class LinesDock : public QDockWidget
{
    Q_OBJECT
public:
    /// \a connectAction and \a tryAction are offered where there is no line yet.
    LinesDock(BusLines *lines, QAction *connectAction, QAction *tryAction, QWidget *parent);

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    QWidget *makeStart(QAction *connectAction, QAction *tryAction);
    void makeActions(QAction *connectAction);
    QAction *addLineAction(const QString &text, const QKeySequence &key, void (LinesDock::*act)());
    void addSpeeds();
    BusLine *currentLine() const;
    void updatePage();
    void updateActions();
    void updateTimer();
    void updateCounts();
    void toggle();
    void pause();
    void remove();

    BusLines *const lines;
    LineModel *const model;
    QTreeView *const view;
    QStackedWidget *const pages;
    QAction *toggleAction = nullptr;
    QAction *pauseAction = nullptr;
    QAction *removeAction = nullptr;
    QAction *speedAction = nullptr;
    QTimer timer;
    QElapsedTimer sinceUpdate;
};
