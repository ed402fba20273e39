#pragma once

#include <QDir>
#include <QMutex>
#include <QSet>
#include <QString>

/// The folder of one store's chunk files: the application's writable data location, then
/// "datachunks", then a random number. Created by the constructor; the destructor removes
/// what the store has put there and beside it, and nothing else.
class ChunkFolder
{
public:
    ChunkFolder();
    ~ChunkFolder();

    ChunkFolder(const ChunkFolder &) = delete;
    ChunkFolder &operator=(const ChunkFolder &) = delete;

    /// False when no folder could be created; there is then no place for chunks.
    bool exists() const { return created; }

    /// Constant after construction. Empty path when no folder could be created.
    const QDir &dir() const { return folder; }

    /// "tmpData%1.dck" in the folder, with \a number in place of "%1".
    QString chunkPath(quint32 number) const;

    /// The template "%1.dck" for the chunks of an import. The separators are backslashes on every
    /// system, so that on most of them the files lie beside the folder.
    QString partialChunkTemplate(const QString &importName) const;

    /// Deletes every file of the folder whose name contains "tmpData".
    void removeChunks();

    /// Has the destructor delete a file that lies beside the folder. Any thread.
    void addFileBeside(const QString &path);

private:
    QDir folder;
    bool created = false;
    QMutex mutex;
    QSet<QString> filesBeside; // guarded by mutex
};

/// Puts \a number in place of the last "%1" of \a nameTemplate: an earlier one belongs to the
/// name of a folder or of an imported file.
QString fillChunkNumber(QString nameTemplate, quint32 number);
