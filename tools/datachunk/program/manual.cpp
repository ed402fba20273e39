#include "manual.h"

#include "targetformat.h"
#include "terminal.h"
#include "tracefile.h"

namespace {

QString commandList()
{
    constexpr int nameWidth = 8;
    QString list;
    for (const Command &command : allCommands()) {
        list += QStringLiteral("  %1 %2\n")
                    .arg(QLatin1String(command.name), -nameWidth)
                    .arg(Cli::tr(command.description));
    }
    return list;
}

QString introduction()
{
    return Cli::tr("Records, converts and shows traces of CAN buses.");
}

QString wordOnPaths()
{
    return Cli::tr(
        "A PATH is a trace of any kind, or a folder of chunk files. Several chunk files,\n"
        "folders and archives are one trace in order of time; with a text of another\n"
        "tool among them, all are read one after the other.");
}

QString wordOnStatus()
{
    return Cli::tr("The exit status is 0, 1 when something failed or nothing was found, and 2 for\n"
                   "wrong usage.");
}

QString dashed(const QString &name)
{
    return (name.size() == 1 ? QLatin1String("-") : QLatin1String("--")) + name;
}

QString names(const QCommandLineOption &option)
{
    QStringList dashedNames;
    const QStringList plainNames = option.names();
    for (const QString &name : plainNames)
        dashedNames.append(dashed(name));
    return dashedNames.join(QLatin1String(", "));
}

// Keeps a line of text from being taken for a request, and a hyphen from being made a dash.
QString roff(QString text)
{
    text.replace(QLatin1Char('\\'), QLatin1String("\\e"));
    text.replace(QLatin1Char('-'), QLatin1String("\\-"));
    text.replace(QLatin1String("\n"), QLatin1String("\n\\&"));
    return QLatin1String("\\&") + text;
}

QString roffOption(const QCommandLineOption &option)
{
    const QString value = option.valueName().isEmpty()
        ? QString()
        : QStringLiteral(" \\fI%1\\fR").arg(roff(option.valueName()));
    return QStringLiteral(".TP\n\\fB%1\\fR%2\n%3\n")
        .arg(roff(names(option)), value, roff(option.description()));
}

QString roffOptions(const QList<QCommandLineOption> &options)
{
    QString text;
    for (const QCommandLineOption &option : options)
        text += roffOption(option);
    return text;
}

QString roffCommand(const Command &command)
{
    QString text =
        QStringLiteral(".SS \"datachunk %1 [options] %2\"\n%3\n")
            .arg(roff(QLatin1String(command.name)), roff(QLatin1String(command.arguments)),
                 roff(Cli::tr(command.description)));
    text += roffOptions(command.options())
        + QStringLiteral(".PP\n%1\n").arg(roff(Cli::tr("Examples:")));
    for (const Example &example : command.examples)
        text += QStringLiteral(".TP\n\\fBdatachunk %1\\fR\n%2\n")
                    .arg(roff(QLatin1String(example.line)), roff(Cli::tr(example.purpose)));
    return text;
}

// The values that an option takes, where they are words; "FOLDER" and the like stay names of files.
QStringList valuesOf(const QCommandLineOption &option)
{
    if (option.names().contains(QLatin1String("type")))
        return typeNames();
    if (option.names().contains(QLatin1String("as")))
        return TargetFormat::allNames().split(QLatin1String(", "));
    return option.valueName().contains(QLatin1Char('|'))
        ? option.valueName().split(QLatin1Char('|'))
        : QStringList();
}

// One case for each option that takes words or a folder, asked by the word before.
QString valueCases(const Command &command)
{
    QString cases;
    const QList<QCommandLineOption> options = optionsOf(command);
    for (const QCommandLineOption &option : options) {
        const QStringList values = valuesOf(option);
        const QString place = QStringLiteral("        %1:--%2) ")
                                  .arg(QLatin1String(command.name), option.names().constLast());
        if (!values.isEmpty())
            cases += place + QStringLiteral("words='%1' ;;\n").arg(values.join(QLatin1Char(' ')));
        else if (option.valueName() == QLatin1String("FOLDER"))
            cases += place + QLatin1String("kind=-d ;;\n");
    }
    return cases;
}

QString optionCase(const Command &command)
{
    QStringList words;
    const QList<QCommandLineOption> options = optionsOf(command);
    for (const QCommandLineOption &option : options)
        words.append(names(option).remove(QLatin1Char(',')));
    return QStringLiteral("        %1:-*) words='%2' ;;\n")
        .arg(QLatin1String(command.name), words.join(QLatin1Char(' ')));
}

constexpr char completionScript[] = R"(# Completes what is typed behind "datachunk"; for bash.
_datachunk() {
    local word="${COMP_WORDS[COMP_CWORD]}" before="${COMP_WORDS[COMP_CWORD-1]}"
    local command="${COMP_WORDS[1]}" words= kind=-f
    if [ "$COMP_CWORD" -eq 1 ]; then
        COMPREPLY=($(compgen -W '%1 --help --version' -- "$word"))
        return
    fi
    case "$command:$before" in
%2    esac
    case "$command:$word" in
%3    esac
    if [ -n "$words" ]; then
        COMPREPLY=($(compgen -W "$words" -- "$word"))
    else
        compopt -o filenames
        mapfile -t COMPREPLY < <(compgen "$kind" -- "$word")
    fi
}
complete -F _datachunk datachunk
)";

} // namespace

