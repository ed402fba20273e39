#pragma once

#include "overviewpicture.h"

#include <QPixmap>
#include <QWidget>

class OverviewReader;
class ShownTrace;

/// The whole trace at a glance: rate of each line, error frames, notes and bookmarks. The wheel
/// shows a part of it more closely.
class OverviewStrip : public QWidget
{
    Q_OBJECT
public:
    explicit OverviewStrip(ShownTrace *trace, QWidget *parent = nullptr);
    ~OverviewStrip() override;

    QSize sizeHint() const override;

    /// What it shows at the moment.
    const OverviewPicture &picture() const { return shown; }
    /// Whether that is a part of the trace.
    bool isZoomed() const { return wishFirst < wishLast; }
    /// Where a time is, and the time at a place.
    double xOf(qint64 time) const;
    qint64 timeAt(double x) const;

public slots:
    /// What the table shows, in microseconds, to be marked.
    void setShownTimes(qint64 first, qint64 last);
    /// By \a factor around \a time; below 1 shows more.
    void zoom(double factor, qint64 time);
    void showAll();
    /// Notes or bookmarks have changed. Sooner or later that is noticed without being told.
    void readMarks();

signals:
    /// The user wants to be there, in microseconds.
    void timeChosen(qint64 time);

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void changeEvent(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void setPicture(const OverviewPicture &picture);
    void choose(qint64 time);
    void moveTo(qint64 first);
    void askForPicture();
    void setClock(bool on);
    void paintPart(QPainter &painter) const;
    QString toolTipAt(int x) const;
    bool isClock() const;

    OverviewReader *const reader;
    OverviewPicture shown;
    qint64 wishFirst = 0; // the part that is wanted; all where empty
    qint64 wishLast = 0;
    qint64 partFirst = 0; // what the table shows
    qint64 partLast = 0;
    bool hasPart = false;
    bool wantsClock;
    QPixmap drawn; // all but what changes with the table
};
