#include "columns.h"
#include "thriftwriter.h"

namespace Parquet {

namespace {

/// Reads structures of Thrift's compact protocol that anybody may have written. Behind damage
/// everything is 0 and isWhole() false.
class ThriftReader
{
public:
    explicit ThriftReader(const QByteArray &bytes) : bytes(bytes) { }

    bool isWhole() const { return whole; }

    struct Field
    {
        int number = 0;
        ThriftType type{};
    };
    /// The next field of a structure whose field before is \a last. False at its end.
    bool next(Field &last)
    {
        const quint8 header = byte();
        if (header == 0)
            return false;
        const int step = header >> 4;
        last.number = step > 0 ? last.number + step : qint16(number());
        last.type = ThriftType(header & 15);
        return whole;
    }
    /// Twice its value, below zero as positive ones in between.
    qint64 number()
    {
        const quint64 zigzag = varint();
        return qint64(zigzag >> 1) ^ -qint64(zigzag & 1);
    }
    QByteArray binary()
    {
        const quint64 size = varint();
        if (size > quint64(bytes.size() - at))
            return fail();
        at += int(size);
        return bytes.mid(at - int(size), int(size));
    }
    /// How many elements a list has, each of which takes at least a byte.
    int list(ThriftType &type)
    {
        constexpr int behindHeader = 15;
        const quint8 header = byte();
        type = ThriftType(header & 15);
        const quint64 size = header >> 4 == behindHeader ? varint() : header >> 4;
        if (size > quint64(bytes.size() - at))
            fail();
        return whole ? int(size) : 0;
    }
    void skip(ThriftType type, int depth = 0);

private:
    quint8 byte()
    {
        if (at < bytes.size())
            return quint8(bytes.at(at++));
        fail();
        return 0;
    }
    quint64 varint()
    {
        quint64 value = 0;
        for (int shift = 0; shift < 64; shift += 7) {
            const quint8 next = byte();
            value |= quint64(next & 127) << shift;
            if (next < 128)
                return value;
        }
        fail();
        return 0;
    }
    QByteArray fail()
    {
        whole = false;
        at = bytes.size();
        return {};
    }
    void skipList(int depth);

    const QByteArray &bytes;
    int at = 0;
    bool whole = true;
};

// Truths have no bytes as fields, and one each as elements.
void ThriftReader::skipList(int depth)
{
    ThriftType type;
    for (int left = list(type); left > 0 && whole; --left) {
        if (type == ThriftType::True || type == ThriftType::False)
            byte();
        else
            skip(type, depth);
    }
}

void ThriftReader::skip(ThriftType type, int depth)
{
    constexpr int deepest = 16;
    if (depth > deepest) {
        fail();
        return;
    }
    switch (type) {
    case ThriftType::True:
    case ThriftType::False:
        return;
    case ThriftType::Byte:
        byte();
        return;
    case ThriftType::Int16:
    case ThriftType::Int32:
    case ThriftType::Int64:
        varint();
        return;
    case ThriftType::Double:
        at = qMin(at + 8, bytes.size());
        return;
    case ThriftType::Binary:
        binary();
        return;
    case ThriftType::List:
    case ThriftType::Set:
        skipList(depth + 1);
        return;
    case ThriftType::Struct:
        for (Field field; next(field);)
            skip(field.type, depth + 1);
        return;
    case ThriftType::Map: // the format has none
        break;
    }
    fail();
}

QString columnOf(ThriftReader &thrift)
{
    QByteArray name;
    qint64 type = -1;
    qint64 converted = -1;
    for (ThriftReader::Field field; thrift.next(field);) {
        if (field.number == 1 && field.type == ThriftType::Int32)
            type = thrift.number();
        else if (field.number == 4 && field.type == ThriftType::Binary)
            name = thrift.binary();
        else if (field.number == 6 && field.type == ThriftType::Int32)
            converted = thrift.number();
        else
            thrift.skip(field.type);
    }
    return columnText(QString::fromUtf8(name), int(type), int(converted));
}

} // namespace

QStringList columnsOfFooter(const QByteArray &bytes)
{
    constexpr int schema = 2;
    ThriftReader thrift(bytes);
    for (ThriftReader::Field field; thrift.next(field);) {
        if (field.number != schema || field.type != ThriftType::List) {
            thrift.skip(field.type);
            continue;
        }
        // The first element is the table itself. One column more than ours tells enough.
        QStringList columns;
        ThriftType type;
        const int most = columnCount + 2;
        for (int left = qMin(thrift.list(type), most); left > 0 && thrift.isWhole(); --left)
            columns.append(columnOf(thrift));
        return columns.isEmpty() || !thrift.isWhole() ? QStringList() : columns.mid(1);
    }
    return {};
}

} // namespace Parquet
