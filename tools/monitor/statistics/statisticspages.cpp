#include "statisticspages.h"

#include "curveplot.h"
#include "digestdelegates.h"
#include "digesttext.h"
#include "identifiertable.h"
#include "linecolor.h"
#include "linetable.h"
#include "tabletools.h"
#include "tracedigest.h"

#include <QAction>
#include <QEvent>
#include <QHeaderView>
#include <QSplitter>
#include <QTableView>
#include <QVBoxLayout>

namespace {

constexpr int millisecondsPerPicture = 250;
constexpr int millisecondsUntilSilence = 1100;
constexpr char columnsKey[] = "statistics/columns";

// The parts one below the other; the table takes what room is left, or only that of a few rows.
void layOut(QWidget *page, const QList<QWidget *> &parts, bool isTableSmall)
{
    auto *splitter = new QSplitter(Qt::Vertical);
    splitter->setChildrenCollapsible(true);
    for (QWidget *part : parts)
        splitter->addWidget(part);
    constexpr int rows = 6;
    for (int i = 0; i < parts.size(); ++i)
        splitter->setStretchFactor(i, (i == 0) != isTableSmall ? 1 : 0);
    if (isTableSmall)
        splitter->setSizes({rows * (page->fontMetrics().height() + 4), 10000, 10000});
    auto *layout = new QVBoxLayout(page);
    layout->setContentsMargins({});
    layout->addWidget(splitter);
}

PlotCurve loadCurve(const LineDigest &line, const BitRates &bitRates, qint64 last)
{
    const int group = smoothing(line.messages);
    PlotCurve curve = rateCurve(line.nominalBits, last, group);
    const PlotCurve data = rateCurve(line.dataBits, last, group);
    for (int i = 0; i < curve.points.size(); ++i) {
        QPointF &point = curve.points[i];
        const double dataBits = i < data.points.size() ? data.points.at(i).y() : 0;
        point.setY(100 * (point.y() / bitRates.nominal + dataBits / bitRates.data));
    }
    return curve;
}

} // namespace

StatisticsPage::StatisticsPage(QWidget *parent) : QWidget(parent)
{
    drawing.setSingleShot(true);
    connect(&drawing, &QTimer::timeout, this, &StatisticsPage::draw);
}

void StatisticsPage::setDigest(TraceDigest *digest)
{
    if (ownDigest)
        ownDigest->disconnect(this);
    ownDigest = digest;
    if (digest) {
        connect(digest, &TraceDigest::updated, this, &StatisticsPage::drawSoon);
        connect(digest, &TraceDigest::cleared, this, &StatisticsPage::drawSoon);
    }
    drawCurves();
}

void StatisticsPage::drawSoon()
{
    if (isVisible() && (!drawing.isActive() || drawing.remainingTime() > millisecondsPerPicture))
        drawing.start(millisecondsPerPicture);
}

// Nobody tells when messages stay away.
void StatisticsPage::draw()
{
    drawCurves();
    if (isVisible() && ownDigest && ownDigest->isGrowing() && !ownDigest->isSilent())
        drawing.start(millisecondsUntilSilence);
}

void StatisticsPage::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    draw();
}

// The colours follow those of the window.
void StatisticsPage::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        drawSoon();
}

LinesPage::LinesPage(QWidget *parent)
    : StatisticsPage(parent), model(new LineTable(this)), table(new QTableView),
      loads(new CurvePlot([](double value) { return DigestText::percent(value / 100); })),
      rates(new CurvePlot([](double value) { return DigestText::count(quint64(value)); }))
{
    table->setObjectName(QStringLiteral("lines"));
    table->setAccessibleName(tr("Lines"));
    table->setModel(model);
    TableTools::prepare(table);
    static const char *const samples[LineTable::columns] = {
        "0000", "00.0 %", "00.0 %", "00.0 %", "00,000", "0,000,000", "000", "0,000", "0,000"};
    for (int column = 0; column < LineTable::columns; ++column)
        TableTools::setColumnWidth(table, column, samples[column]);
    table->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed
                           | QAbstractItemView::AnyKeyPressed);
    TableTools::copyAction(table);
    table->setContextMenuPolicy(Qt::ActionsContextMenu);
    layOut(this, {table, loads, rates}, true);
    connect(model, &LineTable::bitRatesChanged, this, [this] { drawCurves(); });
}

