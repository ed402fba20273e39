#pragma once

#include <QByteArray>
#include <QStringList>

#include <vector>

namespace Parquet {

/// The columns of a trace, in their order. Those from Extended to Transmitted are booleans.
enum Column {
    Time,
    Number,
    Line,
    Identifier,
    Extended,
    Remote,
    Fd,
    BitRateSwitch,
    ErrorState,
    Error,
    FlagD,
    Transmitted,
    Length,
    Data,
    Note,
    columnCount
};
constexpr int flagCount = Transmitted - Extended + 1;

// The numbers are those of the format.
enum class Type { Boolean = 0, Int32 = 1, Int64 = 2, ByteArray = 6 };
enum class Encoding { Plain = 0, Rle = 3, DeltaBinaryPacked = 5, DeltaLength = 6, Dictionary = 8 };
enum class Converted { None = -1, Utf8 = 0, TimestampMicros = 10 };

struct ColumnType
{
    const char *name;
    Type type;
    Converted converted = Converted::None;
    bool isOptional = false;
};

/// What a row group tells of one of its columns.
struct ColumnChunk
{
    qint64 dictionaryAt = -1; ///< where its page begins in the file, if it has one
    qint64 dataAt = 0;
    qint64 plainSize = 0; ///< in bytes, with the headers of the pages
    qint64 packedSize = 0;
    Encoding encoding = Encoding::Plain; ///< of the values, or of their indexes
    QByteArray least;                    ///< empty where that is not told
    QByteArray greatest;
    qint64 nulls = 0;
};

struct RowGroup
{
    std::vector<ColumnChunk> columns;
    qint64 rows = 0;
    bool isSorted = false; ///< by time
};

/// What tells of a row group in the end of the file.
QByteArray metadataOf(const RowGroup &group);

/// A word and its value.
struct KeyValue
{
    QByteArray key;
    QByteArray value;
};

/// The end of the file, from the structure that describes it all to the mark. \a groups are the
/// bytes of \a groupCount row groups.
QByteArray footer(const QByteArray &groups, int groupCount, qint64 rows,
                  const std::vector<KeyValue> &words);

/// The columns as differences are told in: "name TYPE meaning".
QStringList columnTexts();
QString columnText(const QString &name, int type, int converted);

/// The columns of a footer without its length and mark, of a wide table no more than one in
/// addition to ours; empty when it is none.
QStringList columnsOfFooter(const QByteArray &bytes);

} // namespace Parquet
