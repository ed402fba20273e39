#include "messagedelegate.h"

#include "messagemodel.h"

#include <QApplication>
#include <QFontDatabase>
#include <QPainter>
#include <QPolygonF>

namespace {

QColor mixed(const QColor &a, const QColor &b, qreal ofB)
{
    return QColor::fromRgbF(a.redF() * (1 - ofB) + b.redF() * ofB,
                            a.greenF() * (1 - ofB) + b.greenF() * ofB,
                            a.blueF() * (1 - ofB) + b.blueF() * ofB);
}

void drawRibbon(QPainter &painter, const QRect &cell, const QColor &color)
{
    const qreal height = cell.height() * 0.6;
    const qreal width = height * 0.6;
    const QPointF corner(cell.left() + width / 2, cell.top() + (cell.height() - height) / 2);
    const QPolygonF ribbon({corner, corner + QPointF(width, 0), corner + QPointF(width, height),
                            corner + QPointF(width / 2, height * 0.7),
                            corner + QPointF(0, height)});
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawPolygon(ribbon);
    painter.restore();
}

} // namespace

MessageDelegate::MessageDelegate(QObject *parent) : QStyledItemDelegate(parent) { }

void MessageDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    const int marks = index.data(MessageModel::MarksRole).toInt();
    const bool isNote = index.column() == TraceTableModel::NoteColumn;
    if (isNote)
        option->font = QApplication::font();
    QPalette &palette = option->palette;
    const QColor base = palette.color(QPalette::Base);
    const QColor text = palette.color(QPalette::Text);
    if (marks & MessageModel::ErrorMark) {
        option->backgroundBrush = mixed(base, Qt::red, 0.14);
        palette.setColor(QPalette::Text, mixed(text, Qt::red, 0.45));
    } else if (marks & MessageModel::GoneMark) {
        palette.setColor(QPalette::Text, mixed(text, base, 0.5));
    } else if (marks & MessageModel::SentMark && !isNote) {
        palette.setColor(QPalette::Text, mixed(text, palette.color(QPalette::Link), 0.7));
    }
    if (marks & (MessageModel::BookmarkMark | MessageModel::TimeMark))
        option->backgroundBrush = mixed(base, palette.color(QPalette::Highlight), 0.18);
}

void MessageDelegate::paint(QPainter *painter, const QStyleOptionViewItem &plain,
                            const QModelIndex &index) const
{
    QStyleOptionViewItem option = plain;
    initStyleOption(&option, index);
    const QStyle &style = *option.widget->style();
    style.drawPrimitive(QStyle::PE_PanelItemViewItem, &option, painter, option.widget);
    const bool isSelected = option.state & QStyle::State_Selected;
    const auto group = option.state & QStyle::State_Active ? QPalette::Active : QPalette::Inactive;
    const QColor color =
        option.palette.color(group, isSelected ? QPalette::HighlightedText : QPalette::Text);
    const int margin = QFontMetrics(plain.font).averageCharWidth();
    const QRect place = option.rect.adjusted(margin, 0, -margin, 0);
    const bool isBookmark = index.column() == TraceTableModel::NumberColumn
        && index.data(MessageModel::MarksRole).toInt() & MessageModel::BookmarkMark;
    if (isBookmark)
        drawRibbon(*painter, option.rect,
                   isSelected ? color : option.palette.color(QPalette::Highlight));
    painter->setPen(color);
    drawText(*painter, place, option);
}

void MessageDelegate::drawText(QPainter &painter, const QRect &place,
                               const QStyleOptionViewItem &option) const
{
    const bool isNote = option.index.column() == TraceTableModel::NoteColumn;
    if (!isNote && fixedText.font() != option.font)
        fixedText = FixedText(option.font);
    if (!isNote && fixedText.draw(painter, place, option.displayAlignment, option.text))
        return;
    painter.setFont(option.font);
    painter.drawText(
        place, int(option.displayAlignment) | Qt::TextSingleLine,
        QFontMetrics(option.font).elidedText(option.text, Qt::ElideRight, place.width()));
}

QSize MessageDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const QFontMetrics metrics(option.font);
    return {metrics.horizontalAdvance(index.data().toString()) + 4 * metrics.averageCharWidth(),
            metrics.height()};
}
