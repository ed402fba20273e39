#include "leftrecordings.h"

#include "chunkmove.h"
#include "chunkrecovery.h"
#include "pluralform.h"
#include "recordingsettings.h"

#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>

#include <utility>

namespace {

struct Recovered
{
    QStringList paths;
    qint64 messages = 0;
    QStringList problems;
};

QString freeFolder(const QString &path)
{
    QString free = path;
    for (int i = 2; QFileInfo::exists(free); ++i)
        free = QStringLiteral("%1 (%2)").arg(path).arg(i);
    return free;
}

// What was saved stays also when the work is ended, and the chunks that are left come the next
// time.
void recoverFolder(LeftChunkFolder &folder, const QString &to, const TaskThread::GoesOn &goesOn,
                   Recovered &all)
{
    if (!QDir().mkpath(to)) {
        all.problems.append(LeftRecordings::tr("The folder %1 could not be made.").arg(to));
        return;
    }
    bool isWhole = true;
    qint64 messages = 0;
    const QStringList files = folder.chunks();
    for (const QString &file : files) {
        const RecoveredChunk chunk =
            recoverChunk(file, QDir(to).filePath(QFileInfo(file).fileName()), goesOn);
        messages += chunk.messages;
        isWhole = isWhole
            && (chunk.result == RecoveredChunk::Saved || chunk.result == RecoveredChunk::Nothing);
        if (!chunk.text.isEmpty())
            all.problems.append(chunk.text);
    }
    all.messages += messages;
    if (messages > 0) {
        indexChunks(to);
        all.paths.append(to);
    } else {
        QDir().rmdir(to);
    }
    if (isWhole && goesOn())
        folder.remove();
}

} // namespace

LeftRecordings::LeftRecordings(QWidget *window) : window(window) { }

void LeftRecordings::look()
{
    worker.run([this](const TaskThread::GoesOn &) {
        const std::vector<LeftChunkFolder> found = LeftChunkFolder::find();
        if (!found.empty())
            QMetaObject::invokeMethod(
                this, [this, found] { tell(found); }, Qt::QueuedConnection);
    });
}

void LeftRecordings::tell(const std::vector<LeftChunkFolder> &found)
{
    folders = found;
    const QString time = QLocale().toString(folders.back().lastWritten(), QLocale::ShortFormat);
    const QString text = folders.size() == 1
        ? tr("A recording of %1 was not closed, because its monitor was killed.").arg(time)
        : tr("%n recordings were not closed, the last one of %1.", nullptr, int(folders.size()))
              .arg(time);
    const auto act = [self = QPointer<LeftRecordings>(this)] {
        if (self)
            self->ask();
    };
    emit notice({Notice::Warning, text, tr("It can be recovered up to its last minute."),
                 tr("Recover or delete…"), act});
}

void LeftRecordings::ask()
{
    qint64 bytes = 0;
    for (const LeftChunkFolder &folder : folders)
        bytes += folder.bytes();
    auto *box =
        new QMessageBox(QMessageBox::Question, tr("Recordings left behind"),
                        tr("What is to become of the recordings that were not closed?"),
                        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, window);
    box->setObjectName(QStringLiteral("leftQuestion"));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setInformativeText(
        tr("There are %1. Recovered, they are put into %2 and opened.")
            .arg(QLocale().formattedDataSize(bytes), RecordingSettings::saved().folder));
    box->button(QMessageBox::Save)->setText(tr("&Recover"));
    box->button(QMessageBox::Discard)->setText(tr("&Delete"));
    box->button(QMessageBox::Cancel)->setText(tr("&Later"));
    box->setDefaultButton(QMessageBox::Save);
    connect(box, &QMessageBox::finished, this, [this](int answer) {
        if (answer == QMessageBox::Save)
            recover();
        else if (answer == QMessageBox::Discard)
            remove();
    });
    box->open();
}

void LeftRecordings::recover()
{
    const QString place = RecordingSettings::saved().folder;
    worker.run(
        [this, place, left = std::exchange(folders, {})](const TaskThread::GoesOn &goesOn) mutable {
            Recovered all;
            for (LeftChunkFolder &folder : left) {
                const QString name =
                    tr("Recovered %1")
                        .arg(folder.lastWritten().toString(QStringLiteral("yyyy-MM-dd HH-mm-ss")));
                recoverFolder(folder, freeFolder(QDir(place).absoluteFilePath(name)), goesOn, all);
            }
            QMetaObject::invokeMethod(
                this, [this, all] { tellRecovered(all.paths, all.messages, all.problems); },
                Qt::QueuedConnection);
        });
}

void LeftRecordings::tellRecovered(const QStringList &paths, qint64 messages,
                                   const QStringList &problems)
{
    const QString count =
        tr("%L1 messages were recovered.", nullptr, pluralForm(quint64(messages))).arg(messages);
    if (problems.isEmpty())
        emit notice({Notice::Information, count, {}});
    else
        emit notice({Notice::Warning, count + QLatin1Char(' ') + problems.first(),
                     tr("What could not be read stays where it is.")});
    if (!paths.isEmpty())
        emit recovered(paths);
}

void LeftRecordings::remove()
{
    worker.run([left = std::exchange(folders, {})](const TaskThread::GoesOn &) mutable {
        for (LeftChunkFolder &folder : left)
            folder.remove();
    });
}
