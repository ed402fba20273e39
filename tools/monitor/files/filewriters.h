#pragma once

#include "parquettrace.h"
#include "savefileworker.h"
#include "traceexport.h"
#include "tracestream.h"

#include <QFile>

#include <memory>

/// What has to be known of all messages before the first one is written.
struct TraceFrame
{
    quint64 count = 0; ///< of the messages
    CAN::CanRxMessage first;
    CAN::CanRxMessage last;
    QMap<unsigned int, QString> notes; ///< by message number, as the next
    QMap<unsigned int, CanMessageBookmark> bookmarks;
};

/// Writes the messages of a trace into a file, one by one. False says that it is not complete, and
/// errorText() why.
class FileWriter
{
public:
    virtual ~FileWriter() = default;

    virtual bool open() = 0;
    virtual bool write(const TraceItem &item) = 0;
    virtual bool close() = 0;

    virtual QString errorText() const = 0;
    /// What the format has no place for, a sentence each.
    virtual QStringList losses() const { return {}; }
};

/// A chunk file, or a text of this library.
class OwnWriter : public FileWriter
{
public:
    /// A chunk where the name of the file ends so. \a frame has the numbers that the messages come
    /// with; \a withNotes is about the text.
    OwnWriter(const QString &fileName, const TraceFrame &frame, bool withNotes);

    bool open() override;
    bool write(const TraceItem &item) override;
    bool close() override;
    QString errorText() const override;

private:
    const bool asChunk;
    QList<CAN::CanRxMessage> ends; // for the header
    SaveFileWorker worker;
    QFile text;
    quint64 written = 0;
};

/// A format whose bytes come in blocks. Bookmarks have no place in any.
class BlockWriter : public FileWriter
{
public:
    explicit BlockWriter(const QString &fileName) : file(fileName) { }

    bool open() override;
    bool write(const TraceItem &item) override;
    bool close() override;
    QString errorText() const override { return file.errorString(); }
    QStringList losses() const override;

protected:
    /// They add what is ready to \a block.
    virtual void append(const TraceItem &item, QByteArray &block) = 0;
    virtual void finish(QByteArray &block) = 0;

private:
    bool flush();

    QFile file;
    QByteArray bytes;
    quint64 bookmarks = 0;
};

/// A format of another tool.
class ForeignWriter : public BlockWriter
{
public:
    ForeignWriter(const QString &fileName, TraceExport::Format format, TraceExport::Times times);

    QStringList losses() const override;

protected:
    void append(const TraceItem &item, QByteArray &block) override;
    void finish(QByteArray &block) override;

private:
    TraceExport trace;
};

/// A Parquet file.
class ParquetWriter : public BlockWriter
{
public:
    using BlockWriter::BlockWriter;

protected:
    void append(const TraceItem &item, QByteArray &block) override;
    void finish(QByteArray &block) override;

private:
    ParquetTrace trace;
};
