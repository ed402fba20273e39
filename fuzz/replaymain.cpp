// Runs targets without a fuzzer: replay [TARGET [FILE...]]. Without arguments, every target takes
// its files of the corpus; a reader's target takes the traces of its type as well.

#include "targets.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLoggingCategory>

#include <cstdio>

namespace {

QStringList filesOf(const QString &target)
{
    QStringList files;
    for (const char *root : {FUZZ_CORPUS, FUZZ_TRACES}) {
        const QDir folder(QString::fromUtf8(root) + QLatin1Char('/') + target);
        for (const QString &name : folder.entryList(QDir::Files))
            files.append(folder.filePath(name));
    }
    return files;
}

void replay(const FuzzTarget &target, const QStringList &files)
{
    require(!files.isEmpty(), "a target has no corpus");
    for (const QString &name : files) {
        // Told before the run, so that the last line names the input of a crash.
        std::printf("%s %s\n", qPrintable(target.name), qPrintable(name));
        std::fflush(stdout);
        QFile file(name);
        require(file.open(QIODevice::ReadOnly), "an input cannot be read");
        target.run(file.readAll());
    }
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false\n*.warning=false"));
    const QString wanted = QCoreApplication::arguments().value(1);
    const QStringList given = QCoreApplication::arguments().mid(2);
    bool found = false;
    for (const FuzzTarget &target : fuzzTargets()) {
        if (!wanted.isEmpty() && target.name != wanted)
            continue;
        found = true;
        replay(target, given.isEmpty() ? filesOf(target.name) : given);
    }
    return found ? 0 : 2;
}
