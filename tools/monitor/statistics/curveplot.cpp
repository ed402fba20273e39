#include "curveplot.h"

#include "digesttext.h"

#include <QPainter>

#include <cmath>

namespace {

// The next 1, 2 or 5 of a power of ten.
double roundedUp(double value)
{
    if (value <= 0)
        return 1;
    const double power = std::pow(10, std::floor(std::log10(value)));
    for (const double step : {1, 2, 5}) {
        if (value <= step * power)
            return step * power;
    }
    return 10 * power;
}

} // namespace

int smoothing(const TimeCurve &messages)
{
    constexpr quint64 wanted = 4;
    quint64 sum = 0;
    for (int i = 0; i < messages.size(); ++i)
        sum += messages.at(i);
    int group = 1;
    while (group < messages.size() && sum * quint64(group) < wanted * quint64(messages.size()))
        group *= 2;
    return group;
}

PlotCurve rateCurve(const TimeCurve &curve, qint64 last, int group)
{
    PlotCurve plot;
    const qint64 whole = group * curve.width();
    for (int i = 0; i < curve.size(); i += group) {
        const qint64 begin = curve.start() + i * curve.width();
        const qint64 width = std::min(whole, last - begin);
        // What has hardly begun would make a rate of one message.
        const bool hasBegun = width >= whole / 2;
        if (!hasBegun && i > 0)
            break;
        quint64 amount = 0;
        for (int k = i; k < std::min(i + group, int(curve.size())); ++k)
            amount += curve.at(k);
        const double rate = double(amount) * 1e6 / double(hasBegun ? width : whole);
        plot.points.append({double(begin), rate});
        plot.points.append({double(begin + width), rate});
    }
    // Where there is much more of the trace, nothing came.
    const qint64 end = plot.points.isEmpty() ? last : qint64(plot.points.constLast().x());
    if (last - end > whole)
        plot.points << QPointF(double(end), 0) << QPointF(double(last), 0);
    return plot;
}

double highest(const PlotCurve &curve)
{
    double most = 0;
    for (const QPointF &point : curve.points)
        most = std::max(most, point.y());
    return most;
}

void drawCurve(QPainter &painter, const QRectF &area, const PlotCurve &curve,
               const PlotRange &range)
{
    if (curve.points.isEmpty() || range.last <= range.first || range.highest <= 0)
        return;
    const double perTime = area.width() / double(range.last - range.first);
    QPolygonF polygon;
    for (const QPointF &point : curve.points)
        polygon << QPointF(area.left() + (point.x() - double(range.first)) * perTime,
                           area.bottom() - point.y() / range.highest * area.height());
    QColor inside = curve.color;
    inside.setAlpha(50);
    QPolygonF outline = polygon;
    outline << QPointF(polygon.last().x(), area.bottom())
            << QPointF(polygon.first().x(), area.bottom());
    // Smooth edges of a whole area would cost most of the time.
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(Qt::NoPen);
    painter.setBrush(inside);
    painter.drawPolygon(outline);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(curve.color);
    painter.drawPolyline(polygon);
}

CurvePlot::CurvePlot(Text text, QWidget *parent) : QWidget(parent), text(std::move(text)) { }

void CurvePlot::setCurves(const QString &newTitle, const QVector<PlotCurve> &newCurves,
                          qint64 first, qint64 last)
{
    title = newTitle;
    curves = newCurves;
    range = {first, last, 0};
    for (const PlotCurve &curve : newCurves)
        range.highest = std::max(range.highest, highest(curve));
    range.highest = roundedUp(range.highest);
    update();
}

QSize CurvePlot::sizeHint() const
{
    return {fontMetrics().averageCharWidth() * 56, fontMetrics().height() * 9};
}

QSize CurvePlot::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 20, fontMetrics().height() * 4};
}

QRect CurvePlot::plotArea() const
{
    const int height = fontMetrics().height();
    return rect().adjusted(1, height + 3, -2, -height - 3);
}

void CurvePlot::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(plotArea(), palette().base());
    drawLegend(painter);
    for (const PlotCurve &curve : curves)
        drawCurve(painter, plotArea(), curve, range);
    painter.setRenderHint(QPainter::Antialiasing, false);
    drawFrame(painter);
}

void CurvePlot::drawFrame(QPainter &painter) const
{
    const QRect area = plotArea();
    const QRect below(area.left(), area.bottom() + 2, area.width(), fontMetrics().height());
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(area);
    if (curves.isEmpty() || range.last <= range.first)
        return;
    QColor soft = palette().color(QPalette::Text);
    soft.setAlpha(150);
    painter.setPen(soft);
    painter.drawText(area.adjusted(4, 1, -4, 0), Qt::AlignTop | Qt::AlignLeft, text(range.highest));
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(below, Qt::AlignLeft, DigestText::time(0));
    painter.drawText(below, Qt::AlignRight, DigestText::time(range.last - range.first));
}

// The title, and behind it the names that fit.
void CurvePlot::drawLegend(QPainter &painter) const
{
    const QFontMetrics metrics = fontMetrics();
    const int gap = metrics.averageCharWidth();
    QRect row(1, 0, width() - 2, metrics.height());
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(row, Qt::AlignLeft | Qt::AlignVCenter, title);
    row.setLeft(row.left() + metrics.horizontalAdvance(title) + 2 * gap);
    for (const PlotCurve &curve : curves) {
        const int side = metrics.ascent() * 2 / 3;
        const int needed = side + gap + metrics.horizontalAdvance(curve.name);
        if (curve.name.isEmpty() || needed > row.width())
            return;
        painter.fillRect(row.left(), row.center().y() - side / 2, side, side, curve.color);
        painter.drawText(row.adjusted(side + gap / 2 + 1, 0, 0, 0),
                         Qt::AlignLeft | Qt::AlignVCenter, curve.name);
        row.setLeft(row.left() + needed + gap);
    }
}
