#include "rowgroupwriter.h"

#include "encodings.h"

namespace Parquet {

namespace {

template <typename Value> QByteArray plain(Value value)
{
    QByteArray bytes;
    addPlain(value, bytes);
    return bytes;
}

} // namespace

RowGroup RowGroupWriter::write(const MessageRows &rows, QByteArray &bytes, qint64 position,
                               PageWriter::Effort wanted)
{
    const auto end = rows.times.begin() + rows.count;
    group = {};
    group.rows = rows.count;
    group.isSorted = std::is_sorted(rows.times.begin(), end);
    target = &bytes;
    origin = position - bytes.size();
    effort = wanted;
    encoded.reserve(int(sizeof(qint64)) * MessageRows::mostRows);
    pages.begin(bytes, origin, effort);
    addDeltas<qint64>(rows.times);
    addDeltas<quint32>(rows.numbers);
    addDictionary<qint32>(rows.lines);
    addDictionary<qint64>(rows.identifiers);
    addFlags(rows);
    addDictionary<qint32>(rows.lengths);
    addData(rows);
    addNotes(rows);
    return std::move(group);
}

void RowGroupWriter::finishColumn(const QByteArray &least, const QByteArray &greatest, qint64 nulls)
{
    group.columns.push_back(pages.chunk());
    group.columns.back().least = least;
    group.columns.back().greatest = greatest;
    group.columns.back().nulls = nulls;
    pages.begin(*target, origin, effort);
    encoded.resize(0);
}

template <typename Value> void RowGroupWriter::addDeltas(const std::vector<Value> &values)
{
    const auto end = values.begin() + group.rows;
    addDeltaBinaryPacked(values.data(), int(group.rows), encoded);
    pages.addData(encoded, int(group.rows), Encoding::DeltaBinaryPacked);
    const auto ends = std::minmax_element(values.begin(), end);
    finishColumn(plain(qint64(*ends.first)), plain(qint64(*ends.second)));
}

// Of a dictionary with so many values.
void RowGroupWriter::addIndexes(quint32 values)
{
    // Some readers do not take a width of 0.
    const int width = std::max(1, widthOf(values - 1));
    encoded.resize(0);
    encoded += char(width);
    addHybrid(indexes.data(), int(group.rows), width, encoded);
    pages.addData(encoded, int(group.rows), Encoding::Dictionary);
}

// Value is the type of the column.
template <typename Value> void RowGroupWriter::addDictionary(const std::vector<quint32> &values)
{
    dictionary.index(values.data(), int(group.rows), indexes);
    std::vector<Value> found(dictionary.values().begin(), dictionary.values().end());
    for (const Value value : found)
        addPlain(value, encoded);
    pages.addDictionary(encoded, int(found.size()));
    addIndexes(quint32(found.size()));
    if (effort == PageWriter::Thorough) {
        pages.tryAgain();
        addPlainValues<Value>(values);
        pages.keepSmaller();
    }
    const auto ends = std::minmax_element(found.begin(), found.end());
    finishColumn(plain(*ends.first), plain(*ends.second));
}

template <typename Value> void RowGroupWriter::addPlainValues(const std::vector<quint32> &values)
{
    encoded.resize(0);
    std::for_each(values.begin(), values.begin() + group.rows,
                  [this](quint32 value) { addPlain(Value(value), encoded); });
    pages.addData(encoded, int(group.rows), Encoding::Plain);
}

void RowGroupWriter::addFlags(const MessageRows &rows)
{
    quint8 any = 0;
    quint8 all = 0xFF;
    for (int row = 0; row < rows.count; ++row) {
        any |= rows.flags[std::size_t(row)];
        all &= rows.flags[std::size_t(row)];
    }
    for (int flag = 0; flag < flagCount; ++flag) {
        addBooleans(rows.flags.data(), rows.count, flag, encoded);
        pages.addData(encoded, rows.count, Encoding::Plain);
        finishColumn(QByteArray(1, char(all >> flag & 1)), QByteArray(1, char(any >> flag & 1)));
    }
}

void RowGroupWriter::addData(const MessageRows &rows)
{
    const bool hasDictionary = payloads.index(rows, indexes);
    if (hasDictionary)
        addPayloads();
    if (hasDictionary && effort == PageWriter::Thorough) {
        pages.tryAgain();
        addPayloadsInTurn(rows);
        pages.keepSmaller();
    }
    if (!hasDictionary)
        addPayloadsInTurn(rows);
    finishColumn();
}

void RowGroupWriter::addPayloadsInTurn(const MessageRows &rows)
{
    encoded.resize(0);
    addDeltaBinaryPacked(rows.payloadSizes.data(), rows.count, encoded);
    encoded.append(rows.payloads.data(), rows.payloadSize);
    pages.addData(encoded, rows.count, Encoding::DeltaLength);
}

void RowGroupWriter::addPayloads()
{
    for (const PayloadDictionary::Payload &payload : payloads.values()) {
        addPlain(quint32(payload.size), encoded);
        encoded.append(payload.bytes, payload.size);
    }
    pages.addDictionary(encoded, int(payloads.values().size()));
    addIndexes(quint32(payloads.values().size()));
}

void RowGroupWriter::addNotes(const MessageRows &rows)
{
    indexes.assign(std::size_t(rows.count), 0);
    for (const quint32 row : rows.notedRows)
        indexes[row] = 1;
    QByteArray levels;
    addHybrid(indexes.data(), rows.count, 1, levels);
    addPlain(quint32(levels.size()), encoded);
    encoded += levels;
    encoded += rows.notes;
    pages.addData(encoded, rows.count, Encoding::Plain);
    finishColumn({}, {}, rows.count - qint64(rows.notedRows.size()));
}

} // namespace Parquet
