// The entry points of libFuzzer. DATACHUNK_FUZZ_TARGET in the environment names the target, so
// that the processes which libFuzzer starts know it as well. With --targets, prints their names.

#include "targets.h"

#include <QCoreApplication>
#include <QLoggingCategory>

#include <cstdio>
#include <cstdlib>

namespace {

FuzzTarget &chosenTarget()
{
    static FuzzTarget target;
    return target;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    static const QCoreApplication application(*argc, *argv);
    QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false\n*.warning=false"));
    const bool isListed = QCoreApplication::arguments().contains(QStringLiteral("--targets"));
    const QString name = qEnvironmentVariable("DATACHUNK_FUZZ_TARGET");
    for (const FuzzTarget &target : fuzzTargets()) {
        if (isListed)
            std::puts(qPrintable(target.name));
        else if (target.name == name)
            chosenTarget() = target;
    }
    if (isListed)
        std::exit(0);
    require(bool(chosenTarget().run), "DATACHUNK_FUZZ_TARGET names no target");
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *bytes, std::size_t size)
{
    chosenTarget().run(QByteArray(reinterpret_cast<const char *>(bytes), int(size)));
    return 0;
}
