#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QString>

#include <memory>

class QTextCodec;
class QTextDecoder;

/// The bytes of a text, in an encoding in which ASCII is one byte: where the file's is none, they
/// are made UTF-8. The encoding is what a byte order mark tells, otherwise the locale's.
class TextBytes
{
public:
    explicit TextBytes(QIODevice &device);
    ~TextBytes();

    void rewind();

    /// Number of bytes read, up to \a maximum; none at the end and on a read error.
    qint64 read(char *to, int maximum);

    /// That of the bytes read.
    QTextCodec &codec() const { return *textCodec; }

    /// What read() may still give, about.
    qint64 bytesAvailable() const { return device.bytesAvailable(); }

private:
    void detectEncoding();

    QIODevice &device;
    QTextCodec *textCodec = nullptr;
    std::unique_ptr<QTextDecoder> decoder; // for encodings in which ASCII is not one byte
    QString halfCharacter;                 // the half that a block of the decoder ended with
    QByteArray transcoded;                 // UTF-8 that the decoder made and that is not read yet
};
