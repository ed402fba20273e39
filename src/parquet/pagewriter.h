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

    /// Thorough takes fewer bytes, and about a hundred times as long.
    enum Effort { Quick, Thorough };

    /// Begins the pages of a column, which go to \a bytes; these begin at \a position in the file.
    void begin(QByteArray &bytes, qint64 position, Effort effort);
    void addDictionary(const QByteArray &values, int count);
    /// \a count are the rows, also those without a value.
    void addData(const QByteArray &values, int count, Encoding encoding);
    /// Begins the pages of the column once more, in another encoding.
    void tryAgain();
    /// Keeps those of the two tries that take fewer bytes.
    void keepSmaller();
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
    Effort effort = Quick;
    ColumnChunk column;
    ColumnChunk firstTry;
};

} // namespace Parquet
