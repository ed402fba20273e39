#pragma once

#include <QColor>
#include <QPalette>

/// The colour that stands for a bus line, in curves and beside its number. Told from those of the
/// next lines, and seen on the palette's base.
inline QColor lineColor(quint8 line, const QPalette &palette)
{
    static constexpr int hues[] = {212, 28, 130, 285, 178, 345, 55, 250};
    constexpr int count = int(sizeof(hues) / sizeof(hues[0]));
    const bool isDark = palette.color(QPalette::Base).lightness() < 128;
    return QColor::fromHsl(hues[line % count], isDark ? 130 : 150, isDark ? 140 : 118);
}

/// The colour of what is wrong on a bus, likewise.
inline QColor errorColor(const QPalette &palette)
{
    const bool isDark = palette.color(QPalette::Base).lightness() < 128;
    return QColor::fromHsl(0, 220, isDark ? 145 : 110);
}
