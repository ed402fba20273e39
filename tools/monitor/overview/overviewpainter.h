#pragma once

#include "overviewpicture.h"

#include <QFontMetrics>
#include <QPalette>
#include <QRect>

class QPainter;

/// Draws the picture of an overview into a rectangle that begins at 0, 0.
class OverviewPainter
{
public:
    OverviewPainter(const OverviewPicture &picture, const QSize &size, const QPalette &palette,
                    const QFontMetrics &metrics);

    void paint(QPainter &painter, bool isClock) const;

    /// Where the rates are; everything else is above and below.
    static QRect barArea(const QSize &size, const QFontMetrics &metrics);
    static int height(const QFontMetrics &metrics);

private:
    double highest() const;
    double xOf(qint64 time) const;
    void paintBars(QPainter &painter) const;
    void paintErrors(QPainter &painter) const;
    void paintMarks(QPainter &painter) const;
    void paintAxis(QPainter &painter, bool isClock) const;
    void paintLegend(QPainter &painter) const;
    void paintRate(QPainter &painter) const;
    QColor soft() const;

    const OverviewPicture &picture;
    const QSize size;
    const QPalette palette;
    const QFontMetrics metrics;
    const QRect area;
};
