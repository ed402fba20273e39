#include "overviewstrip.h"

#include "overviewpainter.h"
#include "overviewreader.h"
#include "pluralform.h"
#include "showntrace.h"
#include "timeaxis.h"

#include <QAction>
#include <QHelpEvent>
#include <QLocale>
#include <QMouseEvent>
#include <QPainter>
#include <QSettings>
#include <QStyle>
#include <QStyleOption>
#include <QToolTip>

#include <cmath>

namespace {

constexpr char clockKey[] = "overview/clock";

} // namespace

OverviewStrip::OverviewStrip(ShownTrace *trace, QWidget *parent)
    : QWidget(parent), reader(new OverviewReader(trace->timeline(), this)),
      wantsClock(QSettings().value(QLatin1String(clockKey), false).toBool())
{
    setObjectName(QStringLiteral("overview"));
    setAccessibleName(tr("Overview of the trace"));
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    connect(reader, &OverviewReader::pictureReady, this, &OverviewStrip::setPicture);
    auto *all = new QAction(tr("Show &all of the trace"), this);
    all->setShortcut(QKeySequence(QStringLiteral("Ctrl+0")));
    all->setShortcutContext(Qt::WidgetShortcut);
    connect(all, &QAction::triggered, this, &OverviewStrip::showAll);
    auto *clock = new QAction(tr("&Time of day"), this);
    clock->setCheckable(true);
    clock->setChecked(wantsClock);
    connect(clock, &QAction::toggled, this, &OverviewStrip::setClock);
    addActions({all, clock});
    setContextMenuPolicy(Qt::ActionsContextMenu);
}

OverviewStrip::~OverviewStrip() = default;

QSize OverviewStrip::sizeHint() const
{
    return {fontMetrics().averageCharWidth() * 80, OverviewPainter::height(fontMetrics())};
}

double OverviewStrip::xOf(qint64 time) const
{
    if (shown.last <= shown.first)
        return 0;
    return double(time - shown.first) / double(shown.last - shown.first) * width();
}

qint64 OverviewStrip::timeAt(double x) const
{
    return shown.first
        + qint64(double(shown.last - shown.first) * std::clamp(x / std::max(1, width()), 0.0, 1.0));
}

// What is close to the beginning of the calendar has no date.
bool OverviewStrip::isClock() const
{
    constexpr qint64 year = Q_INT64_C(365) * 24 * 3600 * 1000000;
    return wantsClock && shown.traceFirst > year;
}

void OverviewStrip::setClock(bool on)
{
    wantsClock = on;
    QSettings().setValue(QLatin1String(clockKey), on);
    drawn = {};
    update();
}

void OverviewStrip::setPicture(const OverviewPicture &picture)
{
    // Another trace may be in place of the one that a part was chosen of.
    if (isZoomed() && (wishLast <= picture.traceFirst || wishFirst >= picture.traceLast)) {
        showAll();
        return;
    }
    shown = picture;
    drawn = {};
    update();
}

void OverviewStrip::setShownTimes(qint64 first, qint64 last)
{
    if (hasPart && partFirst == first && partLast == last)
        return;
    partFirst = first;
    partLast = last;
    hasPart = true;
    if (isZoomed() && (last < wishFirst || first > wishLast))
        moveTo(first + (last - first) / 2 - (wishLast - wishFirst) / 2);
    update();
}

void OverviewStrip::askForPicture()
{
    reader->setWish({wishFirst, wishLast, width()});
}

void OverviewStrip::moveTo(qint64 first)
{
    const qint64 length = wishLast - wishFirst;
    wishFirst = std::max(shown.traceFirst, std::min(first, shown.traceLast - length));
    wishLast = wishFirst + length;
    askForPicture();
}

void OverviewStrip::zoom(double factor, qint64 time)
{
    constexpr double shortest = 1000;
    const double whole = double(shown.traceLast - shown.traceFirst);
    const double before = double(shown.last - shown.first);
    if (before <= 0)
        return;
    const double length = std::max(std::min(shortest, whole), before / factor);
    if (length >= whole) {
        showAll();
        return;
    }
    const double part = std::clamp(double(time - shown.first) / before, 0.0, 1.0);
    wishFirst = time - qint64(part * length);
    wishLast = wishFirst + std::max<qint64>(1, qint64(length));
    moveTo(wishFirst);
}

void OverviewStrip::showAll()
{
    wishFirst = wishLast = 0;
    askForPicture();
}

void OverviewStrip::readMarks()
{
    reader->readMarks();
}

void OverviewStrip::choose(qint64 time)
{
    if (shown.messages > 0)
        emit timeChosen(std::clamp(time, shown.traceFirst, shown.traceLast - 1));
}

void OverviewStrip::resizeEvent(QResizeEvent *)
{
    drawn = {};
    askForPicture();
}

void OverviewStrip::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    reader->setRunning(true);
}

void OverviewStrip::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    reader->setRunning(false);
}

