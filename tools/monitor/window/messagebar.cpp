#include "messagebar.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <vector>

namespace {

constexpr std::size_t mostNotices = 4;
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

// Texts that end with words of the system have no point.
QString sentences(const Notice &notice)
{
    if (notice.advice.isEmpty())
        return notice.text;
    const bool isClosed = notice.text.endsWith(QLatin1Char('.'))
        || notice.text.endsWith(QLatin1Char('!')) || notice.text.endsWith(QLatin1Char('?'));
    return notice.text + QLatin1String(isClosed ? " " : ". ") + notice.advice;
}

/// One notice, with what closes it.
class NoticeLine : public QFrame
{
public:
    NoticeLine(const Notice &notice, QWidget *parent)
        : QFrame(parent), kind(notice.kind), text(notice.text)
    {
        setFrameShape(QFrame::StyledPanel);
        auto *icon = new QLabel(this);
        const int size = style()->pixelMetric(QStyle::PM_SmallIconSize);
        icon->setPixmap(style()->standardIcon(iconOf(notice.kind)).pixmap(size));
        auto *label = new QLabel(this);
        label->setObjectName(QStringLiteral("notice"));
        // What a file says must not become markup.
        label->setTextFormat(Qt::PlainText);
        label->setText(sentences(notice));
        label->setWordWrap(true);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
        auto *close = new QToolButton(this);
        close->setAutoRaise(true);
        close->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
        close->setAccessibleName(MessageBar::tr("Close"));
        connect(close, &QToolButton::clicked, this, &NoticeLine::leave);
        auto *row = new QHBoxLayout(this);
        row->setContentsMargins(6, 2, 2, 2);
        row->addWidget(icon);
        row->addWidget(label, 1);
        if (!notice.actionText.isEmpty())
            row->addWidget(actionButton(notice.actionText));
        row->addWidget(close);
        connect(&timer, &QTimer::timeout, this, &NoticeLine::leave);
        tellAgain(notice);
    }

    // What an earlier notice of the same text would act on may be gone.
    void tellAgain(const Notice &notice)
    {
        action = notice.action;
        if (kind == Notice::Information)
            timer.start(informationTime);
    }

    // It may be one of its own buttons that is pressed, and what that does may tell the same again.
    void leave()
    {
        parentWidget()->layout()->removeWidget(this);
        hide();
        deleteLater();
    }

    const Notice::Kind kind;
    const QString text;

private:
    QWidget *actionButton(const QString &name)
    {
        auto *button = new QToolButton(this);
        button->setText(name);
        connect(button, &QToolButton::clicked, this, [this] {
            leave();
            action();
        });
        return button;
    }

    std::function<void()> action;
    QTimer timer;
};

} // namespace

MessageBar::MessageBar(QWidget *parent) : QWidget(parent), layout(new QVBoxLayout(this))
{
    layout->setContentsMargins({});
    layout->setSpacing(1);
}

void MessageBar::add(const Notice &notice)
{
    std::vector<NoticeLine *> lines;
    lines.reserve(std::size_t(layout->count()));
    for (int i = 0; i < layout->count(); ++i)
        lines.push_back(static_cast<NoticeLine *>(layout->itemAt(i)->widget()));
    const auto same = std::find_if(lines.begin(), lines.end(), [&notice](const NoticeLine *line) {
        return line->text == notice.text;
    });
    if (same != lines.end()) {
        (*same)->tellAgain(notice);
        return;
    }
    const auto matters = [](const NoticeLine *a, const NoticeLine *b) { return a->kind < b->kind; };
    if (lines.size() >= mostNotices)
        (*std::min_element(lines.begin(), lines.end(), matters))->leave();
    layout->addWidget(new NoticeLine(notice, this));
}