void LinesPage::setDigest(TraceDigest *digest)
{
    model->setDigest(digest);
    StatisticsPage::setDigest(digest);
}

void LinesPage::drawCurves()
{
    model->refresh();
    const TraceSummary summary = digest() ? digest()->summary() : TraceSummary();
    QVector<PlotCurve> loadCurves;
    QVector<PlotCurve> rateCurves;
    for (const LineDigest &line : summary.lines) {
        loadCurves += loadCurve(line, model->bitRates(line.line), summary.last);
        rateCurves += rateCurve(line.messages, summary.last, smoothing(line.messages));
        for (PlotCurve *curve : {&loadCurves.last(), &rateCurves.last()}) {
            curve->name = tr("Line %1").arg(line.line);
            curve->color = lineColor(line.line, palette());
        }
    }
    loads->setCurves(tr("Bus load"), loadCurves, summary.first, summary.last);
    rates->setCurves(tr("Messages per second"), rateCurves, summary.first, summary.last);
}

IdentifiersPage::IdentifiersPage(QWidget *parent)
    : StatisticsPage(parent), model(new IdentifierTable(this)), table(new QTableView),
      rate(new CurvePlot([](double value) { return DigestText::rate(value); }))
{
    buildTable();
    layOut(this, {table, rate}, false);
    connect(table->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this] { drawCurves(); });
    connect(model, &QAbstractItemModel::modelReset, this, [this] { drawSoon(); });
}

IdentifiersPage::~IdentifiersPage()
{
    TableTools::keepColumns(table, columnsKey);
}

void IdentifiersPage::buildTable()
{
    table->setObjectName(QStringLiteral("identifierStatistics"));
    table->setAccessibleName(tr("Identifiers"));
    table->setModel(model);
    TableTools::prepare(table);
    table->setItemDelegateForColumn(IdentifierTable::CurveColumn, new CurveDelegate(model, this));
    static const char *const samples[IdentifierTable::columns] = {
        "00000000",       "00",        "",       "",          "",
        "00000000000000", "0,000,000", "00,000", "000.00 ms", "000.00 ms",
        "000.00 ms",      "000.00 ms", ""};
    for (int column = 0; column < IdentifierTable::columns; ++column)
        TableTools::setColumnWidth(table, column, samples[column]);
    for (const int column :
         {IdentifierTable::KindColumn, IdentifierTable::PeriodColumn, IdentifierTable::AgeColumn,
          IdentifierTable::LengthColumn, IdentifierTable::DataColumn})
        table->setColumnHidden(column, true);
    table->horizontalHeader()->setSortIndicator(IdentifierTable::CountColumn, Qt::DescendingOrder);
    TableTools::restoreColumns(table, columnsKey);
    table->setSortingEnabled(true);
    TableTools::copyAction(table);
    table->setContextMenuPolicy(Qt::ActionsContextMenu);
}

void IdentifiersPage::setDigest(TraceDigest *digest)
{
    model->setDigest(digest);
    StatisticsPage::setDigest(digest);
}

void IdentifiersPage::drawCurves()
{
    const IdentifierDigest *chosen = model->at(table->currentIndex().row());
    if (!chosen) {
        rate->setCurves(tr("Choose an identifier to see its rate"), {}, 0, 0);
        return;
    }
    const TraceSummary &summary = digest()->summary();
    PlotCurve curve = rateCurve(chosen->curve, summary.last, smoothing(chosen->curve));
    curve.name = DigestText::identifier(chosen->last, model->identifierBase()) + QLatin1Char(' ')
        + DigestText::kind(chosen->last);
    curve.color = lineColor(quint8(chosen->last.line), palette());
    rate->setCurves(tr("Messages per second"), {curve}, summary.first, summary.last);
}
