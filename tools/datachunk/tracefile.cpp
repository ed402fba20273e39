#include "tracefile.h"

#include "commands.h"
#include "filechecks.h"
#include "terminal.h"

#include <QMetaEnum>

namespace {

QMetaEnum typeEnum()
{
    return QMetaEnum::fromType<DatachunkHelper::ImportFileType>();
}

QString allTypeNames()
{
    QStringList names;
    for (int i = 0; i < typeEnum().keyCount(); ++i)
        names.append(QLatin1String(typeEnum().key(i)));
    return names.join(QLatin1String(", "));
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
         QStringLiteral("DESCRIPTION")}};
}

QString typeName(DatachunkHelper::ImportFileType type)
{
    return QLatin1String(typeEnum().valueToKey(type));
}

bool readTraceOptions(const QCommandLineParser &parser, TraceFile &trace)
{
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
    if (!checkReadable(trace.name))
        return false;
    if (trace.detectsType)
        trace.type = DatachunkHelper().getImportFileType(trace.name);
    if (trace.type == DatachunkHelper::Unknown)
        printError(trace.name, Cli::tr("The type of the file is unknown."));
    else if (trace.type == DatachunkHelper::EmptyTxtFile)
        printError(trace.name, Cli::tr("The file is empty."));
    else if (trace.type == DatachunkHelper::Unassigned)
        printError(trace.name,
                   Cli::tr("Files of type %1 cannot be read.").arg(typeName(trace.type)));
    else
        return true;
    return false;
}
