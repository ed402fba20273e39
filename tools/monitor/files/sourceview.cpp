#include "sourceview.h"

#include <QClipboard>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>
#include <limits>

namespace {

// More than a screen has, so that a little scrolling shows what is there already.
constexpr int linesPerPage = 400;
constexpr quint64 mostScrollSteps = std::numeric_limits<int>::max();

} // namespace

SourceView::SourceView(const QString &fileName, QWidget *parent)
    : QAbstractScrollArea(parent), reader(fileName, linesPerPage)
{
    setObjectName(QStringLiteral("source"));
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("Source text"));
    connect(&reader, &SourceReader::progress, this, &SourceView::tellProgress);
    connect(&reader, &SourceReader::complete, this, [this](quint64 lines) {
        isComplete = true;
        takeCount(lines);
        emit told(tr("%L1 lines", nullptr, int(lines)).arg(lines));
    });
    connect(&reader, &SourceReader::page, this, &SourceView::takePage);
    connect(&reader, &SourceReader::failed, this, [this](const QString &text) {
        emit told(tr("The file cannot be read: %1. It may have been moved or removed.").arg(text));
    });
    readPage();
}

void SourceView::showLine(quint64 number)
{
    sought = std::max<quint64>(1, number);
    if (sought <= count || isComplete)
        takeCount(count);
    else
        emit told(tr("Line %L1 is being looked for.").arg(sought));
}

QString SourceView::currentText() const
{
    const quint64 index = current - pageFirst;
    return current >= pageFirst && index < quint64(page.size()) ? page.at(int(index)) : QString();
}

void SourceView::copy() const
{
    QGuiApplication::clipboard()->setText(currentText());
}

void SourceView::tellProgress(quint64 lines, qint64 done, qint64 total)
{
    takeCount(lines);
    const qint64 percent = total > 0 ? done * 100 / total : 0;
    if (sought != 0)
        emit told(tr("Line %L1 is being looked for: %2 %").arg(sought).arg(percent));
    else
        emit told(tr("%L1 lines so far, %2 %").arg(lines).arg(percent));
}

void SourceView::takeCount(quint64 lines)
{
    count = lines;
    updateBars();
    if (sought == 0 || (sought > count && !isComplete))
        return;
    const quint64 number = std::min(sought, count);
    sought = 0;
    setCurrent(number);
}

void SourceView::takePage(quint64 first, const QStringList &lines)
{
    pageFirst = first;
    page = lines;
    updateBars();
    viewport()->update();
}

void SourceView::setCurrent(quint64 number)
{
    current = number;
    makeVisible(number);
    viewport()->update();
    emit currentLineChanged(number);
}

void SourceView::makeVisible(quint64 number)
{
    const quint64 top = topLine();
    const auto inView = quint64(linesInView());
    if (number >= top && number < top + inView)
        return;
    const quint64 before = std::min(number - 1, inView / 3);
    verticalScrollBar()->setValue(int(std::min(number - 1 - before, mostScrollSteps)));
}

void SourceView::updateBars()
{
    const auto inView = quint64(linesInView());
    verticalScrollBar()->setPageStep(int(inView));
    verticalScrollBar()->setRange(0,
                                  int(std::min(count - std::min(count, inView), mostScrollSteps)));
    int widest = 0;
    for (const QString &line : page)
        widest = std::max(widest, int(line.size()));
    const int width = numberWidth() + (widest + 2) * fontMetrics().averageCharWidth();
    horizontalScrollBar()->setPageStep(viewport()->width());
    horizontalScrollBar()->setSingleStep(fontMetrics().averageCharWidth() * 4);
    horizontalScrollBar()->setRange(0, std::max(0, width - viewport()->width()));
}

void SourceView::readPage()
{
    const quint64 top = topLine();
    const auto inView = quint64(linesInView());
    const quint64 behind = pageFirst + quint64(page.size());
    const bool isThere =
        !page.isEmpty() && top >= pageFirst && std::min(top + inView, count) < behind;
    if (isThere)
        return;
    const quint64 around = (linesPerPage - std::min<quint64>(inView, linesPerPage)) / 2;
    reader.want(top > around ? top - around : 1);
}

void SourceView::scrollContentsBy(int dx, int dy)
{
    Q_UNUSED(dx)
    Q_UNUSED(dy)
    readPage();
    viewport()->update();
}

void SourceView::resizeEvent(QResizeEvent *event)
{
    QAbstractScrollArea::resizeEvent(event);
    updateBars();
    readPage();
}

void SourceView::moveBy(qint64 lines)
{
    const qint64 number = qint64(current) + lines;
    sought = 0;
    setCurrent(quint64(std::clamp<qint64>(number, 1, qint64(count))));
}

void SourceView::keyPressEvent(QKeyEvent *event)
{
    if (event->matches(QKeySequence::Copy))
        copy();
    else if (event->matches(QKeySequence::MoveToNextLine))
        moveBy(1);
    else if (event->matches(QKeySequence::MoveToPreviousLine))
        moveBy(-1);
    else if (event->matches(QKeySequence::MoveToNextPage))
        moveBy(linesInView());
    else if (event->matches(QKeySequence::MoveToPreviousPage))
        moveBy(-linesInView());
    else if (event->matches(QKeySequence::MoveToStartOfDocument) || event->key() == Qt::Key_Home)
        moveBy(1 - qint64(current));
    else if (event->matches(QKeySequence::MoveToEndOfDocument) || event->key() == Qt::Key_End)
        moveBy(qint64(count - current));
    else
        QAbstractScrollArea::keyPressEvent(event);
}

void SourceView::mousePressEvent(QMouseEvent *event)
{
    const quint64 line = topLine() + quint64(std::max(0, event->pos().y()) / lineHeight());
    moveBy(qint64(std::min(line, count)) - qint64(current));
}

void SourceView::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event)
    QPainter painter(viewport());
    const int height = lineHeight();
    const int numbers = numberWidth();
    const int left = numbers + fontMetrics().averageCharWidth() - horizontalScrollBar()->value();
    const quint64 top = topLine();
    for (int i = 0; i <= linesInView() && top + quint64(i) <= count; ++i) {
        const quint64 line = top + quint64(i);
        const QRect row(0, i * height, viewport()->width(), height);
        const bool isMarked = line == current;
        if (isMarked)
            painter.fillRect(row, palette().highlight());
        const QPalette::ColorRole role = isMarked ? QPalette::HighlightedText : QPalette::Text;
        painter.setPen(palette().color(role));
        if (line >= pageFirst && line - pageFirst < quint64(page.size()))
            painter.drawText(row.adjusted(left, 0, 0, 0),
                             Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextExpandTabs,
                             page.at(int(line - pageFirst)));
        const QRect gutter(0, row.y(), numbers, height);
        painter.fillRect(gutter, palette().alternateBase());
        painter.setPen(palette().color(QPalette::Disabled, QPalette::Text));
        painter.drawText(gutter.adjusted(0, 0, -fontMetrics().averageCharWidth(), 0),
                         Qt::AlignRight | Qt::AlignVCenter, QString::number(line));
    }
}

quint64 SourceView::topLine() const
{
    return quint64(verticalScrollBar()->value()) + 1;
}

int SourceView::lineHeight() const
{
    return fontMetrics().lineSpacing() + 1;
}

int SourceView::linesInView() const
{
    return std::max(1, viewport()->height() / lineHeight());
}

int SourceView::numberWidth() const
{
    const int digits = std::max(4, int(QString::number(count).size()));
    return (digits + 2) * fontMetrics().averageCharWidth();
}