QList<QCommandLineOption> generalOptions()
{
    return {{{QStringLiteral("h"), QStringLiteral("help")}, Cli::tr("Print this help.")},
            {{QStringLiteral("q"), QStringLiteral("quiet")},
             Cli::tr("Tell failures and losses only, not how the work goes on.")},
            {QStringLiteral("verbose"), Cli::tr("Print the debug lines of the library.")}};
}

QList<QCommandLineOption> optionsOf(const Command &command)
{
    return command.options() + generalOptions();
}

QString generalHelp()
{
    return Cli::tr("Usage: datachunk COMMAND [options] [arguments]\n") + introduction()
        + Cli::tr("\n\nCommands:\n") + commandList() + QLatin1Char('\n') + wordOnPaths()
        + Cli::tr("\n\n\"datachunk COMMAND --help\" tells the options of a command, and\n"
                  "\"datachunk --version\" the version. \"datachunk --man\" prints a manual page,\n"
                  "\"datachunk --completion\" a script that has bash complete what is typed.\n")
        + wordOnStatus() + QLatin1Char('\n');
}

// The parser knows no commands: its own usage line would put the options in front of them.
QString commandHelp(const Command &command)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(Cli::tr(command.description));
    parser.addOptions(optionsOf(command));
    QString text = Cli::tr("Usage: datachunk %1 [options] %2\n")
                       .arg(QLatin1String(command.name), QLatin1String(command.arguments))
        + parser.helpText().section(QLatin1Char('\n'), 1) + Cli::tr("\nExamples:\n");
    for (const Example &example : command.examples)
        text += QStringLiteral("  datachunk %1\n      %2\n")
                    .arg(QLatin1String(example.line), Cli::tr(example.purpose));
    return text;
}

QByteArray manualPage()
{
    QString text =
        QStringLiteral(".TH DATACHUNK 1 \"\" \"datachunk %1\" \"User Commands\"\n"
                       ".nh\n.ad l\n"
                       ".SH NAME\ndatachunk \\- %2\n"
                       ".SH SYNOPSIS\n.B datachunk\n\\fICOMMAND\\fR [options] [arguments]\n"
                       ".SH DESCRIPTION\n%3\n.PP\n%4\n.SH COMMANDS\n")
            .arg(QCoreApplication::applicationVersion(),
                 roff(Cli::tr("records, converts and shows traces of CAN buses")),
                 roff(introduction()), roff(wordOnPaths()));
    for (const Command &command : allCommands())
        text += roffCommand(command);
    text += QStringLiteral(".SH OPTIONS OF ALL COMMANDS\n") + roffOptions(generalOptions())
        + QStringLiteral(".SH EXIT STATUS\n%1\n.SH ENVIRONMENT\n").arg(roff(wordOnStatus()))
        + QStringLiteral(".TP\nNO_COLOR\n%1\n.TP\nTMPDIR\n%2\n")
              .arg(roff(Cli::tr("Where it is set to anything, no colours are used.")),
                   roff(Cli::tr("Where files without a name are put while archives are read; /tmp "
                                "otherwise.")));
    return text.toUtf8();
}

QByteArray bashCompletion()
{
    QStringList commandNames;
    QString values;
    QString options;
    for (const Command &command : allCommands()) {
        commandNames.append(QLatin1String(command.name));
        values += valueCases(command);
        options += optionCase(command);
    }
    return QString::fromLatin1(completionScript)
        .arg(commandNames.join(QLatin1Char(' ')), values, options)
        .toUtf8();
}
