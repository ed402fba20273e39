#include "pagewriter.h"

#include "thriftwriter.h"

#include <zstd.h>

namespace Parquet {

namespace {

enum PageKind { DataPage = 0, DictionaryPage = 2 };
constexpr int dataField = 5;
constexpr int dictionaryField = 7;

QByteArray header(int kind, int field, int plainSize, int packedSize, int count, Encoding encoding)
{
    QByteArray bytes;
    ThriftWriter thrift(bytes);
    thrift.addInt32(1, kind);
    thrift.addInt32(2, plainSize);
    thrift.addInt32(3, packedSize);
    thrift.beginStruct(field);
    thrift.addInt32(1, count);
    thrift.addInt32(2, qint32(encoding));
    if (field == dataField) {
        // Of the levels, even where a column has none.
        thrift.addInt32(3, qint32(Encoding::Rle));
        thrift.addInt32(4, qint32(Encoding::Rle));
    }
    thrift.end();
    thrift.end();
    return bytes;
}

} // namespace

void PageWriter::Deleter::operator()(ZSTD_CCtx_s *context) const
{
    ZSTD_freeCCtx(context);
}

PageWriter::PageWriter() : context(ZSTD_createCCtx())
{
    Q_CHECK_PTR(context);
}

PageWriter::~PageWriter() = default;

void PageWriter::begin(QByteArray &bytes, qint64 position)
{
    target = &bytes;
    origin = position;
    column = {};
}

void PageWriter::addDictionary(const QByteArray &values, int count)
{
    column.dictionaryAt = origin + target->size();
    addPage(values, DictionaryPage, dictionaryField, count, Encoding::Plain);
}

void PageWriter::addData(const QByteArray &values, int count, Encoding encoding)
{
    column.dataAt = origin + target->size();
    column.encoding = encoding;
    addPage(values, DataPage, dataField, count, encoding);
}

// The next level takes half as long again for some percent of the bytes.
void PageWriter::addPage(const QByteArray &plain, int kind, int field, int count, Encoding encoding)
{
    constexpr int level = 2;
    packed.reserve(int(ZSTD_compressBound(std::size_t(plain.size()))));
    const std::size_t size =
        ZSTD_compressCCtx(context.get(), packed.data(), std::size_t(packed.capacity()),
                          plain.constData(), std::size_t(plain.size()), level);
    // With room for all it fails for want of memory alone.
    if (ZSTD_isError(size))
        qBadAlloc();
    const QByteArray head = header(kind, field, plain.size(), int(size), count, encoding);
    *target += head;
    target->append(packed.constData(), int(size));
    column.plainSize += head.size() + plain.size();
    column.packedSize += head.size() + qint64(size);
}

} // namespace Parquet
