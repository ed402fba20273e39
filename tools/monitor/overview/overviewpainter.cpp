#include "overviewpainter.h"

#include "linecolor.h"
#include "timeaxis.h"

#include <QCoreApplication>
#include <QLocale>
#include <QPainter>

#include <numeric>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(OverviewStrip)
};

constexpr int errorHeight = 4; // below the rates

} // namespace

OverviewPainter::OverviewPainter(const OverviewPicture &picture, const QSize &size,
                                 const QPalette &palette, const QFontMetrics &metrics)
    : picture(picture), size(size), palette(palette), metrics(metrics), area(barArea(size, metrics))
{
}

int OverviewPainter::height(const QFontMetrics &metrics)
{
    return metrics.height() * 5;
}

// Marks stand above, error frames and the axis below.
QRect OverviewPainter::barArea(const QSize &size, const QFontMetrics &metrics)
{
    return QRect({}, size).adjusted(0, metrics.height() / 2, 0,
                                    -metrics.height() - errorHeight - 3);
}

QColor OverviewPainter::soft() const
{
    QColor color = palette.color(QPalette::Text);
    color.setAlpha(150);
    return color;
}

double OverviewPainter::xOf(qint64 time) const
{
    return area.left()
        + double(time - picture.first) / double(picture.last - picture.first) * area.width();
}

// Messages in an interval.
double OverviewPainter::highest() const
{
    quint64 most = 0;
    for (const QVector<quint64> &counts : picture.rate.messages)
        most = std::max(most, std::accumulate(counts.begin(), counts.end(), quint64(0)));
    return double(most);
}

void OverviewPainter::paint(QPainter &painter, bool isClock) const
{
    painter.fillRect(QRect({}, size), palette.base());
    if (picture.messages == 0 || picture.last <= picture.first) {
        painter.setPen(soft());
        painter.drawText(QRect({}, size), Qt::AlignCenter, Texts::tr("No messages yet"));
        return;
    }
    paintBars(painter);
    paintErrors(painter);
    paintAxis(painter, isClock);
    paintMarks(painter);
    paintLegend(painter);
    paintRate(painter);
}

void OverviewPainter::paintBars(QPainter &painter) const
{
    const double most = highest();
    const int intervals = picture.rate.messages.size();
    if (most <= 0)
        return;
    const double width = double(area.width()) / intervals;
    for (int i = 0; i < intervals; ++i) {
        const QVector<quint64> &counts = picture.rate.messages.at(i);
        double bottom = area.bottom() + 1;
        for (int line = 0; line < counts.size(); ++line) {
            const double height = double(counts.at(line)) / most * (area.height() - 2);
            const QRectF bar(area.left() + i * width, bottom - height, width, height);
            painter.fillRect(bar, lineColor(picture.rate.lines.at(line), palette));
            bottom -= height;
        }
    }
}

void OverviewPainter::paintErrors(QPainter &painter) const
{
    const int intervals = picture.rate.errors.size();
    const double width = double(area.width()) / std::max(1, intervals);
    for (int i = 0; i < intervals; ++i) {
        if (picture.rate.errors.at(i) > 0)
            painter.fillRect(QRectF(area.left() + i * width, area.bottom() + 2,
                                    std::max(2.0, width), errorHeight),
                             errorColor(palette));
    }
}

// Bookmarks are flags, notes ticks.
void OverviewPainter::paintMarks(QPainter &painter) const
{
    const double top = 1;
    const double room = area.top() - 1;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    for (const OverviewMark &mark : picture.marks) {
        if (mark.time < picture.first || mark.time > picture.last)
            continue;
        const double x = xOf(mark.time);
        if (mark.isBookmark) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(palette.highlight());
            painter.drawPolygon(QPolygonF({{x, top}, {x + room, top + room / 2}, {x, top + room}}));
            painter.fillRect(QRectF(x - 0.5, top, 1.5, area.bottom() - top), palette.highlight());
        } else {
            painter.setPen(Qt::NoPen);
            painter.setBrush(palette.text());
            painter.drawEllipse(QPointF(x, top + room / 2), room / 3.5, room / 3.5);
        }
    }
    painter.restore();
}

void OverviewPainter::paintAxis(QPainter &painter, bool isClock) const
{
    const int widthOfLabel = metrics.horizontalAdvance(QStringLiteral("00:00:00.000")) * 3 / 2;
    const int top = area.bottom() + errorHeight + 3;
    painter.setPen(palette.color(QPalette::Mid));
    painter.drawLine(area.left(), area.bottom() + 1, area.right(), area.bottom() + 1);
    const auto labels = TimeAxis::labels(picture.first, picture.last, picture.traceFirst,
                                         std::max(1, area.width() / widthOfLabel), isClock);
    for (const TimeAxis::Label &label : labels) {
        const int x = int(xOf(label.time));
        painter.setPen(palette.color(QPalette::Mid));
        painter.drawLine(x, area.bottom() + 1, x, top + 1);
        const int width = metrics.horizontalAdvance(label.text);
        const int left = std::clamp(x - width / 2, 2, std::max(2, size.width() - width - 2));
        painter.setPen(soft());
        painter.drawText(QRect(left, top, width + 1, metrics.height()), Qt::AlignLeft, label.text);
    }
}

// At the right, if there is more than one line and it fits.
void OverviewPainter::paintLegend(QPainter &painter) const
{
    const int gap = metrics.averageCharWidth();
    const int side = metrics.ascent() * 2 / 3;
    const QVector<quint8> &lines = picture.rate.lines;
    int width = gap;
    for (const quint8 line : lines)
        width += side + 2 * gap + metrics.horizontalAdvance(Texts::tr("Line %1").arg(line));
    if (lines.size() < 2 || width > area.width() / 2)
        return;
    QRect box(area.right() - width - 2, area.top() + 1, width, metrics.height() + 2);
    QColor back = palette.color(QPalette::Base);
    back.setAlpha(200);
    painter.fillRect(box, back);
    int x = box.left() + gap;
    for (const quint8 line : lines) {
        const QString name = Texts::tr("Line %1").arg(line);
        painter.fillRect(x, box.center().y() - side / 2, side, side, lineColor(line, palette));
        painter.setPen(palette.color(QPalette::Text));
        x += side + gap / 2;
        painter.drawText(QRect(x, box.top(), box.width(), box.height()), Qt::AlignVCenter, name);
        x += metrics.horizontalAdvance(name) + 3 * gap / 2;
    }
}

// What a bar of the whole height stands for.
void OverviewPainter::paintRate(QPainter &painter) const
{
    const double perSecond = highest() * 1e6 / picture.intervalTime();
    const QString text = Texts::tr("%1/s").arg(QLocale().toString(perSecond, 'f', 0));
    const QRect box(area.left() + 2, area.top() + 1, metrics.horizontalAdvance(text) + 4,
                    metrics.height());
    QColor back = palette.color(QPalette::Base);
    back.setAlpha(200);
    painter.fillRect(box, back);
    painter.setPen(soft());
    painter.drawText(box, Qt::AlignCenter, text);
}
