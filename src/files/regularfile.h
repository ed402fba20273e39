#pragma once

#include <QFile>

/// A regular file that is read. Once a read has failed, so do all later ones: whoever tries again
/// would take the bytes behind a gap for what comes next.
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

    /// Whether it could not be opened because there is none. What cannot be asked for is no proof.
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
