#pragma once

#include "datachunkhandler.h"

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>
#include <memory>

/// A store among files that are not its own, with a record of all that it reports. Home folder and
/// base names hold percent signs, which must not be taken for placeholders.
class Scene
{
public:
    /// Messages that fill the live list, and so the messages of a chunk.
    static constexpr quint32 chunkSize = 3200;
    /// Messages of each of the two chunks that are there to be read.
    static constexpr quint32 sourceSize = 3000;

    /// \a root is an empty folder. With \a longNotes every note is longer than a MiB.
    explicit Scene(const QString &root, bool longNotes = false);
    ~Scene();

    /// Clears away what the last operation has made, remembers all other files and begins a store.
    void begin();
    void newStore();

    /// Appends the next \a count messages.
    void append(quint32 count);

    void waitForSaves();
    /// Waits until exactly the messages \a first to \a last are shown.
    void waitForView(quint32 first, quint32 last);
    /// Waits for all archive jobs and saves.
    void waitForArchives();

    /// Whether the user could know that something is missing.
    bool isTold() const;

    QString chunkPath(const QString &name) const { return store->chunkFolderPath() + '/' + name; }
    QString source(const QString &name) const { return root + QStringLiteral("/in/") + name; }
    QString target(const QString &name) const { return root + QStringLiteral("/out/") + name; }

    /// Whether the view shows exactly the messages \a first to \a last.
    bool shows(quint32 first, quint32 last) const;

    /// Takes the store through another rotation and its end and looks for anything that it lost,
    /// doubled, changed or left behind.
    void checkAftermath(bool mayLeaveFiles);

    std::unique_ptr<DatachunkHandler> store;
    bool result = true; ///< of an operation that has one
    QVector<quint32> chunks;
    QStringList partialChunks;
    QStringList unpacked; ///< paths
    QStringList errors;
    QStringList imported;
    QStringList complaints;

private:
    void waitUntil(const std::function<bool()> &condition);

    const QString root;
    const QString note;
    QMap<QString, QByteArray> before;
    quint32 appended = 0;
    int archiveJobsEnded = 0;
};

/// One thing that a store does with files.
struct Operation
{
    const char *name;
    std::function<void(Scene &)> prepare; ///< without faults
    std::function<void(Scene &)> run;
    std::function<bool(Scene &)> isDone; ///< if not, the user has to be told
    bool failsSilently = false;          ///< where a file or folder cannot be opened, that is
    bool syncs = false; ///< before it closes, so that closing cannot fail for want of room
};

const QVector<Operation> &operations();
