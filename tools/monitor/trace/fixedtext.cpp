#include "fixedtext.h"

#include <QFontMetricsF>
#include <QGlyphRun>
#include <QPainter>
#include <QVarLengthArray>

#include <algorithm>
#include <cmath>

namespace {

constexpr ushort firstCharacter = ' ';
constexpr ushort lastCharacter = '~';

} // namespace

FixedText::FixedText(const QFont &font)
    : ownFont(font), rawFont(QRawFont::fromFont(font)),
      width(QFontMetricsF(font).horizontalAdvance(QLatin1Char('0'))),
      height(QFontMetrics(font).height()), ascent(QFontMetrics(font).ascent())
{
    QString all;
    for (ushort character = firstCharacter; character <= lastCharacter; ++character)
        all += QChar(character);
    glyphs = rawFont.glyphIndexesForString(all);
    const QVector<QPointF> widths = rawFont.advancesForGlyphIndexes(glyphs);
    const auto isOther = [&](const QPointF &advance) { return advance != widths.first(); };
    if (glyphs.size() != all.size() || glyphs.contains(0)
        || std::any_of(widths.begin(), widths.end(), isOther))
        glyphs.clear();
}

bool FixedText::draw(QPainter &painter, const QRect &place, Qt::Alignment alignment,
                     const QString &text) const
{
    const double needed = width * text.size();
    if (glyphs.isEmpty() || needed > place.width())
        return false;
    QVarLengthArray<quint32, 256> indexes(text.size());
    QVarLengthArray<QPointF, 256> positions(text.size());
    for (int i = 0; i < text.size(); ++i) {
        const ushort character = text.at(i).unicode();
        if (character < firstCharacter || character > lastCharacter)
            return false;
        indexes[i] = glyphs.at(character - firstCharacter);
        positions[i] = {width * i, 0};
    }
    QGlyphRun run;
    run.setRawFont(rawFont);
    run.setRawData(indexes.constData(), positions.constData(), text.size());
    const double left =
        alignment & Qt::AlignRight ? place.left() + place.width() - needed : place.left();
    const double top = place.top() + (place.height() - height) / 2.0;
    painter.drawGlyphRun({left, std::floor(top) + ascent}, run);
    return true;
}
