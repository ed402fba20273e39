#include "recordingkeeper.h"

#include "messagesink.h"
#include "pluralform.h"
#include "recording.h"
#include "savedialog.h"
#include "settingsdialog.h"

#include <QDateTime>
#include <QMessageBox>
#include <QPushButton>
#include <QStandardPaths>

#include <utility>

RecordingKeeper::RecordingKeeper(std::shared_ptr<MessageSink> sink, QWidget *window)
    : window(window), sink(std::move(sink)), current(new Recording)
{
    connectRecording();
    connect(&ownSaver, &RecordingSaver::saved, this, &RecordingKeeper::tellSaved);
    connect(&ownSaver, &RecordingSaver::failed, this, &RecordingKeeper::tellFailed);
    connect(&ownDisk, &DiskWatch::notice, this, &RecordingKeeper::notice);
    connect(&ownDisk, &DiskWatch::folderGone, this, &RecordingKeeper::tellFolderGone);
}

RecordingKeeper::~RecordingKeeper()
{
    sink->setRecording(nullptr);
}

void RecordingKeeper::connectRecording()
{
    storeFailureTold = false;
    sink->setRecording(current.get());
    ownDisk.setFolder(current->store().chunkFolderPath());
    current->setGrowing(isGrowing);
    connect(current.get(), &Recording::settingsWanted, this, &RecordingKeeper::showSettings);
    connect(current.get(), &Recording::storeFailed, this, &RecordingKeeper::tellStoreFailed);
    // A chunk may be the one that fills the disk.
    connect(&current->store(), &DatachunkHandler::newDataFile, &ownDisk, &DiskWatch::look,
            Qt::QueuedConnection);
}

void RecordingKeeper::setGrowing(bool growing)
{
    isGrowing = growing;
    storeFailureTold = false;
    if (growing && current->store().chunkFolderPath().isEmpty())
        tellNoFolder();
    current->setGrowing(growing);
    ownDisk.setOn(growing);
}

// Whoever shows the old one lets it go before it is saved or deleted.
std::unique_ptr<Recording> RecordingKeeper::replaceRecording()
{
    std::unique_ptr<Recording> old = std::exchange(current, std::make_unique<Recording>());
    old->disconnect(this);
    old->store().disconnect(&ownDisk);
    connectRecording();
    old->setGrowing(false);
    emit recordingChanged(current.get());
    return old;
}

bool RecordingKeeper::hasUnsaved() const
{
    return current->isUnsaved() || ownSaver.kept();
}

quint64 RecordingKeeper::unsavedMessages() const
{
    const Recording *kept = ownSaver.kept();
    return current->counts().stored + (kept ? kept->counts().stored : 0);
}

void RecordingKeeper::newRecording()
{
    if (current->isUnsaved())
        askBeforeNew();
}

void RecordingKeeper::askBeforeNew()
{
    const QMessageBox *box =
        ask(tr("Save the recording before a new one begins?"), current->counts().stored);
    if (!box)
        return;
    connect(box, &QMessageBox::finished, this, [this](int answer) {
        if (answer == QMessageBox::Save)
            save();
        else if (answer == QMessageBox::Discard)
            ownSaver.discard(replaceRecording());
    });
}

// Null when one is open already.
QMessageBox *RecordingKeeper::ask(const QString &text, quint64 messages)
{
    if (question) {
        question->raise();
        return nullptr;
    }
    question =
        new QMessageBox(QMessageBox::Question, tr("Recording"), text,
                        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, window);
    question->setObjectName(QStringLiteral("keepQuestion"));
    question->setAttribute(Qt::WA_DeleteOnClose);
    question->setInformativeText(
        tr("It has %L1 messages. Discarded, they are gone for good.", nullptr, pluralForm(messages))
            .arg(messages));
    question->button(QMessageBox::Save)->setText(tr("&Save…"));
    question->button(QMessageBox::Discard)->setText(tr("&Discard it"));
    question->setDefaultButton(QMessageBox::Save);
    question->open();
    return question;
}

