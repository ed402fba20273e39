#include "filterfield.h"

#include "filterwords.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QToolTip>

namespace {

QColor errorColor(const QPalette &palette)
{
    const bool isDark = palette.color(QPalette::Base).lightness() < 128;
    return isDark ? QColor(Qt::red).lighter(140) : QColor(Qt::red).darker(120);
}

} // namespace

FilterField::FilterField(QWidget *parent)
    : QLineEdit(parent), completer(new QCompleter(this)), bubble(new QLabel(this))
{
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setMaxLength(TraceExpression::mostCharacters);
    completer->setModel(FilterWords::newModel(completer));
    completer->setCompletionRole(FilterWords::wordRole);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    completer->setWidget(this);
    completer->popup()->setFont(font());
    connect(completer, QOverload<const QModelIndex &>::of(&QCompleter::activated), this,
            &FilterField::insertWord);
    connect(this, &QLineEdit::textEdited, this, [this] { complete(false); });
    connect(this, &QLineEdit::textChanged, this, &FilterField::hideError);
    bubble->setObjectName(QStringLiteral("filterError"));
    bubble->setTextFormat(Qt::PlainText);
    bubble->setFrameShape(QFrame::Box);
    bubble->setAutoFillBackground(true);
    bubble->setMargin(3);
    bubble->hide();
}

FilterField::~FilterField()
{
    delete bubble;
}

void FilterField::setHistory(const QStringList &texts)
{
    history = texts;
    recalled = -1;
}

void FilterField::showError(const TraceExpression::Error &error)
{
    errorColumn = error.column;
    update();
    if (!hasFocus() || completer->popup()->isVisible() || !bubble)
        return;
    // It lies over whatever is below the field.
    bubble->setParent(window());
    QPalette palette = QToolTip::palette();
    palette.setColor(QPalette::Window, palette.color(QPalette::ToolTipBase));
    palette.setColor(QPalette::WindowText, palette.color(QPalette::ToolTipText));
    bubble->setPalette(palette);
    bubble->setText(error.text + QLatin1Char('\n') + tr("Ctrl+Space shows what may stand there."));
    bubble->adjustSize();
    const QPoint below = mapTo(window(), QPoint(xOf(error.column - 1), height() + 2));
    bubble->move(qMax(0, qMin(below.x(), window()->width() - bubble->width())), below.y());
    bubble->show();
    bubble->raise();
}

void FilterField::hideError()
{
    errorColumn = 0;
    hideBubble();
    update();
}

void FilterField::hideBubble()
{
    if (bubble)
        bubble->hide();
}

// The cursor tells how far the text is scrolled.
int FilterField::xOf(int character)
{
    const QFontMetrics metrics = fontMetrics();
    const QString all = text();
    const int begin =
        cursorRect().center().x() - metrics.horizontalAdvance(all.left(cursorPosition()));
    return qBound(0, begin + metrics.horizontalAdvance(all.left(character)), width());
}

void FilterField::paintEvent(QPaintEvent *event)
{
    QLineEdit::paintEvent(event);
    if (errorColumn == 0)
        return;
    const int step = qMax(2, fontMetrics().lineWidth() * 2);
    const int bottom = (height() + fontMetrics().height()) / 2;
    const int begin = xOf(errorColumn - 1);
    const int end = qMax(xOf(errorColumn), begin + fontMetrics().averageCharWidth());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(errorColor(palette()), qMax(1, step / 2)));
    QPolygon wave;
    for (int x = begin; x <= end; x += step)
        wave << QPoint(x, bottom - (wave.size() % 2) * step);
    painter.drawPolyline(wave);
}

void FilterField::focusOutEvent(QFocusEvent *event)
{
    QLineEdit::focusOutEvent(event);
    hideBubble();
}

void FilterField::hideEvent(QHideEvent *event)
{
    QLineEdit::hideEvent(event);
    hideBubble();
}

void FilterField::keyPressEvent(QKeyEvent *event)
{
    const bool isOpen = completer->popup()->isVisible();
    const bool isChosen = isOpen && completer->popup()->currentIndex().isValid();
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (isChosen) {
            event->ignore(); // the completer takes it
            return;
        }
        completer->popup()->hide();
        break;
    case Qt::Key_Escape:
        if (isOpen)
            completer->popup()->hide();
        else
            emit escaped();
        return;
    case Qt::Key_Up:
    case Qt::Key_Down:
        recall(event->key() == Qt::Key_Up ? 1 : -1);
        return;
    case Qt::Key_Space:
        if (event->modifiers() == Qt::ControlModifier) {
            complete(true);
            return;
        }
        break;
    default:
        break;
    }
    QLineEdit::keyPressEvent(event);
}

void FilterField::complete(bool isWanted)
{
    const int cursor = cursorPosition();
    const int begin = FilterWords::beginOfWord(text(), cursor);
    const QString word = text().mid(begin, cursor - begin);
    completer->setCompletionPrefix(word);
    // Who asks for words has not found the right one.
    if (isWanted && completer->completionCount() == 0)
        completer->setCompletionPrefix(QString());
    const bool isWhole = completer->completionCount() == 1
        && completer->currentCompletion().compare(word, Qt::CaseInsensitive) == 0;
    if ((word.isEmpty() && !isWanted) || completer->completionCount() == 0 || isWhole) {
        completer->popup()->hide();
        return;
    }
    const int width =
        completer->popup()->sizeHintForColumn(0) + 4 * fontMetrics().averageCharWidth();
    completer->complete(QRect(xOf(begin), 0, width, height()));
}

void FilterField::insertWord(const QModelIndex &index)
{
    const QString word = index.data(FilterWords::wordRole).toString();
    const int cursor = cursorPosition();
    const int begin = FilterWords::beginOfWord(text(), cursor);
    setSelection(begin, cursor - begin);
    QLineEdit::insert(word);
    if (word.endsWith(QLatin1Char('"')))
        cursorBackward(false);
}

void FilterField::recall(int step)
{
    const int wanted = qBound(-1, recalled + step, int(history.size()) - 1);
    if (wanted == recalled)
        return;
    if (recalled < 0)
        draft = text();
    recalled = wanted;
    setText(wanted < 0 ? draft : history.at(wanted));
}
