#pragma once

#include "varint.h"

#include <vector>

namespace Parquet {

/// The types of Thrift's compact protocol.
enum class ThriftType : quint8 {
    True = 1,
    False = 2,
    Byte = 3,
    Int16 = 4,
    Int32 = 5,
    Int64 = 6,
    Double = 7,
    Binary = 8,
    List = 9,
    Set = 10,
    Map = 11,
    Struct = 12
};

/// Writes a structure in Thrift's compact protocol, in which Parquet tells what its pages and
/// columns are. Fields come in rising order of their numbers.
class ThriftWriter
{
public:
    /// Adds to \a bytes, which must live as long.
    explicit ThriftWriter(QByteArray &bytes) : bytes(bytes) { lastFields.push_back(0); }

    void addInt32(int field, qint32 value) { addNumber(field, ThriftType::Int32, value); }
    void addInt64(int field, qint64 value) { addNumber(field, ThriftType::Int64, value); }
    void addByte(int field, qint8 value)
    {
        addHeader(field, ThriftType::Byte);
        bytes += char(value);
    }
    void addBool(int field, bool value)
    {
        addHeader(field, value ? ThriftType::True : ThriftType::False);
    }
    void addBinary(int field, const QByteArray &value)
    {
        addHeader(field, ThriftType::Binary);
        addElement(value);
    }

    void beginStruct(int field)
    {
        addHeader(field, ThriftType::Struct);
        beginElement();
    }
    /// A structure without any field.
    void addEmpty(int field)
    {
        beginStruct(field);
        end();
    }
    void beginList(int field, ThriftType type, int size)
    {
        constexpr int mostInHeader = 14;
        addHeader(field, ThriftType::List);
        bytes += char((size <= mostInHeader ? size : 15) << 4 | int(type));
        if (size > mostInHeader)
            addVarint(quint64(size), bytes);
    }

    void addElement(const QByteArray &value)
    {
        addVarint(quint64(value.size()), bytes);
        bytes += value;
    }
    void addElement(qint32 value) { addZigzag(value, bytes); }
    void beginElement() { lastFields.push_back(0); }
    /// Ends the structure that was begun last, or the outermost one.
    void end()
    {
        bytes += '\0';
        lastFields.pop_back();
    }

private:
    void addNumber(int field, ThriftType type, qint64 value)
    {
        addHeader(field, type);
        addZigzag(value, bytes);
    }
    // No structure of the format has more than 15 fields between two that are written.
    void addHeader(int field, ThriftType type)
    {
        bytes += char((field - lastFields.back()) << 4 | int(type));
        lastFields.back() = field;
    }

    QByteArray &bytes;
    std::vector<int> lastFields; // of the structures that are begun
};

} // namespace Parquet
