#pragma once

#include "messagerows.h"
#include "pagewriter.h"
#include "valuedictionary.h"

namespace Parquet {

/// Encodes the columns of messages.
class RowGroupWriter
{
public:
    /// Adds all columns to \a bytes, whose first one is at \a position in the file. With more
    /// effort they take fewer bytes.
    RowGroup write(const MessageRows &rows, QByteArray &bytes, qint64 position,
                   PageWriter::Effort effort);

private:
    template <typename Value> void addDeltas(const std::vector<Value> &values);
    template <typename Value> void addDictionary(const std::vector<quint32> &values);
    template <typename Value> void addPlainValues(const std::vector<quint32> &values);
    void addFlags(const MessageRows &rows);
    void addIndexes(quint32 values);
    void addData(const MessageRows &rows);
    void addPayloads();
    void addPayloadsInTurn(const MessageRows &rows);
    void addNotes(const MessageRows &rows);
    void finishColumn(const QByteArray &least = {}, const QByteArray &greatest = {},
                      qint64 nulls = 0);

    RowGroup group;
    QByteArray *target = nullptr;
    qint64 origin = 0;
    PageWriter::Effort effort = PageWriter::Quick;
    PageWriter pages;
    ValueDictionary dictionary;
    PayloadDictionary payloads;
    QByteArray encoded;
    std::vector<quint32> indexes;
};

} // namespace Parquet
