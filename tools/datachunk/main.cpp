#include "commands.h"
#include "filechecks.h"
#include "stopsignals.h"
#include "terminal.h"
#include "translations.h"

#include <QLoggingCategory>

#include <csignal>

namespace {

QString generalHelp()
{
    return Cli::tr(
               "Usage: datachunk COMMAND [options] [arguments]\n"
               "Records, converts and shows traces of CAN buses.\n"
               "\n"
               "Commands:\n"
               "%1"
               "\n"
               "A PATH is a trace of any kind, or a folder of chunk files. Several chunk files,\n"
               "folders and archives are one trace in order of time; with a text of another\n"
               "tool among them, all are read one after the other.\n"
               "\n"
               "\"datachunk COMMAND --help\" tells the options of a command.\n"
               "The exit status is 0, 1 when something failed or nothing was found, and 2 for\n"
               "wrong usage.\n")
        .arg(commandList());
}

// The parser knows no commands: its own usage line would put the options in front of them.
QString commandHelp(const Command &command, const QCommandLineParser &parser)
{
    return Cli::tr("Usage: datachunk %1 [options] %2\n")
               .arg(QLatin1String(command.name), QLatin1String(command.arguments))
        + parser.helpText().section(QLatin1Char('\n'), 1);
}

QString fileCountText(const Command &command, const QStringList &files)
{
    const QString usage = Cli::tr("usage: datachunk %1 %2")
                              .arg(QLatin1String(command.name), QLatin1String(command.arguments));
    const QString reason = files.size() < command.leastFiles
        ? Cli::tr("the name of a file is missing")
        : Cli::tr("\"%1\" is one argument too many").arg(files.at(command.mostFiles));
    return reason + QLatin1Char('\n') + usage;
}

int runCommand(const Command &command, const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(Cli::tr(command.description));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  Cli::tr("Print this help."));
    parser.addOption(help);
    const QCommandLineOption verbose(QStringLiteral("verbose"),
                                     Cli::tr("Print the debug lines of the library."));
    parser.addOption(verbose);
    parser.addOptions(command.options());
    if (!parser.parse(arguments))
        return usageError(parser.errorText());
    if (parser.isSet(help))
        return writeOutput(commandHelp(command, parser).toLocal8Bit()) && finishOutput() ? Succeeded
                                                                                         : Failed;
    const QStringList files = parser.positionalArguments().mid(1);
    if (files.size() < command.leastFiles || files.size() > command.mostFiles)
        return usageError(fileCountText(command, files));
    if (!checkOutputIsNoInput(files))
        return Failed;
    if (!parser.isSet(verbose))
        QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false"));
    return command.run(parser, files);
}

} // namespace

int main(int argc, char *argv[])
{
    // Without the signal, a reader that goes away, as "head" does, is a failed write, and the
    // program can clean up.
    std::signal(SIGPIPE, SIG_IGN);
    guardStandardStreams();
    installMessageHandler();
    const QCoreApplication application(argc, argv);
    installTranslations();
    const StopSignals stopSignals;
    QCoreApplication::setApplicationName(QStringLiteral("datachunk"));
    const QStringList arguments = QCoreApplication::arguments();
    const QString name = arguments.value(1);
    if (name == QLatin1String("--help") || name == QLatin1String("-h"))
        return writeOutput(generalHelp().toLocal8Bit()) && finishOutput() ? Succeeded : Failed;
    if (name.isEmpty())
        return usageError(Cli::tr("a command is missing"));
    const Command *command = findCommand(name);
    if (!command)
        return usageError(Cli::tr("there is no command \"%1\"").arg(name));
    return runCommand(*command, arguments);
}
