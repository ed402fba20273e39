#pragma once

#include "decoder.h"
#include "ziparchive.h"

/// The only file of a ZIP archive that holds no chunks.
class ZippedFile : public Decoder
{
public:
    /// What an archive is to somebody who wants one trace.
    enum Kind {
        Other, ///< no archive that can be read, one of chunks, or one without files
        One,
        Several
    };

    explicit ZippedFile(const QString &archiveName);
    ~ZippedFile() override;

    Kind kind() const { return found; }

    /// The name of the file, with the folders in the archive.
    QString name() const { return entry.name; }

    /// Goes to its beginning. False when it is packed in a way that is not known.
    bool open();

    /// Whether the archive claims more for it than can honestly be in it.
    bool isBomb() const;

    qint64 read(char *data, qint64 maxSize) override;
    QString errorText() const override { return error; }
    /// What the user is told when the archive's file itself cannot be read; mostly empty.
    QString readErrorText() const { return archive.readErrorText(); }

    qint64 bytesRead() const { return content ? content->unpackedSize() : 0; }
    qint64 bytes() const { return entry.size; }

private:
    Kind findIn(const std::vector<Zip::Entry> &entries);

    const Zip::Reader archive;
    Zip::Entry entry;
    const Kind found;
    WorkProgress always; // nobody cancels it
    std::unique_ptr<Zip::EntryDevice> content;
    QString error;
};
