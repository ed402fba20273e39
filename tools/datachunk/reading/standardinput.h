#pragma once

#include <QByteArray>
#include <QIODevice>

/// Standard input as the bytes of a trace, read once. Keeps the beginning, so that the kind of the
/// trace can be found and readers can look ahead. A signal that stops the program ends it.
class StandardInput : public QIODevice
{
public:
    StandardInput();

    /// The first bytes, \a size of them or all. Waits for them.
    QByteArray peekBeginning(qint64 size);

    bool isSequential() const override { return true; }
    /// Goes back to the beginning as long as all that was read is kept, and nowhere else.
    bool seek(qint64 position) override;
    qint64 bytesAvailable() const override;

protected:
    qint64 readData(char *data, qint64 maxSize) override;
    qint64 writeData(const char *, qint64) override { return -1; }

private:
    qint64 readMore(char *data, qint64 maxSize);
    bool waitForBytes();
    qint64 fail(const QString &text);

    QByteArray kept;     // what came first
    qint64 position = 0; // of the next byte that is handed out
    qint64 received = 0;
    bool isOver = false;
    bool hasFailed = false;
};
