#include "messagebar.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>
#include <QTimer>
#include <QToolButton>

namespace {

constexpr int mostNotices = 4;
constexpr int informationTime = 8000; // milliseconds

QStyle::StandardPixmap iconOf(Notice::Kind kind)
{
    switch (kind) {
    case Notice::Information:
        return QStyle::SP_MessageBoxInformation;
    case Notice::Warning:
        return QStyle::SP_MessageBoxWarning;
    default:
        return QStyle::SP_MessageBoxCritical;
    }
}

/// One notice, with what closes it.
class NoticeLine : public QFrame
{
public:
    NoticeLine(const Notice &notice, QWidget *parent) : QFrame(parent), text(notice.text)
    {
        setFrameShape(QFrame::StyledPanel);
        auto *icon = new QLabel(this);
        const int size = style()->pixelMetric(QStyle::PM_SmallIconSize);
        icon->setPixmap(style()->standardIcon(iconOf(notice.kind)).pixmap(size));
        auto *label = new QLabel(this);
        label->setObjectName(QStringLiteral("notice"));
        // What a file says must not become markup.
        label->setTextFormat(Qt::PlainText);
        label->setText(notice.advice.isEmpty() ? text : text + QLatin1Char(' ') + notice.advice);
        label->setWordWrap(true);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
        auto *close = new QToolButton(this);
        close->setAutoRaise(true);
        close->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
        close->setAccessibleName(MessageBar::tr("Close"));
        connect(close, &QToolButton::clicked, this, &QObject::deleteLater);
        auto *row = new QHBoxLayout(this);
        row->setContentsMargins(6, 2, 2, 2);
        row->addWidget(icon);
        row->addWidget(label, 1);
        if (!notice.actionText.isEmpty())
            row->addWidget(actionButton(notice));
        row->addWidget(close);
        if (notice.kind == Notice::Information)
            QTimer::singleShot(informationTime, this, &QObject::deleteLater);
    }

    const QString text;

private:
    QWidget *actionButton(const Notice &notice)
    {
        auto *button = new QToolButton(this);
        button->setText(notice.actionText);
        connect(button, &QToolButton::clicked, this, [this, action = notice.action] {
            deleteLater();
            action();
        });
        return button;
    }
};

} // namespace

MessageBar::MessageBar(QWidget *parent) : QWidget(parent), layout(new QVBoxLayout(this))
{
    layout->setContentsMargins({});
    layout->setSpacing(1);
}

void MessageBar::add(const Notice &notice)
{
    for (int i = 0; i < layout->count(); ++i) {
        if (static_cast<NoticeLine *>(layout->itemAt(i)->widget())->text == notice.text)
            return;
    }
    if (layout->count() >= mostNotices)
        delete layout->itemAt(0)->widget();
    layout->addWidget(new NoticeLine(notice, this));
}
