#include "jumpline.h"

#include <QApplication>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QStyle>

JumpLine::JumpLine(QWidget *table)
    : QFrame(table), table(table), title(new QLabel(this)), field(new QLineEdit(this)),
      below(new QLabel(this))
{
    setObjectName(QStringLiteral("jump"));
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    // That of the table is for columns, and too wide for a sentence.
    setFont(QApplication::font());
    field->setObjectName(QStringLiteral("jumpField"));
    below->setObjectName(QStringLiteral("jumpError"));
    title->setBuddy(field);
    auto *grid = new QGridLayout(this);
    grid->addWidget(title, 0, 0);
    grid->addWidget(field, 0, 1);
    grid->addWidget(below, 1, 0, 1, 2);
    table->installEventFilter(this);
    field->installEventFilter(this);
    connect(field, &QLineEdit::returnPressed, this, &JumpLine::enter);
    connect(field, &QLineEdit::textEdited, this, [this] { tell(hint, false); });
    hide();
}

void JumpLine::ask(const QString &asked, const QString &allowed, const Go &where)
{
    go = where;
    hint = allowed;
    title->setText(asked);
    field->setAccessibleName(asked);
    field->clear();
    tell(hint, false);
    show();
    raise();
    field->setFocus(Qt::ShortcutFocusReason);
}

void JumpLine::enter()
{
    const QString error = go(field->text());
    if (error.isEmpty())
        close();
    else
        tell(error, true);
}

void JumpLine::close()
{
    hide();
    table->setFocus(Qt::OtherFocusReason);
}

void JumpLine::tell(const QString &text, bool isError)
{
    QFont font = this->font();
    font.setBold(isError);
    below->setFont(font);
    below->setText(text);
    place();
}

void JumpLine::place()
{
    adjustSize();
    resize(qMin(width(), table->width()), height());
    move((table->width() - width()) / 2, 0);
}

void JumpLine::keyPressEvent(QKeyEvent *event)
{
    // Enter belongs to the line and does not reach the table below.
    if (event->key() == Qt::Key_Escape)
        close();
    event->accept();
}

bool JumpLine::eventFilter(QObject *object, QEvent *event)
{
    if (object == table && event->type() == QEvent::Resize)
        place();
    if (object == field && event->type() == QEvent::FocusOut)
        hide();
    return QFrame::eventFilter(object, event);
}
