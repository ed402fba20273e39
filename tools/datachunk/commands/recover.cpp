#include "chunkmove.h"
#include "chunknames.h"
#include "chunkrecovery.h"
#include "commands.h"
#include "filechecks.h"
#include "leftchunks.h"
#include "movefiles.h"
#include "stopsignals.h"
#include "terminal.h"
#include "workfolder.h"

#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>
#include <optional>

namespace {

QString inUseText()
{
    return Cli::tr("Somebody works in this folder, so it is left alone.");
}

/// Brings chunks of several folders into one.
class Recovery
{
public:
    explicit Recovery(const QDir &target) : target(target) { }

    /// False, with a text printed, when something could not be saved.
    bool save(const std::vector<LeftChunks> &all);

private:
    bool saveFolder(const LeftChunks &chunks, const QDir &into);
    bool saveFile(const QString &file, const QDir &into, std::optional<quint32> &lastNumber);
    static QString setAside(const QString &file);
    QString subfolder(const QString &folder) const;

    const QDir target;
};

// A name that is free, and that nobody overlooks: those of stores are bare numbers, those of work
// folders hidden.
QString Recovery::subfolder(const QString &folder) const
{
    constexpr int attempts = 100000;
    QString name = QFileInfo(folder).fileName();
    while (name.startsWith(QLatin1Char('.')))
        name.remove(0, 1);
    if (name.isEmpty())
        name = QStringLiteral("recovered");
    for (int i = 2; i < attempts; ++i) {
        const QString free =
            i == 2 ? name : QStringLiteral("%1_%2").arg(name, QString::number(i - 1));
        if (target.mkdir(free))
            return free;
        if (!QFileInfo::exists(target.filePath(free)))
            break;
    }
    printError(target.filePath(name), Cli::tr("The folder could not be created."));
    return {};
}

bool Recovery::save(const std::vector<LeftChunks> &all)
{
    bool isSaved = true;
    const auto withFiles = std::count_if(all.begin(), all.end(), [](const LeftChunks &chunks) {
        return !chunks.isInUse && !chunks.files.isEmpty();
    });
    for (const LeftChunks &chunks : all) {
        if (chunks.isInUse) {
            printError(chunks.folder, inUseText());
            isSaved = false;
            continue;
        }
        const QString name = withFiles > 1 ? subfolder(chunks.folder) : QStringLiteral(".");
        if (name.isEmpty())
            return false;
        isSaved = saveFolder(chunks, QDir(target.filePath(name))) && isSaved;
        if (StopSignals::received())
            return false;
    }
    return isSaved;
}

bool Recovery::saveFolder(const LeftChunks &chunks, const QDir &into)
{
    bool isSaved = true;
    std::optional<quint32> lastNumber;
    for (const QString &file : chunks.files) {
        isSaved = saveFile(file, into, lastNumber) && isSaved;
        if (interrupted(file))
            return false;
    }
    // What the directory lacks is found by whoever opens the folder.
    indexChunks(into.path());
    return isSaved;
}

// Of two chunks with one name, which no recorder leaves, both are kept.
QString freeName(const QDir &into, const QString &name)
{
    const int suffix = name.lastIndexOf(QLatin1Char('.'));
    QString free = into.filePath(name);
    for (int i = 2; QFileInfo::exists(free); ++i)
        free =
            into.filePath(name.left(suffix) + QStringLiteral("_copy%1").arg(i) + name.mid(suffix));
    return free;
}

// A store that goes on when all was exported leaves a last chunk whose messages come again in the
// chunks behind it.
QString Recovery::setAside(const QString &file)
{
    const QFileInfo chunk(file);
    const QDir aside(chunk.absoluteDir().filePath(QStringLiteral("earlier")));
    const QString to = aside.filePath(chunk.fileName());
    if (!makeFolder(aside) || moveFile(file, to) != 0)
        return Cli::tr("It does not follow the chunks in front of it.");
    return Cli::tr("It does not follow the chunks in front of it and is now %1.").arg(to);
}

// \a lastNumber is that of the messages of the recording so far.
bool Recovery::saveFile(const QString &file, const QDir &into, std::optional<quint32> &lastNumber)
{
    const QString name = QFileInfo(file).fileName();
    const QString to = freeName(into, name);
    const RecoveredChunk chunk = recoverChunk(file, to, [] { return !StopSignals::received(); });
    if (chunk.result == RecoveredChunk::NotWritten) {
        printError(file, chunk.text);
        return false;
    }
    QStringList reasons(chunk.text);
    const bool isLast = name == ChunkNames::last();
    if (chunk.result == RecoveredChunk::Saved && (isLast || ChunkNames::rotatedNumber(name) >= 0)) {
        if (isLast && lastNumber && chunk.firstNumber <= *lastNumber)
            reasons.append(setAside(to));
        else if (lastNumber && chunk.firstNumber > *lastNumber + 1)
            reasons.append(Cli::tr("%1 messages in front of it are missing.")
                               .arg(chunk.firstNumber - *lastNumber - 1));
        lastNumber = chunk.lastNumber;
    }
    reasons.removeAll(QString());
    QString line = Cli::tr("%1: %2 messages kept").arg(file, QString::number(chunk.messages));
    if (chunk.bytesTrimmed > 0)
        line += Cli::tr(", %1 bytes trimmed").arg(chunk.bytesTrimmed);
    if (!reasons.isEmpty())
        line += QLatin1String(": ") + reasons.join(QLatin1Char(' '));
    writeLine(line);
    return chunk.result != RecoveredChunk::Unreadable;
}

// Nothing may be written into what is to be saved.
bool liesApart(const QDir &target, const QStringList &sources)
{
    const QString path = target.canonicalPath() + QLatin1Char('/');
    for (const QString &source : sources) {
        const QFileInfo info(source);
        if (!info.isDir() || !path.startsWith(info.canonicalFilePath() + QLatin1Char('/')))
            continue;
        printError(target.path(),
                   Cli::tr("The folder lies in %1, which is to be left as it is.").arg(source));
        return false;
    }
    return true;
}

bool hasChunks(const QDir &folder)
{
    const QStringList names = folder.entryList(QDir::AllEntries | QDir::System);
    return std::any_of(names.begin(), names.end(), isChunkName);
}

bool recover(const QStringList &sources, const QDir &target)
{
    std::vector<LeftChunks> found;
    const bool isComplete = findLeftChunks(sources, found);
    if (found.empty()) {
        if (isComplete)
            printError(sources.join(QLatin1String(", ")), Cli::tr("There is no chunk file."));
        return false;
    }
    const bool isNew = !target.exists();
    if (!makeFolder(target))
        return false;
    bool isSaved = false;
    if (liesApart(target, sources)) {
        OwnerLock lock;
        if (lock.lockByFile(target.filePath(QStringLiteral(".datachunk-lock"))) != OwnerLock::Held)
            printError(target.path(), Cli::tr("Somebody else records into this folder."));
        else if (hasChunks(target))
            printError(target.path(), Cli::tr("The folder holds a recording already."));
        else
            isSaved = Recovery(target).save(found);
    }
    if (isNew)
        QDir().rmdir(target.path()); // only where nothing is in it
    return isSaved && isComplete;
}

// Applications have their folder there, some below that of their maker.
QStringList storeFolders()
{
    QStringList paths;
    const QString location = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    const QDir::Filters folders =
        QDir::Dirs | QDir::Hidden | QDir::NoSymLinks | QDir::NoDotAndDotDot;
    const auto add = [&paths](const QString &folder) {
        const QString path = folder + QLatin1String("/datachunks");
        if (QFileInfo(path).isDir())
            paths.append(path);
    };
    for (const QFileInfo &outer : QDir(location).entryInfoList(folders)) {
        add(outer.filePath());
        for (const QFileInfo &inner : QDir(outer.filePath()).entryInfoList(folders))
            add(inner.filePath());
    }
    return paths;
}

bool list(const QStringList &sources)
{
    std::vector<LeftChunks> found;
    const bool isComplete = findLeftChunks(sources, found);
    for (const LeftChunks &chunks : found) {
        qint64 bytes = 0;
        for (const QString &file : chunks.files)
            bytes += QFileInfo(file).size();
        writeLine(chunks.isInUse ? Cli::tr("%1: in use").arg(chunks.folder)
                                 : Cli::tr("%1: left behind, %2 chunk files, %3 bytes")
                                       .arg(chunks.folder, QString::number(chunks.files.size()),
                                            QString::number(bytes)));
    }
    return isComplete;
}

} // namespace

QList<QCommandLineOption> recoverOptions()
{
    return {{QStringLiteral("into"),
             Cli::tr("Put the chunk files into this folder, which is created if need be; those of "
                     "several folders into folders below."),
             QStringLiteral("FOLDER")},
            {QStringLiteral("list"),
             Cli::tr("Tell what there is instead; without a path, what applications have left in "
                     "the data location of their user.")}};
}

int runRecover(const QCommandLineParser &parser, const QStringList &files)
{
    const QString into = parser.value(QStringLiteral("into"));
    const bool lists = parser.isSet(QStringLiteral("list"));
    if (lists && !into.isEmpty())
        return usageError(Cli::tr("--list and --into do not go together"));
    if (!lists && into.isEmpty())
        return usageError(Cli::tr("--into is missing"));
    if (!lists && files.isEmpty())
        return usageError(Cli::tr("the name of a file or folder is missing"));
    const bool done =
        lists ? list(files.isEmpty() ? storeFolders() : files) : recover(files, QDir(into));
    return finishOutput() && done ? Succeeded : Failed;
}
