#include "reporthtml.h"

#include "plaintexts.h"

#include <QCoreApplication>
#include <QLocale>

#include <algorithm>

namespace {

struct Report
{
    Q_DECLARE_TR_FUNCTIONS(Report)
};

using Lines = ImportReport::Lines;

QString numbered(quint64 number)
{
    return QLocale().toString(qulonglong(number));
}

class Page
{
public:
    explicit Page(bool hasLines) : hasLines(hasLines) { }

    void add(const QString &html) { text += html; }
    void addFact(const QString &name, const QString &value)
    {
        text += QStringLiteral("<tr><td>%1&nbsp;&nbsp;</td><td>%2</td></tr>")
                    .arg(name.toHtmlEscaped(), value.toHtmlEscaped());
    }
    void beginTable(const QString &title, const QStringList &columns)
    {
        text += QStringLiteral("<h4>%1</h4><table cellpadding=\"3\"><tr>").arg(title);
        for (const QString &column : columns)
            text += QStringLiteral("<th align=\"left\">%1</th>").arg(column);
        text += QStringLiteral("</tr>");
    }
    void addLines(const QString &what, const Lines &lines)
    {
        if (lines.count == 0)
            return;
        text += QStringLiteral("<tr><td>%1</td><td align=\"right\">%2</td><td>%3</td>"
                               "<td><code>%4</code></td></tr>")
                    .arg(what.toHtmlEscaped(), numbered(lines.count), numbersOf(lines),
                         lines.text.simplified().toHtmlEscaped());
    }
    void endTable() { text += QStringLiteral("</table>"); }

    QString html() const { return text; }

private:
    QString numbersOf(const Lines &lines) const
    {
        QStringList numbers;
        for (const quint64 number : lines.first) {
            const QString shown = QString::number(number);
            numbers += hasLines ? QStringLiteral("<a href=\"line:%1\">%1</a>").arg(shown) : shown;
        }
        if (lines.count > quint64(lines.first.size()))
            numbers += QStringLiteral("…");
        return numbers.join(QStringLiteral(", "));
    }

    const bool hasLines;
    QString text;
};

QStringList lineColumns()
{
    return {Report::tr("Why"), Report::tr("Count"), Report::tr("Lines"),
            Report::tr("The first of them")};
}

void addFacts(const ImportSource &source, const ImportReport &report, Page &page)
{
    page.add(QStringLiteral("<h3>%1</h3><table>").arg(shortName(source.path).toHtmlEscaped()));
    page.addFact(Report::tr("Read as"),
                 source.mode == DatachunkHelper::Strict
                     ? Report::tr("%1, strictly").arg(typeName(source.type))
                     : typeName(source.type));
    page.addFact(Report::tr("Lines"), numbered(report.lines));
    page.addFact(Report::tr("Frames"), numbered(report.frames));
    page.addFact(Report::tr("Notes"), numbered(report.notes));
    page.addFact(Report::tr("Lines lost"), numbered(report.linesLost()));
    if (report.start.isValid())
        page.addFact(Report::tr("Began"), QLocale().toString(report.start, QLocale::LongFormat));
    if (!report.timeBase.isEmpty())
        page.addFact(Report::tr("Times count from"), report.timeBase);
    page.endTable();
}

// The lines that were expected to be frames, or the others.
void addLeftOut(const ImportReport &report, bool losses, Page &page)
{
    for (int i = 0; i < ImportReport::reasonCount; ++i) {
        const auto reason = ImportReport::Reason(i);
        if (ImportReport::isLoss(reason) == losses)
            page.addLines(ImportReport::reasonText(reason), report.leftOut[std::size_t(i)]);
    }
}

bool hasChanges(const ImportReport &report)
{
    return report.unlikely.count > 0
        || std::any_of(report.changed.begin(), report.changed.end(),
                       [](const Lines &lines) { return lines.count > 0; });
}

void addLosses(const ImportReport &report, Page &page)
{
    if (!report.hasLoss()) {
        page.add(QStringLiteral("<p>%1</p>").arg(Report::tr("Nothing was lost.")));
        return;
    }
    if (report.linesLost() > 0) {
        page.beginTable(Report::tr("Could not be read as frames"), lineColumns());
        addLeftOut(report, true, page);
        page.endTable();
    }
    if (!hasChanges(report))
        return;
    page.beginTable(Report::tr("Frames that may not be as the file means them"), lineColumns());
    for (int i = 0; i < ImportReport::changeCount; ++i)
        page.addLines(ImportReport::changeText(ImportReport::Change(i)),
                      report.changed[std::size_t(i)]);
    page.addLines(Report::tr("does not look like a frame"), report.unlikely);
    page.endTable();
}

void addChannels(const ImportReport &report, Page &page)
{
    constexpr int mostShown = 256;
    if (report.channels.isEmpty())
        return;
    page.beginTable(Report::tr("Lines of the bus"),
                    {Report::tr("In the file"), Report::tr("Here")});
    for (const ImportReport::Channel &channel : report.channels.mid(0, mostShown))
        page.addFact(channel.name, QString::number(channel.line));
    page.endTable();
}

} // namespace

QString reportHtml(const ImportSource &source, const ImportReport &report, bool hasLines)
{
    Page page(hasLines);
    addFacts(source, report, page);
    addLosses(report, page);
    if (!hasLines)
        page.add(QStringLiteral("<p>%1</p>")
                     .arg(Report::tr("The file is compressed, so that its lines cannot be shown. "
                                     "Unpack it with another program and open it again to go to "
                                     "them.")));
    addChannels(report, page);
    if (report.linesLeftOut() > report.linesLost()) {
        page.beginTable(Report::tr("Lines that are no frames, as expected"), lineColumns());
        addLeftOut(report, false, page);
        page.endTable();
    }
    return page.html();
}
