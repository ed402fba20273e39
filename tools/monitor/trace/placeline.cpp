#include "placeline.h"

#include "messagemodel.h"
#include "pluralform.h"
#include "tracetable.h"

#include <QAction>
#include <QHBoxLayout>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLocale>
#include <QToolButton>

namespace {

int selectedRows(const TraceTable &table)
{
    int count = 0;
    for (const QItemSelectionRange &range : table.selectionModel()->selection())
        count += range.height();
    return count;
}

} // namespace

PlaceLine::PlaceLine(MessageModel *model, TraceTable *table, QAction *follow, QWidget *parent)
    : QWidget(parent), model(model), table(table), where(new QLabel(this)), told(new QLabel(this)),
      button(new QToolButton(this))
{
    where->setObjectName(QStringLiteral("place"));
    told->setObjectName(QStringLiteral("told"));
    button->setDefaultAction(follow);
    button->setFocusPolicy(Qt::NoFocus);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(4, 0, 0, 0);
    row->addWidget(where);
    row->addSpacing(fontMetrics().averageCharWidth() * 3);
    row->addWidget(told, 1);
    row->addWidget(button);
    connect(table, &TraceTable::sightChanged, this, &PlaceLine::update);
    connect(table, &TraceTable::currentPositionChanged, this, &PlaceLine::update);
    connect(table, &TraceTable::selectionTaken, this, [this] {
        tell({});
        update();
    });
    connect(model, &TraceTableModel::totalChanged, this, &PlaceLine::update);
    connect(model, &TraceTableModel::followingChanged, this, &PlaceLine::update);
    update();
}

void PlaceLine::setLive(bool on)
{
    button->setVisible(on);
}

void PlaceLine::tell(const QString &text)
{
    told->setText(text);
}

QString PlaceLine::place() const
{
    const QLocale locale;
    const QString total = locale.toString(model->total());
    const int form = pluralForm(model->total());
    const int current = table->currentPosition() ? model->rowOf(*table->currentPosition()) : -1;
    if (model->total() == 0)
        return model->filter() ? tr("No messages found; clear the filter to see all")
                               : tr("No messages");
    if (model->isFollowing())
        return tr("%L1 messages, following the end", nullptr, form).arg(model->total());
    if (current < 0)
        return tr("%L1 messages", nullptr, form).arg(model->total());
    return tr("%1 of %2").arg(locale.toString(model->origin() + quint64(current) + 1), total);
}

void PlaceLine::update()
{
    const int selected = selectedRows(*table);
    QString text = place();
    if (selected > 1) {
        const QString count = QLocale().toString(selected);
        text += QStringLiteral(" \u2013 ")
            + (selected >= TraceTableModel::mostRows ? tr("%1 selected, no more at once").arg(count)
                                                     : tr("%1 selected").arg(count));
    }
    makeRoomFor(text);
    where->setText(text);
}

// With a label of a fixed size, another number does not have the whole window laid out and painted
// anew, which would happen twenty times a second while the end is followed.
void PlaceLine::makeRoomFor(const QString &text)
{
    const QFontMetrics metrics = where->fontMetrics();
    const int needed = metrics.horizontalAdvance(text);
    if (needed > where->minimumWidth() || metrics.height() != where->minimumHeight())
        where->setFixedSize(needed + 2 * metrics.averageCharWidth(), metrics.height());
}
