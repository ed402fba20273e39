#include "lossreport.h"

#include "jsontext.h"
#include "terminal.h"

#include <QJsonArray>
#include <QJsonObject>

#include <cstdio>

namespace {

// A frame all the same, so that it is not said to be left out.
constexpr char unlikelyName[] =
    QT_TRANSLATE_NOOP("Cli", "became a frame, but does not look like one");

using Lines = ImportReport::Lines;

QString numbersOf(const Lines &lines)
{
    constexpr int mostShown = 5;
    QStringList shown;
    for (const quint64 number : lines.first.mid(0, mostShown))
        shown.append(QString::number(number));
    if (lines.count > quint64(shown.size()))
        shown.append(QStringLiteral("..."));
    return shown.join(QLatin1String(", "));
}

void addRow(const QString &what, const Lines &lines, QString &text)
{
    if (lines.count > 0)
        text += Cli::tr("\n%1: %2 (line %3)").arg(what).arg(lines.count).arg(numbersOf(lines));
}

QJsonObject jsonOf(const char *what, const Lines &lines)
{
    QJsonArray numbers;
    for (const quint64 number : lines.first)
        numbers.append(qint64(number));
    QJsonObject object{{QStringLiteral("what"), QLatin1String(what)},
                       {QStringLiteral("count"), qint64(lines.count)},
                       {QStringLiteral("lines"), numbers}};
    if (!lines.text.isEmpty())
        object.insert(QStringLiteral("first"), lines.text);
    return object;
}

} // namespace

QByteArray reportJson(const TraceFile &trace, const ImportReport &report)
{
    if (report.lines == 0)
        return {};
    QJsonArray leftOut;
    for (int i = 0; i < ImportReport::reasonCount; ++i) {
        if (report.leftOut[std::size_t(i)].count > 0)
            leftOut.append(jsonOf(ImportReport::reasonName(ImportReport::Reason(i)),
                                  report.leftOut[std::size_t(i)]));
    }
    QJsonArray changed;
    for (int i = 0; i < ImportReport::changeCount; ++i) {
        if (report.changed[std::size_t(i)].count > 0)
            changed.append(jsonOf(ImportReport::changeName(ImportReport::Change(i)),
                                  report.changed[std::size_t(i)]));
    }
    QJsonObject channels;
    for (const ImportReport::Channel &channel : report.channels)
        channels.insert(channel.name, int(channel.line));
    QJsonObject object{{QStringLiteral("file"), trace.name},
                       {QStringLiteral("type"), typeName(trace.type)},
                       {QStringLiteral("lines"), qint64(report.lines)},
                       {QStringLiteral("frames"), qint64(report.frames)},
                       {QStringLiteral("notes"), qint64(report.notes)},
                       {QStringLiteral("leftOut"), leftOut},
                       {QStringLiteral("changed"), changed},
                       {QStringLiteral("channels"), channels}};
    if (report.unlikely.count > 0)
        object.insert(QStringLiteral("unlikely"), jsonOf(unlikelyName, report.unlikely));
    if (report.start.isValid())
        object.insert(QStringLiteral("start"), report.start.toString(Qt::ISODateWithMs));
    if (!report.timeBase.isEmpty())
        object.insert(QStringLiteral("timeBase"), report.timeBase);
    return jsonText(QJsonDocument(object));
}

void printReport(const TraceFile &trace, const ImportReport &report)
{
    if (report.lines == 0)
        return;
    if (trace.reportsAsJson) {
        const QByteArray json = reportJson(trace, report) + '\n';
        std::fwrite(json.constData(), 1, std::size_t(json.size()), stderr);
        return;
    }
    QString text = Cli::tr("%1 lines, %2 frames, %3 notes%4")
                       .arg(report.lines)
                       .arg(report.frames)
                       .arg(report.notes)
                       .arg(report.hasLoss() ? Cli::tr("; not all of it could be kept:")
                                             : Cli::tr("; nothing was lost."));
    for (int i = 0; i < ImportReport::reasonCount; ++i) {
        const auto reason = ImportReport::Reason(i);
        if (ImportReport::isLoss(reason))
            addRow(Cli::tr("left out, %1").arg(ImportReport::reasonText(reason)),
                   report.leftOut[std::size_t(i)], text);
    }
    for (int i = 0; i < ImportReport::changeCount; ++i)
        addRow(ImportReport::changeText(ImportReport::Change(i)), report.changed[std::size_t(i)],
               text);
    addRow(Cli::tr(unlikelyName), report.unlikely, text);
    if (report.hasLoss())
        printError(trace.name, text);
    else
        printRemark(trace.name, text);
}

bool failsOnLoss(const TraceFile &trace, const ImportReport &report)
{
    return trace.failsOnLoss && report.hasLoss();
}
