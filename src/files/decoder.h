#pragma once

#include "compression.h"
#include "regularfile.h"

#include <QByteArray>
#include <QString>

#include <memory>

/// Where the bytes of an unpacked file come from.
class Decoder
{
public:
    Decoder() = default;
    virtual ~Decoder();

    Decoder(const Decoder &) = delete;
    Decoder &operator=(const Decoder &) = delete;

    /// Unpacks up to \a maxSize bytes, fewer only where nothing more can be unpacked. 0 at the end
    /// and -1 behind damage, of which errorText() tells.
    virtual qint64 read(char *data, qint64 maxSize) = 0;

    /// Why nothing more can be unpacked; empty while and where all is well.
    virtual QString errorText() const = 0;

protected:
    static QString damaged();
};

/// Unpacks a compressed file in one pass, a block at a time, and compares its checksums.
class StreamDecoder : public Decoder
{
public:
    /// \a file has to outlive it and stands at its beginning.
    static std::unique_ptr<Decoder> make(Compression compression, RegularFile &file);

    explicit StreamDecoder(RegularFile &file) : file(file) { }

    qint64 read(char *data, qint64 maxSize) final;
    QString errorText() const final { return error; }

    /// The memory in bytes that the longest window of a format may take.
    static constexpr qint64 mostMemory = 128LL * 1024 * 1024;

protected:
    /// Unpacks up to \a room bytes. Calls ended() or failed() where nothing more comes.
    virtual qint64 step(char *to, qint64 room) = 0;

    struct Bytes
    {
        const char *data = nullptr;
        qint64 size = 0;
    };
    /// What is to be unpacked next; nothing only at the end of the file.
    const Bytes &input();
    /// Only the last \a left bytes of the input are still to be unpacked.
    void keepLast(qint64 left);
    /// The next block of the file, in place of the one before; empty at the end.
    const Bytes &nextBlock();

    void ended() { isAtEnd = true; }
    void failed(const QString &reason) { error = reason; }
    bool hasFailed() const { return !error.isEmpty(); }

    // Reasons.
    static QString cut();
    static QString needsMemory();
    static QString moreBehindEnd();

    qint64 fileSize() const { return file.size(); }

private:
    RegularFile &file;
    QByteArray block;
    Bytes unused;
    bool isAtEnd = false;
    QString error;
};

std::unique_ptr<Decoder> makeGzipDecoder(RegularFile &file);
std::unique_ptr<Decoder> makeXzDecoder(RegularFile &file);
std::unique_ptr<Decoder> makeArchiveDecoder(Compression compression, RegularFile &file);
