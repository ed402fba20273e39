#include "commands.h"

#include "terminal.h"

#include <climits>

namespace {

constexpr Command commands[] = {
    {"detect", "FILE...", QT_TRANSLATE_NOOP("Cli", "Tell the type of each file."), 1, INT_MAX,
     detectOptions, runDetect},
    {"info", "PATH...", QT_TRANSLATE_NOOP("Cli", "Tell what a trace holds."), 1, INT_MAX,
     traceOptions, runInfo},
    {"dump", "PATH...", QT_TRANSLATE_NOOP("Cli", "Print the messages of a trace, one a line."), 1,
     INT_MAX, dumpOptions, runDump},
    {"find", "EXPRESSION PATH...",
     QT_TRANSLATE_NOOP("Cli", "Print the messages of a trace that a filter takes."), 2, INT_MAX,
     findOptions, runFind},
    {"stats", "PATH...",
     QT_TRANSLATE_NOOP("Cli", "Tell periods, loads and gaps of the messages of a trace."), 1,
     INT_MAX, statsOptions, runStats},
    {"export", "FILE --to OUT",
     QT_TRANSLATE_NOOP("Cli", "Save a trace, or some of its messages, as a chunk file or a text."),
     1, 1, exportOptions, runExport},
    {"import", "FILE --into FOLDER",
     QT_TRANSLATE_NOOP("Cli", "Turn a trace of another tool into numbered chunk files."), 1, 1,
     importOptions, runImport},
    {"record", "--into FOLDER",
     QT_TRANSLATE_NOOP("Cli",
                       "Record frames into chunk files: candump lines from standard input, "
                       "or from a CAN bus plug-in."),
     0, 0, recordOptions, runRecord},
    {"split", "FILE --messages N",
     QT_TRANSLATE_NOOP("Cli", "Cut a chunk file into smaller ones, in a folder beside it."), 1, 1,
     splitOptions, runSplit},
    {"pack", "FOLDER|FILE... --to X.zip",
     QT_TRANSLATE_NOOP("Cli", "Pack chunk files into a ZIP archive."), 1, INT_MAX, packOptions,
     runPack},
    {"unpack", "X.zip --into FOLDER",
     QT_TRANSLATE_NOOP("Cli", "Unpack the chunk files of an archive."), 1, 1, unpackOptions,
     runUnpack},
    {"merge", "X.zip --to OUT",
     QT_TRANSLATE_NOOP("Cli", "Join the chunk files of an archive into one file."), 1, 1,
     mergeOptions, runMerge},
    {"verify", "PATH...",
     QT_TRANSLATE_NOOP("Cli", "Check chunk files, folders of them and archives for damage."), 1,
     INT_MAX, verifyOptions, runVerify},
    {"recover", "FOLDER|FILE... --into FOLDER",
     QT_TRANSLATE_NOOP("Cli", "Save the chunk files that a killed application left behind."), 0,
     INT_MAX, recoverOptions, runRecover},
};

} // namespace

const Command *findCommand(const QString &name)
{
    for (const Command &command : commands) {
        if (name == QLatin1String(command.name))
            return &command;
    }
    return nullptr;
}

QString commandList()
{
    constexpr int nameWidth = 8;
    QString list;
    for (const Command &command : commands) {
        list += QStringLiteral("  %1 %2\n")
                    .arg(QLatin1String(command.name), -nameWidth)
                    .arg(Cli::tr(command.description));
    }
    return list;
}
