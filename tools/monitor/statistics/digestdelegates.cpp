#include "digestdelegates.h"

#include "canframe.h"
#include "curveplot.h"
#include "digesttext.h"
#include "identifiertable.h"
#include "linecolor.h"
#include "tracedigest.h"

#include <QApplication>
#include <QPainter>

namespace {

// All of an item but what it shows.
void drawItem(QPainter *painter, QStyleOptionViewItem option)
{
    option.text.clear();
    const QStyle *style = option.widget ? option.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &option, painter, option.widget);
}

QRect textRect(const QStyleOptionViewItem &option)
{
    const QStyle *style = option.widget ? option.widget->style() : QApplication::style();
    const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, option.widget) + 1;
    return option.rect.adjusted(margin, 0, -margin, 0);
}

QColor textColor(const QStyleOptionViewItem &option)
{
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    const bool isActive = option.state.testFlag(QStyle::State_Active);
    return option.palette.color(isActive ? QPalette::Active : QPalette::Inactive,
                                isSelected ? QPalette::HighlightedText : QPalette::Text);
}

QColor changeColor(const QPalette &palette)
{
    const bool isDark = palette.color(QPalette::Base).lightness() < 128;
    return QColor::fromHsl(35, 220, isDark ? 85 : 165);
}

} // namespace

PayloadDelegate::PayloadDelegate(const IdentifierTable *table, QObject *parent)
    : QStyledItemDelegate(parent), table(table)
{
}

// From 1 for a byte that has changed right now to 0. In a trace that is finished, the last message
// of an identifier is its present.
double PayloadDelegate::freshness(qint64 changed, int row) const
{
    constexpr double fadesIn = 2e6; // microseconds
    if (changed == IdentifierDigest::never)
        return 0;
    const TraceDigest &digest = *table->digest();
    const qint64 now = digest.isGrowing() ? digest.now() : CAN::timeOf(table->at(row)->last);
    return std::clamp(1 - double(now - changed) / fadesIn, 0.0, 1.0);
}

void PayloadDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                            const QModelIndex &index) const
{
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    drawItem(painter, item);
    const IdentifierDigest *identifier = table->at(index.row());
    if (!identifier || identifier->last.remote)
        return;
    const QRect area = textRect(item);
    const int digits = table->dataBase() == 16 ? 2 : 3;
    const int character = item.fontMetrics.horizontalAdvance(QLatin1Char('0'));
    QRect cell(area.left(), area.top(), character * digits, area.height());
    const bool isSelected = item.state.testFlag(QStyle::State_Selected);
    QColor mark = isSelected ? textColor(item) : changeColor(item.palette);
    painter->save();
    painter->setClipRect(area);
    painter->setFont(item.font);
    painter->setPen(textColor(item));
    const int length =
        std::min(CAN::payloadSize(identifier->last), int(identifier->changes.size()));
    for (int i = 0; i < length && cell.left() < area.right(); ++i) {
        const double fresh = freshness(identifier->changes.at(i), index.row());
        mark.setAlphaF(isSelected ? fresh / 3 : fresh);
        if (fresh > 0)
            painter->fillRect(cell.adjusted(-character / 3, 1, character / 3, -1), mark);
        painter->drawText(cell, Qt::AlignVCenter | Qt::AlignRight,
                          DigestText::byte(identifier->last.data[i], table->dataBase()));
        cell.translate(character * (digits + 1), 0);
    }
    painter->restore();
}

CurveDelegate::CurveDelegate(const IdentifierTable *table, QObject *parent)
    : QStyledItemDelegate(parent), table(table)
{
}

void CurveDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const
{
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    drawItem(painter, item);
    const IdentifierDigest *identifier = table->at(index.row());
    if (!identifier)
        return;
    const TraceSummary &summary = table->digest()->summary();
    PlotCurve curve = rateCurve(identifier->curve, summary.last, smoothing(identifier->curve));
    const bool isSelected = item.state.testFlag(QStyle::State_Selected);
    curve.color =
        isSelected ? textColor(item) : lineColor(quint8(identifier->last.line), item.palette);
    painter->save();
    drawCurve(*painter, textRect(item).adjusted(0, 2, 0, -2), curve,
              {summary.first, summary.last, highest(curve)});
    painter->restore();
}
