#include "columns.h"

#include "thriftwriter.h"

#include <QLatin1String>
#include <QtEndian>

#include <array>

namespace Parquet {

namespace {

constexpr ColumnType types[columnCount] = {{"time", Type::Int64, Converted::TimestampMicros},
                                           {"number", Type::Int64},
                                           {"line", Type::Int32},
                                           {"identifier", Type::Int64},
                                           {"extended", Type::Boolean},
                                           {"remote", Type::Boolean},
                                           {"fd", Type::Boolean},
                                           {"brs", Type::Boolean},
                                           {"esi", Type::Boolean},
                                           {"error", Type::Boolean},
                                           {"flag_d", Type::Boolean},
                                           {"transmitted", Type::Boolean},
                                           {"length", Type::Int32},
                                           {"data", Type::ByteArray},
                                           {"note", Type::ByteArray, Converted::Utf8, true}};

void addStatistics(int field, const ColumnChunk &chunk, ThriftWriter &thrift)
{
    thrift.beginStruct(field);
    thrift.addInt64(3, chunk.nulls);
    if (!chunk.least.isEmpty()) {
        thrift.addBinary(5, chunk.greatest);
        thrift.addBinary(6, chunk.least);
    }
    thrift.end();
}

void addEncodings(int field, const ColumnType &type, const ColumnChunk &chunk, ThriftWriter &thrift)
{
    std::vector<Encoding> encodings{chunk.encoding};
    if (chunk.dictionaryAt >= 0)
        encodings.push_back(Encoding::Plain);
    if (type.isOptional)
        encodings.push_back(Encoding::Rle);
    thrift.beginList(field, ThriftType::Int32, int(encodings.size()));
    for (const Encoding encoding : encodings)
        thrift.addElement(qint32(encoding));
}

void addColumn(const ColumnType &type, const ColumnChunk &chunk, qint64 rows, ThriftWriter &thrift)
{
    constexpr int zstd = 6;
    const bool hasDictionary = chunk.dictionaryAt >= 0;
    thrift.beginElement();
    // Where a copy of this structure is outside the footer: there is none.
    thrift.addInt64(2, 0);
    thrift.beginStruct(3);
    thrift.addInt32(1, qint32(type.type));
    addEncodings(2, type, chunk, thrift);
    thrift.beginList(3, ThriftType::Binary, 1);
    thrift.addElement(QByteArray(type.name));
    thrift.addInt32(4, zstd);
    thrift.addInt64(5, rows);
    thrift.addInt64(6, chunk.plainSize);
    thrift.addInt64(7, chunk.packedSize);
    thrift.addInt64(9, chunk.dataAt);
    if (hasDictionary)
        thrift.addInt64(11, chunk.dictionaryAt);
    addStatistics(12, chunk, thrift);
    thrift.end();
    thrift.end();
}

void addSorting(int field, ThriftWriter &thrift)
{
    thrift.beginList(field, ThriftType::Struct, 1);
    thrift.beginElement();
    thrift.addInt32(1, Time);
    thrift.addBool(2, false);
    thrift.addBool(3, false);
    thrift.end();
}

// Old readers know the converted type alone, new ones prefer the logical one.
void addMeaning(Converted meaning, ThriftWriter &thrift)
{
    if (meaning == Converted::None)
        return;
    thrift.addInt32(6, qint32(meaning));
    thrift.beginStruct(10);
    if (meaning == Converted::Utf8) {
        thrift.addEmpty(1);
    } else {
        thrift.beginStruct(8);
        thrift.addBool(1, true);
        thrift.beginStruct(2);
        thrift.addEmpty(2);
        thrift.end();
        thrift.end();
    }
    thrift.end();
}

void addSchema(int field, ThriftWriter &thrift)
{
    thrift.beginList(field, ThriftType::Struct, columnCount + 1);
    thrift.beginElement();
    thrift.addBinary(4, "trace");
    thrift.addInt32(5, columnCount);
    thrift.end();
    for (const ColumnType &type : types) {
        thrift.beginElement();
        thrift.addInt32(1, qint32(type.type));
        thrift.addInt32(3, type.isOptional ? 1 : 0);
        thrift.addBinary(4, type.name);
        addMeaning(type.converted, thrift);
        thrift.end();
    }
}

void addWords(int field, const std::vector<KeyValue> &words, ThriftWriter &thrift)
{
    thrift.beginList(field, ThriftType::Struct, int(words.size()));
    for (const KeyValue &word : words) {
        thrift.beginElement();
        thrift.addBinary(1, word.key);
        thrift.addBinary(2, word.value);
        thrift.end();
    }
}

// That the ends of a column are compared as its type says; readers use them only then.
void addOrders(int field, ThriftWriter &thrift)
{
    thrift.beginList(field, ThriftType::Struct, columnCount);
    for (int column = 0; column < columnCount; ++column) {
        thrift.beginElement();
        thrift.addEmpty(1);
        thrift.end();
    }
}

} // namespace

QByteArray metadataOf(const RowGroup &group)
{
    QByteArray bytes;
    ThriftWriter thrift(bytes);
    qint64 plainSize = 0;
    qint64 packedSize = 0;
    thrift.beginList(1, ThriftType::Struct, columnCount);
    for (int column = 0; column < columnCount; ++column) {
        const ColumnChunk &chunk = group.columns[std::size_t(column)];
        addColumn(types[column], chunk, group.rows, thrift);
        plainSize += chunk.plainSize;
        packedSize += chunk.packedSize;
    }
    thrift.addInt64(2, plainSize);
    thrift.addInt64(3, group.rows);
    if (group.isSorted)
        addSorting(4, thrift);
    thrift.addInt64(5, group.columns[Time].dataAt);
    thrift.addInt64(6, packedSize);
    thrift.end();
    return bytes;
}

QByteArray footer(const QByteArray &groups, int groupCount, qint64 rows,
                  const std::vector<KeyValue> &words)
{
    constexpr int formatVersion = 2;
    QByteArray bytes;
    ThriftWriter thrift(bytes);
    thrift.addInt32(1, formatVersion);
    addSchema(2, thrift);
    thrift.addInt64(3, rows);
    thrift.beginList(4, ThriftType::Struct, groupCount);
    bytes += groups;
    addWords(5, words, thrift);
    // Some readers look for the words "version" and "build".
    thrift.addBinary(6, "datachunk version " DATACHUNK_VERSION " (build " DATACHUNK_VERSION ")");
    addOrders(7, thrift);
    thrift.end();
    std::array<char, sizeof(quint32)> size;
    qToLittleEndian(quint32(bytes.size()), size.data());
    return bytes.append(size.data(), int(size.size())).append("PAR1");
}

// The types INT_32 and INT_64 say no more than the numbers that they are about.
QString columnText(const QString &name, int type, int converted)
{
    constexpr int plainIntegers[] = {17, 18};
    const bool isPlain =
        converted < 0 || converted == plainIntegers[0] || converted == plainIntegers[1];
    return QStringLiteral("%1 %2 %3").arg(name).arg(type).arg(isPlain ? -1 : converted);
}

QStringList columnTexts()
{
    QStringList texts;
    for (const ColumnType &type : types)
        texts.append(columnText(QLatin1String(type.name), int(type.type), int(type.converted)));
    return texts;
}

} // namespace Parquet
