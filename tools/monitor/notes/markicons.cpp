#include "markicons.h"

#include <QPainter>
#include <QPalette>
#include <QPixmap>

namespace {

// On a square of 16 units.
using Draw = void (*)(QPainter &painter, const QColor &color);

QPixmap drawn(Draw draw, const QColor &color, int size)
{
    constexpr qreal units = 16;
    QPixmap picture(size, size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(size / units, size / units);
    draw(painter, color);
    return picture;
}

QIcon iconOf(Draw draw, const QPalette &palette, QPalette::ColorRole role)
{
    QIcon icon;
    for (const int size : {16, 24, 32, 48}) {
        icon.addPixmap(drawn(draw, palette.color(QPalette::Active, role), size));
        icon.addPixmap(drawn(draw, palette.color(QPalette::Disabled, QPalette::Text), size),
                       QIcon::Disabled);
        icon.addPixmap(drawn(draw, palette.color(QPalette::HighlightedText), size),
                       QIcon::Selected);
    }
    return icon;
}

void drawNote(QPainter &painter, const QColor &color)
{
    painter.setPen(QPen(color, 1));
    painter.drawRoundedRect(QRectF(2.5, 2.5, 11, 11), 1.5, 1.5);
    painter.drawLine(QPointF(5, 5.5), QPointF(11, 5.5));
    painter.drawLine(QPointF(5, 8), QPointF(11, 8));
    painter.drawLine(QPointF(5, 10.5), QPointF(9, 10.5));
}

void drawBookmark(QPainter &painter, const QColor &color)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawPolygon(QPolygonF({{4, 2}, {12, 2}, {12, 14}, {8, 10.5}, {4, 14}}));
}

} // namespace

QIcon MarkIcons::note(const QPalette &palette)
{
    return iconOf(drawNote, palette, QPalette::Text);
}

QIcon MarkIcons::bookmark(const QPalette &palette)
{
    return iconOf(drawBookmark, palette, QPalette::Highlight);
}
