#include "commands.h"
#include "filechecks.h"
#include "manual.h"
#include "stopsignals.h"
#include "terminal.h"
#include "translations.h"

#include <QLoggingCategory>

#include <csignal>

namespace {

// False when nobody took all of the text.
ExitStatus print(const QByteArray &text)
{
    return writeOutput(text) && finishOutput() ? Succeeded : Failed;
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
    parser.addOptions(optionsOf(command));
    if (!parser.parse(arguments))
        return usageError(parser.errorText());
    if (parser.isSet(QStringLiteral("help")))
        return print(commandHelp(command).toLocal8Bit());
    const QStringList files = parser.positionalArguments().mid(1);
    if (files.size() < command.leastFiles || files.size() > command.mostFiles)
        return usageError(fileCountText(command, files));
    if (!checkOutputIsNoInput(files))
        return Failed;
    setQuiet(parser.isSet(QStringLiteral("quiet")));
    if (!parser.isSet(QStringLiteral("verbose")))
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
    if (!isUntranslated())
        installTranslations(QStringLiteral("datachunk"));
    const StopSignals stopSignals;
    QCoreApplication::setApplicationName(QStringLiteral("datachunk"));
    QCoreApplication::setApplicationVersion(QStringLiteral(DATACHUNK_VERSION));
    const QStringList arguments = QCoreApplication::arguments();
    const QString name = arguments.value(1);
    if (name == QLatin1String("--help") || name == QLatin1String("-h"))
        return print(generalHelp().toLocal8Bit());
    if (name == QLatin1String("--version"))
        return print("datachunk " DATACHUNK_VERSION "\n");
    if (name == QLatin1String("--man"))
        return print(manualPage());
    if (name == QLatin1String("--completion"))
        return print(bashCompletion());
    if (name.isEmpty())
        return usageError(Cli::tr("a command is missing"));
    const Command *command = findCommand(name);
    if (!command)
        return usageError(Cli::tr("there is no command \"%1\"").arg(name));
    return runCommand(*command, arguments);
}
