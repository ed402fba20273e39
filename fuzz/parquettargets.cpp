#include "columns.h"
#include "targets.h"

namespace {

// However many columns are promised, few are read.
void readFooter(const QByteArray &bytes)
{
    require(Parquet::columnsOfFooter(bytes).size() <= Parquet::columnCount + 1,
            "no more columns are read than tell a difference");
}

} // namespace

std::vector<FuzzTarget> parquetTargets()
{
    return {{QStringLiteral("parquetfooter"), readFooter}};
}
