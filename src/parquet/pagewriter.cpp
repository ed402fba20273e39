#include "pagewriter.h"

#include "thriftwriter.h"

#include <zstd.h>

#include <utility>

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

void PageWriter::begin(QByteArray &bytes, qint64 position, Effort wanted)
{
    target = &bytes;
    origin = position;
    effort = wanted;
    column = {};
}

void PageWriter::tryAgain()
{
    firstTry = std::exchange(column, {});
}

void PageWriter::keepSmaller()
{
    const auto firstSize = int(firstTry.packedSize);
    const auto size = int(column.packedSize);
    if (firstSize <= size) {
        target->chop(size);
        column = firstTry;
        return;
    }
    target->remove(target->size() - size - firstSize, firstSize);
    column.dataAt -= firstSize;
    if (column.dictionaryAt >= 0)
        column.dictionaryAt -= firstSize;
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

void PageWriter::addPage(const QByteArray &plain, int kind, int field, int count, Encoding encoding)
{
    // A quick one more takes half as long again for some percent of the bytes.
    const int level = effort == Thorough ? 19 : 2;
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
