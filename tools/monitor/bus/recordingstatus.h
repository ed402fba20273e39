#pragma once

#include <QTimer>
#include <QWidget>

class QLabel;
class QProgressBar;
class QToolButton;
class RecordingKeeper;

/// Where the recording lies, how much room it takes and what has become of the messages, in one
/// line; also how far saving has come.
class RecordingStatus : public QWidget
{
    Q_OBJECT
public:
    RecordingStatus(RecordingKeeper *keeper, QWidget *parent);

    /// Whether the counts may change.
    void setGrowing(bool growing);

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void updateTimer();
    void updateCounts();
    void updateDisk();
    void updateSaving();
    void openFolder() const;

    RecordingKeeper *const keeper;
    QToolButton *const folder;
    QProgressBar *const budget;
    QLabel *const counts;
    QProgressBar *const saving;
    QToolButton *const cancel;
    QTimer timer;
    bool isGrowing = false;
};
