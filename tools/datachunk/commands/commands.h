#pragma once

#include <QCommandLineParser>
#include <QList>
#include <QStringList>

#include <array>
#include <vector>

/// A line that the user may type behind the name of the program, and what it is for.
struct Example
{
    const char *line;
    const char *purpose;
};

/// A command of the program: how it is used, and the function that does it. Help, manual page and
/// completion are made of it.
struct Command
{
    const char *name;
    const char *arguments; ///< behind the name, as the usage shows them
    const char *description;
    int leastFiles; ///< number of arguments it takes
    int mostFiles;
    QList<QCommandLineOption> (*options)();
    int (*run)(const QCommandLineParser &parser, const QStringList &files); ///< exit status
    std::array<Example, 2> examples;
};

/// All of them, in the order in which the user sees them.
std::vector<Command> allCommands();

/// Null when there is no such command.
const Command *findCommand(const QString &name);

QList<QCommandLineOption> traceOptions();
QList<QCommandLineOption> convertOptions();
QList<QCommandLineOption> detectOptions();
QList<QCommandLineOption> dumpOptions();
QList<QCommandLineOption> exportOptions();
QList<QCommandLineOption> findOptions();
QList<QCommandLineOption> importOptions();
QList<QCommandLineOption> mergeOptions();
QList<QCommandLineOption> packOptions();
QList<QCommandLineOption> recordOptions();
QList<QCommandLineOption> recoverOptions();
QList<QCommandLineOption> splitOptions();
QList<QCommandLineOption> statsOptions();
QList<QCommandLineOption> unpackOptions();
QList<QCommandLineOption> verifyOptions();

int runConvert(const QCommandLineParser &parser, const QStringList &files);
int runDetect(const QCommandLineParser &parser, const QStringList &files);
int runInfo(const QCommandLineParser &parser, const QStringList &files);
int runDump(const QCommandLineParser &parser, const QStringList &files);
int runExport(const QCommandLineParser &parser, const QStringList &files);
int runFind(const QCommandLineParser &parser, const QStringList &arguments);
int runImport(const QCommandLineParser &parser, const QStringList &files);
int runMerge(const QCommandLineParser &parser, const QStringList &files);
int runPack(const QCommandLineParser &parser, const QStringList &files);
int runRecord(const QCommandLineParser &parser, const QStringList &files);
int runRecover(const QCommandLineParser &parser, const QStringList &files);
int runSplit(const QCommandLineParser &parser, const QStringList &files);
int runStats(const QCommandLineParser &parser, const QStringList &files);
int runUnpack(const QCommandLineParser &parser, const QStringList &files);
int runVerify(const QCommandLineParser &parser, const QStringList &files);
