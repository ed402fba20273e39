#pragma once

#include <QString>

/// A file that is to come in place of another one, at one stroke. It lies beside that one, hidden,
/// and goes with this unless it was put in place. It is locked as long as this lives, as the
/// original has to be. One thread.
class FileReplacement
{
public:
    /// Of the open file \a original, which \a fileName leads to; not of a link.
    FileReplacement(const QString &fileName, int original);
    ~FileReplacement();

    FileReplacement(const FileReplacement &) = delete;
    FileReplacement &operator=(const FileReplacement &) = delete;

    // Each is false when it fails; errno says why.

    /// Creates it, with the rights of the original.
    bool create();
    bool write(const QByteArray &bytes);
    /// Adds what the original has from \a offset on.
    bool copyFrom(qint64 offset);
    /// Gives it the original's time of writing and has it reach the disk.
    bool finish();

    enum class Placing {
        Done,
        OriginalGone, ///< or replaced by somebody else; nothing has changed
        Failed
    };
    Placing putInPlace();

    /// Of the file that is put in place; -1 before it is created.
    int handle() const { return ownHandle; }

private:
    bool takeOverRights(const struct stat &status);
    bool copyBlock(qint64 offset, qint64 &copied);
    Placing exchange();
    Placing moveAside();
    bool isOriginal(const QByteArray &path) const;

    const QByteArray name;
    const QByteArray hidden;
    const int original;
    int ownHandle = -1;
};
