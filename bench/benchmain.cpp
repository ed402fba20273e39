#include <QCoreApplication>
#include <QLoggingCategory>

#include <benchmark/benchmark.h>

void registerExportBenchmarks();
void registerImportBenchmarks();
void registerParquetBenchmarks();

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false"));
    registerImportBenchmarks();
    registerExportBenchmarks();
    registerParquetBenchmarks();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