void OverviewStrip::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    drawn = {};
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        updateGeometry();
    update();
}

void OverviewStrip::paintEvent(QPaintEvent *)
{
    if (drawn.isNull()) {
        drawn = QPixmap(size() * devicePixelRatioF());
        drawn.setDevicePixelRatio(devicePixelRatioF());
        QPainter painter(&drawn);
        painter.setFont(font());
        OverviewPainter(shown, size(), palette(), fontMetrics()).paint(painter, isClock());
    }
    QPainter painter(this);
    painter.drawPixmap(0, 0, drawn);
    paintPart(painter);
    if (hasFocus()) {
        QStyleOptionFocusRect option;
        option.initFrom(this);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
}

void OverviewStrip::paintPart(QPainter &painter) const
{
    if (!hasPart || shown.messages == 0)
        return;
    constexpr double thinnest = 4;
    const double middle = (xOf(partFirst) + xOf(partLast)) / 2;
    const double half = std::max(thinnest, xOf(partLast) - xOf(partFirst)) / 2;
    const QRect area = OverviewPainter::barArea(size(), fontMetrics());
    const QRectF part(middle - half, 0, 2 * half, area.bottom() + 1);
    QColor color = palette().color(QPalette::Highlight);
    color.setAlpha(70);
    painter.fillRect(part, color);
    painter.setPen(palette().color(QPalette::Highlight));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(part.adjusted(0, 0, -1, 0));
}

bool OverviewStrip::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto *help = static_cast<QHelpEvent *>(event);
    QToolTip::showText(help->globalPos(), toolTipAt(help->pos().x()), this);
    return true;
}

QString OverviewStrip::toolTipAt(int x) const
{
    const double length = shown.intervalTime();
    if (shown.messages == 0 || length <= 0)
        return {};
    const qint64 time = timeAt(x);
    const int interval = shown.intervalAt(time);
    const qint64 step = qint64(std::pow(10, std::floor(std::log10(std::max(1.0, length)))));
    QStringList lines{
        TimeAxis::text(time, shown.traceFirst, std::min<qint64>(step, 1000000), isClock())};
    for (int line = 0; line < shown.rate.lines.size(); ++line) {
        const double rate = double(shown.rate.messages.at(interval).at(line)) * 1e6 / length;
        lines += tr("Line %1: %2 messages per second")
                     .arg(shown.rate.lines.at(line))
                     .arg(QLocale().toString(rate, 'f', rate < 10 ? 1 : 0));
    }
    if (const quint64 errors = shown.rate.errors.at(interval))
        lines += tr("%n error frame(s)", nullptr, pluralForm(errors));
    constexpr double near = 4;
    constexpr int most = 8;
    for (const OverviewMark &mark : shown.marks) {
        if (std::abs(xOf(mark.time) - x) <= near && lines.size() < most)
            lines += (mark.isBookmark ? tr("Bookmark: %1") : tr("Note: %1")).arg(mark.text);
    }
    if (!shown.hasAllMarks)
        lines +=
            tr("Only the first %L1 notes and bookmarks are marked.").arg(OverviewReader::mostMarks);
    // What a note says must not become markup.
    return QStringLiteral("<p style='white-space:pre'>%1</p>")
        .arg(lines.join(QLatin1Char('\n')).toHtmlEscaped());
}

void OverviewStrip::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        choose(timeAt(event->pos().x()));
}

void OverviewStrip::mouseMoveEvent(QMouseEvent *event)
{
    if (event->buttons() & Qt::LeftButton)
        choose(timeAt(event->pos().x()));
}

void OverviewStrip::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && isZoomed())
        showAll();
}

void OverviewStrip::wheelEvent(QWheelEvent *event)
{
    const QPoint angle = event->angleDelta();
    if (std::abs(angle.x()) > std::abs(angle.y())) {
        if (isZoomed())
            moveTo(wishFirst - (wishLast - wishFirst) * angle.x() / 1200);
    } else {
        zoom(std::pow(1.5, angle.y() / 120.0), timeAt(event->position().x()));
    }
    event->accept();
}

void OverviewStrip::keyPressEvent(QKeyEvent *event)
{
    const qint64 now = hasPart ? partFirst : shown.first;
    const qint64 length = shown.last - shown.first;
    switch (event->key()) {
    case Qt::Key_Left:
        return choose(now - length / 100);
    case Qt::Key_Right:
        return choose(now + length / 100);
    case Qt::Key_PageUp:
        return choose(now - length / 10);
    case Qt::Key_PageDown:
        return choose(now + length / 10);
    case Qt::Key_Home:
        return choose(shown.traceFirst);
    case Qt::Key_End:
        return choose(shown.traceLast);
    case Qt::Key_Plus:
        return zoom(1.5, now);
    case Qt::Key_Minus:
        return zoom(1 / 1.5, now);
    default:
        QWidget::keyPressEvent(event);
    }
}
