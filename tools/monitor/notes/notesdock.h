#pragma once

#include "mark.h"

#include <QDockWidget>
#include <QPointer>

#include <optional>

class MarkReader;
class MarksModel;
class MarksView;
class QAction;
class QLabel;
class QLineEdit;
class QSortFilterProxyModel;
class QTimer;
class ShownTrace;

/// The notes and bookmarks of a trace, to be searched, edited and gone to.
class NotesDock : public QDockWidget
{
    Q_OBJECT
public:
    explicit NotesDock(QWidget *parent = nullptr);
    ~NotesDock() override;

    /// Add a note, add a bookmark at the current position, for a menu: their keys work there while
    /// the dock is hidden. They belong to the dock, and show it.
    QList<QAction *> markActions() const;

public slots:
    /// Null for none.
    void setTrace(ShownTrace *trace);
    void setCurrentPosition(quint64 position);

signals:
    void positionChosen(quint64 position);

protected:
    void changeEvent(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *buildContent();
    void buildActions();
    QAction *newAction(const QString &objectName, const QString &text, void (NotesDock::*act)());
    void connectParts();
    void setIcons();

    void addNote() { add(Mark::Note); }
    void addBookmark() { add(Mark::Bookmark); }
    void add(Mark::Kind kind);
    void editCurrent();
    void removeSelected();

    void look();
    void lookAgain();
    void updateTimer();
    void updateActions();
    void showList(const MarkList &list);
    void tellCount();

    MarksModel *const model;
    QSortFilterProxyModel *const sorted;
    QLineEdit *const search;
    MarksView *const view;
    QLabel *const hint;
    QTimer *const timer;
    QAction *noteAction = nullptr;
    QAction *bookmarkAction = nullptr;
    QAction *editAction = nullptr;
    QAction *removeAction = nullptr;
    QPointer<ShownTrace> trace;
    std::optional<quint64> current; // position
    bool isCut = false;
    bool isInSight = false;
    MarkReader *const reader;
};
