#pragma once

#include <QDockWidget>

class ShownTrace;

/// The notes and bookmarks of a trace, to be searched, edited and gone to.
class NotesDock : public QDockWidget
{
    Q_OBJECT
public:
    explicit NotesDock(QWidget *parent = nullptr);

public slots:
    /// Null for none.
    void setTrace(ShownTrace *trace);
    void setCurrentPosition(quint64 position);

signals:
    void positionChosen(quint64 position);
};
