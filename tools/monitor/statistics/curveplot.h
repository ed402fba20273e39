#pragma once

#include "timecurve.h"

#include <QColor>
#include <QPointF>
#include <QString>
#include <QWidget>

#include <functional>

class QPainter;

/// A curve to be drawn: what is where over time, in microseconds.
struct PlotCurve
{
    QString name;
    QColor color;
    QVector<QPointF> points;
};

/// What a plot shows.
struct PlotRange
{
    qint64 first = 0;
    qint64 last = 0;
    double highest = 0; ///< from 0
};

/// How many intervals of a curve are to be drawn as one, so that some messages fall into each.
int smoothing(const TimeCurve &messages);
/// What comes each second. Ends at \a last, where the last interval of the curve may not be over.
PlotCurve rateCurve(const TimeCurve &curve, qint64 last, int group);
double highest(const PlotCurve &curve);
void drawCurve(QPainter &painter, const QRectF &area, const PlotCurve &curve,
               const PlotRange &range);

/// Curves over the same time, with what the highest value is and where the time ends.
class CurvePlot : public QWidget
{
    Q_OBJECT
public:
    using Text = std::function<QString(double value)>;

    /// \a text writes a value.
    explicit CurvePlot(Text text, QWidget *parent = nullptr);

    /// \a title stands above, with the names of the curves.
    void setCurves(const QString &title, const QVector<PlotCurve> &curves, qint64 first,
                   qint64 last);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QRect plotArea() const;
    void drawFrame(QPainter &painter) const;
    void drawLegend(QPainter &painter) const;

    const Text text;
    QString title;
    QVector<PlotCurve> curves;
    PlotRange range;
};
