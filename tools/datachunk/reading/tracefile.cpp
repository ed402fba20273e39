#include "tracefile.h"

#include "commands.h"
#include "filechecks.h"
#include "standardinput.h"
#include "stopsignals.h"
#include "terminal.h"
#include "tracerecognition.h"

#include <QMetaEnum>
#include <QTemporaryFile>

namespace {

QMetaEnum typeEnum()
{
    return QMetaEnum::fromType<DatachunkHelper::ImportFileType>();
}

QString allTypeNames()
{
    return typeNames().join(QLatin1String(", "));
}

// The type where none was told, by what the file \a content holds.
bool checkType(TraceFile &trace, const QString &content)
{
    QString explanation = Cli::tr("The type of the file is unknown.");
    const bool isStrict = trace.mode == DatachunkHelper::Strict;
    if (trace.detectsType && isStrict && trace.device) {
        trace.type = DatachunkHelper().checkTxtFile(content);
    } else if (trace.detectsType) {
        const TraceRecognition found =
            isStrict ? TraceRecognition::strictly(content) : TraceRecognition::of(content);
        trace.type = found.type;
        if (!found.explanation.isEmpty())
            explanation = found.explanation;
    }
    if (trace.type == DatachunkHelper::Unknown)
        printError(trace.name, explanation);
    else if (trace.type == DatachunkHelper::EmptyTxtFile)
        printError(trace.name, Cli::tr("The file is empty."));
    else if (trace.type == DatachunkHelper::Unassigned)
        printError(trace.name,
                   Cli::tr("Files of type %1 cannot be read.").arg(typeName(trace.type)));
    else
        return true;
    return false;
}

// Recognition looks no further in a text of this size.
constexpr qint64 recognisedSize = 192LL * 1024;

// Bytes that are a chunk file, an archive or compressed. Texts in UTF-16 have zeros, too.
bool isNoText(const QByteArray &beginning)
{
    const bool isWide = beginning.startsWith("\xFF\xFE") || beginning.startsWith("\xFE\xFF");
    const bool isCompressed = beginning.startsWith("\x1F\x8B") || beginning.startsWith("BZh")
        || beginning.startsWith("\xFD"
                                "7zXZ")
        || beginning.startsWith("\x28\xB5\x2F\xFD");
    return isCompressed || (!isWide && beginning.contains('\0'));
}

} // namespace

QList<QCommandLineOption> traceOptions()
{
    return {
        {QStringLiteral("type"),
         Cli::tr("Read the file as this type instead of the one detected: %1.").arg(allTypeNames()),
         QStringLiteral("NAME")},
        {QStringLiteral("format"),
         Cli::tr("Read a text of the layout described (type GenericFormat)."),
         QStringLiteral("DESCRIPTION")},
        {QStringLiteral("strict"),
         Cli::tr("Read texts by the letter, as other programs of this kind do, instead of taking "
                 "only what has the shape of a frame.")},
        {QStringLiteral("report"), Cli::tr("Tell what became of the lines in this form."),
         QStringLiteral("text|json")},
        {QStringLiteral("fail-on-loss"),
         Cli::tr("Fail when a line was left out or something of a frame was changed.")}};
}

QStringList typeNames()
{
    QStringList names;
    for (int i = 0; i < typeEnum().keyCount(); ++i)
        names.append(QLatin1String(typeEnum().key(i)));
    return names;
}

QString typeName(DatachunkHelper::ImportFileType type)
{
    return QLatin1String(typeEnum().valueToKey(type));
}

bool readTraceOptions(const QCommandLineParser &parser, TraceFile &trace)
{
    const QString form = parser.value(QStringLiteral("report"));
    trace.reportsAsJson = form == QLatin1String("json");
    trace.failsOnLoss = parser.isSet(QStringLiteral("fail-on-loss"));
    if (parser.isSet(QStringLiteral("strict")))
        trace.mode = DatachunkHelper::Strict;
    if (parser.isSet(QStringLiteral("report")) && !trace.reportsAsJson
        && form != QLatin1String("text")) {
        usageError(Cli::tr("--report takes text or json, not \"%1\"").arg(form));
        return false;
    }
    const QString name = parser.value(QStringLiteral("type"));
    const bool described = parser.isSet(QStringLiteral("format"));
    trace.formatDescription = parser.value(QStringLiteral("format"));
    trace.detectsType = !described && !parser.isSet(QStringLiteral("type"));
    if (described)
        trace.type = DatachunkHelper::GenericFormat;
    if (parser.isSet(QStringLiteral("type"))) {
        bool known = false;
        trace.type = DatachunkHelper::ImportFileType(
            typeEnum().keyToValue(name.toLatin1().constData(), &known));
        if (!known) {
            usageError(
                Cli::tr("there is no type \"%1\"; the types are %2").arg(name, allTypeNames()));
            return false;
        }
    }
    if (described && trace.type != DatachunkHelper::GenericFormat)
        usageError(Cli::tr("--format is for the type GenericFormat, not for %1").arg(name));
    else if (!described && trace.type == DatachunkHelper::GenericFormat)
        usageError(Cli::tr("the type GenericFormat needs --format"));
    else
        return true;
    return false;
}

bool checkTrace(TraceFile &trace)
{
    return checkReadable(trace.name) && checkType(trace, trace.name);
}

bool checkStandardInput(TraceFile &trace, StandardInput &input)
{
    trace.name = Cli::tr("standard input");
    trace.device = &input;
    // Where the type is told, nothing is waited for but the first bytes.
    const QByteArray beginning = input.peekBeginning(trace.detectsType ? recognisedSize : 1);
    if (interrupted(trace.name))
        return false;
    if (isNoText(beginning)) {
        printError(trace.name,
                   Cli::tr("Only plain texts can be read from there, not chunk files, archives and "
                           "compressed traces. Give the name of the file."));
        return false;
    }
    if (!trace.detectsType)
        return true;
    // What recognises traces looks at files.
    QTemporaryFile file;
    const qint64 size =
        beginning.size() < recognisedSize ? beginning.size() : beginning.lastIndexOf('\n') + 1;
    if (file.open() && file.write(beginning.constData(), size) == size && file.flush())
        return checkType(trace, file.fileName());
    printError(file.fileTemplate(), file.errorString());
    return false;
}
