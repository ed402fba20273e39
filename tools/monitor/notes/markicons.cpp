#include "markicons.h"

#include <QPainter>
#include <QPalette>
#include <QPixmap>

#include <functional>

namespace {

// Drawn on a square of 16 units.
QIcon drawn(const std::function<void(QPainter &)> &draw)
{
    QIcon icon;
    for (const int size : {16, 24, 32, 48}) {
        QPixmap picture(size, size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(size / 16.0, size / 16.0);
        draw(painter);
        icon.addPixmap(picture);
    }
    return icon;
}

} // namespace

QIcon MarkIcons::note(const QPalette &palette)
{
    return drawn([&palette](QPainter &painter) {
        painter.setPen(QPen(palette.color(QPalette::Text), 1));
        painter.drawRoundedRect(QRectF(2.5, 2.5, 11, 11), 1.5, 1.5);
        for (const double y : {5.5, 8.0, 10.5})
            painter.drawLine(QPointF(5, y), QPointF(y > 10 ? 9 : 11, y));
    });
}

QIcon MarkIcons::bookmark(const QPalette &palette)
{
    return drawn([&palette](QPainter &painter) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette.color(QPalette::Highlight));
        painter.drawPolygon(QPolygonF({{4, 2}, {12, 2}, {12, 14}, {8, 10.5}, {4, 14}}));
    });
}
