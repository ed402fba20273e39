#pragma once

#include "columns.h"

#include <memory>

struct ZSTD_CCtx_s;

namespace Parquet {

/// Compresses pages and adds them to the bytes of a file.
class PageWriter
{
public:
    PageWriter();
    ~PageWriter();

    /// Begins the pages of a column, which go to \a bytes; these begin at \a position in the file.
    void begin(QByteArray &bytes, qint64 position);
    void addDictionary(const QByteArray &values, int count);
    /// \a count are the rows, also those without a value.
    void addData(const QByteArray &values, int count, Encoding encoding);
    /// Where the pages since begin() are, and how large.
    const ColumnChunk &chunk() const { return column; }

private:
    Q_DISABLE_COPY(PageWriter)

    void addPage(const QByteArray &plain, int kind, int field, int count, Encoding encoding);

    struct Deleter
    {
        void operator()(ZSTD_CCtx_s *context) const;
    };
    const std::unique_ptr<ZSTD_CCtx_s, Deleter> context;
    QByteArray packed;
    QByteArray *target = nullptr;
    qint64 origin = 0; // of the target's bytes in the file
    ColumnChunk column;
};

} // namespace Parquet
