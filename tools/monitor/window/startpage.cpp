#include "startpage.h"

#include <QAction>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

QLabel *centred(const QString &text)
{
    auto *label = new QLabel(text);
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    return label;
}

QPushButton *buttonFor(QAction *action)
{
    auto *button = new QPushButton(action->text());
    const auto follow = [button, action] { button->setEnabled(action->isEnabled()); };
    follow();
    QObject::connect(action, &QAction::changed, button, follow);
    QObject::connect(button, &QPushButton::clicked, action, &QAction::trigger);
    return button;
}

} // namespace

StartPage::StartPage(const QList<QAction *> &actions, QWidget *parent) : QWidget(parent)
{
    QLabel *title = centred(tr("No messages yet"));
    QFont font = title->font();
    font.setPointSizeF(font.pointSizeF() * 1.5);
    title->setFont(font);
    auto *column = new QVBoxLayout;
    column->addWidget(title);
    column->addWidget(
        centred(tr("Connect to a bus, or drop a trace of any CAN tool into the window.")));
    column->addSpacing(fontMetrics().height());
    for (QAction *action : actions)
        column->addWidget(buttonFor(action), 0, Qt::AlignHCenter);
    auto *layout = new QVBoxLayout(this);
    layout->addStretch(1);
    layout->addLayout(column);
    layout->addStretch(2);
}
