#pragma once

#include <QFile>

/// A regular file for reading. Once a read has failed, all later ones fail as well, so that nobody
/// takes the bytes behind a gap for what comes next.
class RegularFile : public QFile
{
public:
    explicit RegularFile(const QString &fileName);

    /// The name that it was made with.
    QString fileName() const override { return name; }

    /// False, with nothing opened, when the file cannot be read or is no regular file: a pipe or a
    /// device may block for ever and has no end to wait for. Where the system shows one of its own
    /// sources as a file, reading fails as soon as it would have to wait.
    bool openForReading();

    /// Whether opening failed because the file does not exist. False when that cannot be found out.
    bool isMissing() const { return missing; }

    /// What the user is told when reading has failed; empty when it has not.
    QString readErrorText() const;

protected:
    qint64 readData(char *data, qint64 maxSize) override;

private:
    const QString name;
    QString readError;
    bool missing = false;
};
