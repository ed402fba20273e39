#pragma once

#include "canrxmessage.h"
#include "datachunkglobal.h"

#include <QByteArray>
#include <QString>

#include <memory>

struct ParquetState;

/// Writes messages as an Apache Parquet file, into blocks of bytes that the caller puts where they
/// belong; opens no file itself. Takes the memory of one row group, which is 131,072 messages or 16
/// MiB of payloads and notes, three times over while it is packed, and 2 KB for each before. One
/// file for each object; any thread, one at a time. docs/parquet.md says what the columns hold.
class DATACHUNK_EXPORT ParquetTrace
{
public:
    /// What the file says of where its messages come from. All may be empty, and is left out then.
    struct Source
    {
        QString name;      ///< of the trace, mostly a file
        QByteArray sha256; ///< of its bytes, in hexadecimal digits
        QString report;    ///< what became of its lines, as JSON
    };

    /// Begins a file.
    explicit ParquetTrace(const Source &source = {});
    ~ParquetTrace();

    /// Replaces the source, which the end of the file tells: what an import reports is known late.
    void setSource(const Source &source);

    /// Takes a message, with an empty \a note where it has none. Adds to \a block what is ready:
    /// mostly nothing, the whole of a row group when one is full. Takes every record, whatever its
    /// fields hold.
    void append(const CAN::CanRxMessage &message, const QString &note, QByteArray &block);
    /// The same for \a count messages without notes.
    void append(const CAN::CanRxMessage *messages, int count, QByteArray &block);
    /// Adds what is not written yet as a row group of its own, and takes next to no memory until
    /// the next message; for many files that are written by turns.
    void release(QByteArray &block);
    /// Adds the rest and the end of the file. Nothing may follow.
    void finish(QByteArray &block);

    /// How many messages were added so far.
    quint64 written() const;
    /// How many of them have a note longer than the 16 MiB of UTF-8 that are kept of it.
    quint64 notesCut() const;

    /// Why the messages of a Parquet file cannot stand in one table with those that this class
    /// writes, as a sentence for the user: it has other columns, or is no Parquet file. Empty when
    /// they can. Reads no more than the end of the file, up to 64 MiB.
    static QString differenceOf(const QString &fileName);

private:
    Q_DISABLE_COPY(ParquetTrace)

    std::unique_ptr<ParquetState> d;
};
