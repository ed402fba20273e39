#include "dataset.h"

#include "conversion.h"
#include "conversionreport.h"
#include "datasetparts.h"
#include "movefiles.h"
#include "sourcedigest.h"
#include "stopsignals.h"
#include "terminal.h"
#include "tracenames.h"

#include <QDir>
#include <QDirIterator>
#include <QUuid>

#include <cerrno>

namespace {

using Result = TraceReading::Result;

// What is written for readers begins with neither; others leave there what they do not read.
bool isForReaders(const QString &path)
{
    const QStringList names = path.split(QLatin1Char('/'));
    return std::none_of(names.begin(), names.end(), [](const QString &name) {
        return name.startsWith(QLatin1Char('.')) || name.startsWith(QLatin1Char('_'));
    });
}

// One file tells what all in the folder are.
bool checkSchema(const QDir &folder, const Partition &partition)
{
    const QDir root(folder.absolutePath());
    QDirIterator files(root.path(), {QStringLiteral("*.parquet")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString fileName = files.next();
        const QString place = root.relativeFilePath(fileName);
        if (!isForReaders(place))
            continue;
        QString text = ParquetTrace::differenceOf(fileName);
        if (text.isEmpty() && !partition.fits(place.section(QLatin1Char('/'), 0, -2)))
            text = Cli::tr("The data set is not divided by %1.").arg(partition.text());
        if (text.isEmpty())
            return true;
        printError(folder.path(),
                   Cli::tr("There is another data set.") + QLatin1Char(' ') + place
                       + QLatin1String(": ") + text);
        return false;
    }
    return true;
}

// The files of a data set on their way to their names.
class Placement
{
public:
    explicit Placement(const QDir &folder) : folder(folder) { }

    /// All get their names, or, with a text printed, none.
    bool moveAll(const std::vector<DatasetPart> &parts)
    {
        if (std::all_of(parts.begin(), parts.end(),
                        [this](const auto &part) { return move(part); }))
            return true;
        for (const QString &name : qAsConst(moved))
            QFile::remove(name);
        for (auto place = made.rbegin(); place != made.rend(); ++place)
            folder.rmdir(*place);
        return false;
    }
    const QStringList &names() const { return moved; }

private:
    bool move(const DatasetPart &part)
    {
        const QString name =
            folder.filePath(part.folder
                            + QStringLiteral("/part-%1.parquet")
                                  .arg(QUuid::createUuid().toString(QUuid::WithoutBraces)));
        const int error = makePlace(part.folder) ? moveFile(part.fileName, name) : EACCES;
        if (error != 0)
            printError(name, systemErrorText(error));
        else
            moved.append(name);
        return error == 0;
    }
    // Folder by folder, so that those that were not there can be removed.
    bool makePlace(const QString &path)
    {
        const int depth = path.count(QLatin1Char('/'));
        for (int i = 0; i <= depth; ++i) {
            const QString place = path.section(QLatin1Char('/'), 0, i);
            if (folder.exists(place))
                continue;
            if (!folder.mkdir(place))
                return false;
            made.append(place);
        }
        return true;
    }

    const QDir folder;
    QStringList moved;
    QStringList made;
};

class DatasetWriting
{
public:
    DatasetWriting(const TraceFile &trace, const Conversion &wanted, const Partition &partition,
                   const WorkFolder &work)
        : trace(trace), wanted(wanted), partition(partition), work(work)
    {
    }

    /// False when nothing more can be written, which is told.
    bool add(const QString &path);
    const std::vector<DatasetPart> &parts() const { return all; }
    /// Whether all of every trace was read, and written without loss where the user wants that.
    bool isComplete() const { return complete; }

private:
    bool write(TraceInput &input, const QString &path);
    bool tell(DatasetParts::Result result, const QString &path, const QString &reason);
    void take(const DatasetParts &parts, const QString &path, quint64 bookmarks);

    const TraceFile &trace;
    const Conversion &wanted;
    const Partition &partition;
    const WorkFolder &work;
    std::vector<DatasetPart> all;
    int traces = 0;
    bool complete = true;
};

bool DatasetWriting::add(const QString &path)
{
    TraceInputs opened(trace);
    Result result = Result::Failed;
    if (opened.openEach({path})) {
        TraceInput &input = *opened.all().front();
        input.keepBookmarks();
        result = input.open();
        if (result != Result::Failed)
            return write(input, path);
    }
    complete = false;
    return true;
}

bool DatasetWriting::write(TraceInput &input, const QString &path)
{
    SourceDigest digest({&input});
    DatasetParts parts(work, partition, traceName(path), QString::number(traces++));
    MergedTrace messages({&input}, wanted.selection);
    Progress progress(messages.subject(), [&] { return messages.part(); });
    DatasetParts::Result written = DatasetParts::Written;
    quint64 bookmarks = 0;
    quint64 count = 0;
    const Result result = messages.forEachBlock([&](const MessageBlock &block) {
        written = parts.append(block);
        bookmarks += block.bookmarks.size();
        count += block.messages.size();
        progress.setCount(count);
        return written == DatasetParts::Written;
    });
    complete = complete && worse(result, input.open()) == Result::Complete;
    if (written != DatasetParts::Written)
        return tell(written, path, parts.errorText());
    if (result == Result::Failed)
        return true;
    if (count == 0) {
        printError(path, Cli::tr("Nothing to export."));
        complete = false;
        return true;
    }
    written = parts.finish(digest.source());
    if (written != DatasetParts::Written)
        return tell(written, path, parts.errorText());
    take(parts, path, bookmarks);
    return true;
}

// Whether others can be written.
bool DatasetWriting::tell(DatasetParts::Result result, const QString &path, const QString &reason)
{
    complete = false;
    if (result == DatasetParts::TooManyDays)
        printError(path, Cli::tr("Its times jump between too many days."));
    else
        tellNotWritten(wanted.target, reason);
    return result == DatasetParts::TooManyDays;
}

void DatasetWriting::take(const DatasetParts &parts, const QString &path, quint64 bookmarks)
{
    quint64 count = 0;
    for (const DatasetPart &part : parts.parts()) {
        all.push_back(part);
        count += part.messages;
    }
    ConversionLosses losses(count, parts.notesCut());
    losses.addBookmarks(bookmarks);
    Conversion told = wanted;
    told.target = path;
    tellLosses(losses, told);
    complete = complete && !(wanted.failsOnLoss && losses.areAny());
}

bool writeInto(const QDir &folder, const QStringList &paths, const TraceFile &trace,
               const Conversion &wanted, const Partition &partition)
{
    const WorkFolder work(folder.path());
    if (!work.isValid()) {
        printError(folder.path(), work.errorText());
        return false;
    }
    DatasetWriting writing(trace, wanted, partition, work);
    for (const QString &path : paths) {
        if (interrupted(path) || !writing.add(path))
            return false;
    }
    Placement placement(folder);
    if (interrupted(folder.path()) || !placement.moveAll(writing.parts()))
        return false;
    for (int i = 0; i < placement.names().size(); ++i)
        writeLine(QStringLiteral("%1: %2").arg(
            placement.names().at(i),
            Cli::tr("%1 messages").arg(writing.parts()[std::size_t(i)].messages)));
    return writing.isComplete();
}

bool writeDataset(const QStringList &paths, const TraceFile &trace, const Conversion &wanted,
                  const Partition &partition)
{
    const QDir folder(wanted.target);
    const bool wasThere = folder.exists();
    if (!checkSchema(folder, partition) || !makeFolder(folder))
        return false;
    const bool isWritten = writeInto(folder, paths, trace, wanted, partition);
    // Nothing goes that anything is in.
    if (!wasThere)
        QDir().rmdir(folder.path());
    return isWritten;
}

bool readOptions(const QCommandLineParser &parser, const TraceFile &trace, Conversion &wanted,
                 Partition &partition)
{
    const QString folder = parser.value(QStringLiteral("into"));
    if (parser.isSet(QStringLiteral("to")))
        usageError(Cli::tr("--partition goes with --into, not with --to"));
    else if (folder.isEmpty())
        usageError(Cli::tr("--into is missing"));
    else if (!partition.read(parser.value(QStringLiteral("partition")))
             || !readConversion(parser, trace, TargetFormat{TargetFormat::Parquet}, wanted))
        return false;
    else if (wanted.format.kind != TargetFormat::Parquet)
        usageError(Cli::tr("--partition is for Parquet alone"));
    else {
        // Only here: the end of its name tells no format.
        wanted.target = folder;
        return true;
    }
    return false;
}

} // namespace

QCommandLineOption partitionOption()
{
    return {QStringLiteral("partition"),
            Cli::tr("Write a Parquet data set into the folder of --into: each trace for itself, in "
                    "folders by these keys, source or source=NAME and date, with commas between."),
            QStringLiteral("KEYS")};
}

int runDataset(const QCommandLineParser &parser, const QStringList &paths, const TraceFile &trace)
{
    Conversion wanted;
    Partition partition;
    if (!readOptions(parser, trace, wanted, partition))
        return WrongUsage;
    const bool done = writeDataset(paths, trace, wanted, partition);
    return finishOutput() && done ? Succeeded : Failed;
}
