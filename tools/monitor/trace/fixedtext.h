#pragma once

#include <QFont>
#include <QPointF>
#include <QRawFont>
#include <QRect>
#include <QVector>

class QPainter;

/// Draws short lines of ASCII in a font whose characters all have the same width. They need not be
/// shaped for that, which takes most of the time that a text does.
class FixedText
{
public:
    explicit FixedText(const QFont &font = {});

    const QFont &font() const { return ownFont; }
    /// In the painter's pen, in the middle of the height. False, and nothing is drawn, when there
    /// are other characters or too many, or the font has different widths.
    bool draw(QPainter &painter, const QRect &place, Qt::Alignment alignment,
              const QString &text) const;

private:
    QFont ownFont;
    QRawFont rawFont;
    QVector<quint32> glyphs; // of the characters from the first to the last; none when not drawn so
    double width = 0;        // of each character
    int height = 0;
    int ascent = 0;
};
