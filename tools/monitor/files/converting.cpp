#include "converting.h"

#include "mergeditems.h"
#include "plaintexts.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace {

struct Converting
{
    Q_DECLARE_TR_FUNCTIONS(Converting)
};

QString sentence(const QString &path, const QString &text)
{
    return QStringLiteral("%1: %2").arg(shortName(path), text);
}

QString baseName(const QString &path)
{
    const QFileInfo file(QDir::cleanPath(path));
    if (file.isDir())
        return file.fileName();
    const QStringList compressions{QStringLiteral("gz"), QStringLiteral("zst"),
                                   QStringLiteral("xz"), QStringLiteral("bz2")};
    const QString base = file.completeBaseName();
    const QString inner = QFileInfo(base).completeBaseName();
    return compressions.contains(file.suffix(), Qt::CaseInsensitive) && !inner.isEmpty() ? inner
                                                                                         : base;
}

// The name that a trace gets in the folder: its own one, with a number where that is taken.
QString freeName(const QDir &folder, const QString &path, const QString &suffix)
{
    const QString base = baseName(path);
    QString name = QStringLiteral("%1.%2").arg(base, suffix);
    for (int number = 2; QFileInfo::exists(folder.filePath(name)); ++number)
        name = QStringLiteral("%1-%2.%3").arg(base, QString::number(number), suffix);
    return folder.filePath(name);
}

void keepResult(const QString &path, const ExportResult &written, ConvertResult &result)
{
    result.written += written.isWritten ? 1 : 0;
    result.isCancelled = result.isCancelled || written.isCancelled;
    if (!written.isWritten && !written.isCancelled)
        result.problems += sentence(path, written.error);
    for (const QString &loss : written.losses)
        result.problems += sentence(path, loss);
}

ConvertResult mergeAll(const ConvertOrder &order, JobControl &control)
{
    ConvertResult result;
    std::vector<std::unique_ptr<TraceItems>> inputs;
    if (order.paths.size() > int(MergedItems::mostInputs)) {
        result.problems +=
            Converting::tr("At most %1 traces are merged at a time.").arg(MergedItems::mostInputs);
        return result;
    }
    for (const QString &path : order.paths) {
        QString problem;
        inputs.push_back(itemsOf(path, control, problem));
        if (inputs.back())
            continue;
        result.problems += problem;
        result.isCancelled = control.isCancelled;
        return result;
    }
    MergedItems merged(std::move(inputs));
    ExportOrder form = order.form;
    form.target = order.target;
    keepResult(order.target, exportItems(merged, form, control), result);
    return result;
}

} // namespace

std::unique_ptr<TraceItems> itemsOf(const QString &path, const JobControl &control,
                                    QString &problem)
{
    SortedPaths sorted = sortPaths({path}, control.isCancelled);
    if (!sorted.foreign.isEmpty())
        return std::make_unique<FileItems>(sorted.foreign.first());
    const auto goesOn = [&control] { return !control.isCancelled; };
    if (sorted.timeline && sorted.timeline->waitForAll(goesOn))
        return std::make_unique<TimelineItems>(*sorted.timeline, TraceSelection());
    if (!sorted.refused.isEmpty())
        problem = sorted.refused.first().notice.text + QLatin1Char(' ')
            + sorted.refused.first().notice.advice;
    return nullptr;
}

ConvertResult convertFiles(const ConvertOrder &order, JobControl &control)
{
    if (order.isMerged)
        return mergeAll(order, control);
    ConvertResult result;
    const QDir folder(order.target);
    if (!folder.mkpath(QStringLiteral("."))) {
        result.problems += Converting::tr("The folder %1 could not be created.").arg(order.target);
        return result;
    }
    for (const QString &path : order.paths) {
        QString problem;
        const auto items = itemsOf(path, control, problem);
        result.isCancelled = control.isCancelled;
        if (result.isCancelled)
            return result;
        if (!items) {
            result.problems += problem;
            continue;
        }
        ExportOrder form = order.form;
        form.target = freeName(folder, path, form.format.suffix());
        keepResult(path, exportItems(*items, form, control), result);
    }
    return result;
}