void RecordingKeeper::save()
{
    if (ownSaver.isBusy()) {
        emit notice({Notice::Information, tr("The recording before is still being saved."),
                     tr("Save this one when that is done; it goes on meanwhile.")});
        return;
    }
    if (!hasUnsaved())
        emit notice({Notice::Information, tr("There is nothing to save yet."),
                     tr("Connect a bus line first.")});
    if (!hasUnsaved() || saveDialog)
        return;
    const QString name =
        tr("Recording %1")
            .arg(QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd HH-mm-ss")));
    saveDialog = new SaveDialog(name, RecordingSettings::saved().folder, window);
    connect(saveDialog, &QDialog::accepted, this, [this] { saveInto(saveDialog->target()); });
    connect(saveDialog, &QDialog::rejected, this, [this] { closesWhenSaved = false; });
    saveDialog->open();
}

// One that could not be saved before comes first.
void RecordingKeeper::saveInto(const SaveTarget &target)
{
    RecordingSettings settings = RecordingSettings::saved();
    settings.folder = saveDialog->folder();
    settings.save();
    if (ownSaver.kept())
        ownSaver.saveKept(target);
    else
        ownSaver.save(replaceRecording(), target);
}

void RecordingKeeper::tellSaved(const QStringList &paths)
{
    emit notice({Notice::Information, tr("The recording was saved: %1").arg(paths.first()), {}});
    if (std::exchange(closesWhenSaved, false))
        window->close();
    else
        emit saved(paths);
}

void RecordingKeeper::tellFailed(const QString &text, const QString &advice)
{
    closesWhenSaved = false;
    const auto saveAgain = [self = QPointer<RecordingKeeper>(this)] {
        if (self)
            self->save();
    };
    if (text.isEmpty())
        emit notice({Notice::Warning, tr("Saving was cancelled, and the recording is not saved."),
                     tr("It is kept as long as the monitor runs."), tr("Save…"), saveAgain});
    else
        emit notice({Notice::Failure, text, advice, tr("Save…"), saveAgain});
}

void RecordingKeeper::tellStoreFailed(const QString &text)
{
    ownDisk.look();
    // On a full disk each chunk fails; the counts tell how it goes on.
    if (std::exchange(storeFailureTold, true))
        return;
    emit notice({Notice::Failure, text,
                 tr("Make room on the disk of the recording, or give it more in the settings: "
                    "messages that it does not take are dropped.")});
}

void RecordingKeeper::tellNoFolder()
{
    emit notice({Notice::Failure,
                 tr("The recording has no folder: none could be made in %1.")
                     .arg(QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation)),
                 tr("Only the last messages are kept, in memory. Make room there, or see to the "
                    "permissions, and begin a new recording.")});
}

void RecordingKeeper::tellFolderGone()
{
    const auto begin = [self = QPointer<RecordingKeeper>(this)] {
        if (self)
            self->ownSaver.discard(self->replaceRecording());
    };
    emit notice({Notice::Failure,
                 tr("Somebody has removed the folder of the recording: %1")
                     .arg(current->store().chunkFolderPath()),
                 tr("What was in it is gone, and nothing more can be written there. Begin a new "
                    "recording; the lines go on."),
                 tr("New recording"), begin});
}

void RecordingKeeper::showSettings()
{
    auto *dialog = new SettingsDialog(RecordingSettings::saved(), window);
    connect(dialog, &QDialog::accepted, this, [this, dialog] {
        dialog->settings().save();
        current->setBudget(dialog->settings().budget);
        ownDisk.look();
    });
    dialog->open();
}

bool RecordingKeeper::mayClose()
{
    if (ownSaver.isBusy()) {
        closesWhenSaved = true;
        emit notice({Notice::Information, tr("The recording is being saved."),
                     tr("The window closes when that is done.")});
        return false;
    }
    if (!hasUnsaved())
        return true;
    askBeforeClosing();
    return false;
}

void RecordingKeeper::askBeforeClosing()
{
    const QMessageBox *box =
        ask(tr("Save the recording before the monitor is closed?"), unsavedMessages());
    if (!box)
        return;
    connect(box, &QMessageBox::finished, this, [this](int answer) {
        if (answer != QMessageBox::Save && answer != QMessageBox::Discard)
            return;
        emit linesToBeStopped();
        closesWhenSaved = answer == QMessageBox::Save;
        if (closesWhenSaved) {
            save();
            return;
        }
        discardAll();
        window->close();
    });
}

void RecordingKeeper::discardAll()
{
    ownSaver.discardKept();
    if (current->isUnsaved())
        ownSaver.discard(replaceRecording());
}
