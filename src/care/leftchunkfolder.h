#pragma once

#include "datachunkglobal.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

/// The chunk folder of a store that has not removed it, because its program was killed or the power
/// went. Keeps others from it as long as it, or a copy, lives. Any thread, one at a time.
class DATACHUNK_EXPORT LeftChunkFolder
{
public:
    /// Those of this application and its user that have chunks and that nobody uses, the one
    /// written last at the end. Where folders cannot be locked nobody can tell, and there are none.
    static std::vector<LeftChunkFolder> find();

    /// The folder itself.
    QString path() const;
    /// The chunk files in it, as whole paths, in the order of their numbers.
    QStringList chunks() const;
    /// What they take, in bytes.
    qint64 bytes() const;
    /// When the last of them was written.
    QDateTime lastWritten() const;

    /// Deletes the folder with everything in it, and what an import of its store has left beside
    /// it. False when something of that is still there.
    bool remove();

private:
    struct Data;

    explicit LeftChunkFolder(std::shared_ptr<Data> data);

    std::shared_ptr<Data> d;
};
