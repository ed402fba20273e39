#pragma once

#include "diskwatch.h"
#include "recordingsaver.h"

#include <QPointer>

class MessageSink;
class QMessageBox;
class QWidget;
class SaveDialog;

/// The recording that runs, and what becomes of recordings: begun anew, saved, discarded, and
/// never lost without the user having said so.
class RecordingKeeper : public QObject
{
    Q_OBJECT
public:
    /// Dialogs belong to \a window.
    RecordingKeeper(std::shared_ptr<MessageSink> sink, QWidget *window);
    ~RecordingKeeper() override;

    Recording *recording() const { return current.get(); }
    RecordingSaver *saver() { return &ownSaver; }
    DiskWatch *disk() { return &ownDisk; }

    /// Whether lines bring messages.
    void setGrowing(bool growing);

    void newRecording();
    void save();
    void showSettings();

    /// False, and the user is asked, when something would be lost. The window is then closed from
    /// here when he has said what he wants.
    bool mayClose();

signals:
    /// The one before lives until this returns.
    void recordingChanged(Recording *recording);
    void saved(const QStringList &paths);
    void notice(const Notice &notice);
    /// Nothing more is to come.
    void linesToBeStopped();

private:
    bool hasUnsaved() const;
    quint64 unsavedMessages() const;
    std::unique_ptr<Recording> replaceRecording();
    void connectRecording();
    void discardAll();
    QMessageBox *ask(const QString &text, quint64 messages);
    void askBeforeNew();
    void askBeforeClosing();
    void saveInto(const SaveTarget &target);
    void tellSaved(const QStringList &paths);
    void tellFailed(const QString &text, const QString &advice);
    void tellStoreFailed(const QString &text);
    void tellFolderGone();

    QWidget *const window;
    const std::shared_ptr<MessageSink> sink;
    std::unique_ptr<Recording> current;
    RecordingSaver ownSaver;
    DiskWatch ownDisk;
    QPointer<QMessageBox> question;
    QPointer<SaveDialog> saveDialog;
    bool isGrowing = false;
    bool closesWhenSaved = false;
};
