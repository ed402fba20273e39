#include "filterbar.h"

#include "filterdialog.h"
#include "filterfield.h"
#include "savedfilters.h"
#include "tracetablemodel.h"

#include <QAction>
#include <QApplication>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QSettings>
#include <QTimer>
#include <QToolButton>

#include <utility>

namespace {

// Long enough to write a word, short enough not to wait for.
constexpr int pauseTime = 500;
const auto findOnlyKey = QStringLiteral("trace/find only");

QToolButton *buttonFor(QAction *action, QWidget *parent)
{
    auto *button = new QToolButton(parent);
    button->setDefaultAction(action);
    button->setAutoRaise(true);
    // The menus have them for the keyboard; Tab leads from the field to the messages.
    button->setFocusPolicy(Qt::NoFocus);
    button->setAccessibleName(action->iconText());
    return button;
}

QString inMenu(QString text)
{
    constexpr int most = 60;
    if (text.size() > most)
        text = text.left(most - 1) + QChar(0x2026);
    return text.replace(QLatin1Char('&'), QLatin1String("&&"));
}

} // namespace

FilterBar::FilterBar(TraceTableModel *model, QWidget *parent)
    : QWidget(parent), model(model), field(new FilterField(this)), status(new QLabel(this)),
      saved(new QMenu(tr("Sa&ved filters"), this)), pause(new QTimer(this))
{
    pause->setSingleShot(true);
    pause->setInterval(pauseTime);
    addActions();
    layOut();
    connectParts();
    setFindOnly(QSettings().value(findOnlyKey).toBool());
}

QAction *FilterBar::addAction(const QString &text, const QString &keys)
{
    auto *action = new QAction(text, this);
    action->setShortcut(QKeySequence(keys));
    QWidget::addAction(action);
    return action;
}

void FilterBar::addActions()
{
    focusAction = addAction(tr("&Find or filter\u2026"), tr("Ctrl+F"));
    nextAction = addAction(tr("Find ne&xt"), tr("F3"));
    previousAction = addAction(tr("Find &previous"), tr("Shift+F3"));
    findOnlyAction = addAction(tr("Find &only"), tr("Ctrl+Shift+F"));
    findOnlyAction->setCheckable(true);
    findOnlyAction->setToolTip(tr("All messages stay in sight, and the expression is looked for"));
}

void FilterBar::layOut()
{
    field->setObjectName(QStringLiteral("filter"));
    field->setAccessibleName(tr("Filter"));
    field->setClearButtonEnabled(true);
    setFocusProxy(field);
    status->setObjectName(QStringLiteral("filterStatus"));
    status->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("00,000,000 found")));
    auto *more = new QToolButton(this);
    more->setText(tr("Saved"));
    more->setToolTip(tr("Saved and recent filters"));
    more->setAutoRaise(true);
    more->setFocusPolicy(Qt::NoFocus);
    more->setPopupMode(QToolButton::InstantPopup);
    more->setMenu(saved);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(4, 2, 4, 2);
    row->addWidget(field, 1);
    row->addWidget(status);
    QToolButton *previous = buttonFor(previousAction, this);
    previous->setArrowType(Qt::UpArrow);
    row->addWidget(previous);
    QToolButton *next = buttonFor(nextAction, this);
    next->setArrowType(Qt::DownArrow);
    row->addWidget(next);
    row->addWidget(buttonFor(findOnlyAction, this));
    row->addWidget(more);
}

void FilterBar::connectParts()
{
    connect(field, &QLineEdit::textChanged, pause, QOverload<>::of(&QTimer::start));
    connect(field, &QLineEdit::returnPressed, this, &FilterBar::enter);
    connect(field, &QLineEdit::editingFinished, this, &FilterBar::remember);
    connect(field, &FilterField::escaped, this, &FilterBar::escape);
    connect(pause, &QTimer::timeout, this, &FilterBar::apply);
    connect(focusAction, &QAction::triggered, this, &FilterBar::focusField);
    connect(nextAction, &QAction::triggered, this, [this] { find(Forwards); });
    connect(previousAction, &QAction::triggered, this, [this] { find(Backwards); });
    connect(findOnlyAction, &QAction::triggered, this, &FilterBar::setFindOnly);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *old, QWidget *now) {
        if (now == field && old && !isAncestorOf(old))
            before = old;
    });
    connect(saved, &QMenu::aboutToShow, this, &FilterBar::fillMenu);
    connect(model, &TraceTableModel::found, this, [this] { setSearch(Found); });
    connect(model, &TraceTableModel::notFound, this, [this] { setSearch(AtEnd); });
    connect(model, &TraceTableModel::totalChanged, this, &FilterBar::updateStatus);
    connect(model, &TraceTableModel::filterProgress, this, [this](quint64 now, quint64 all) {
        done = now;
        of = all;
        updateStatus();
    });
}

// The field loses the focus while it goes, which is told when this is no bar any more.
FilterBar::~FilterBar()
{
    qApp->disconnect(this);
    field->disconnect(this);
}

QList<QAction *> FilterBar::actions() const
{
    return {focusAction, nextAction, previousAction, findOnlyAction, saved->menuAction()};
}

void FilterBar::setText(const QString &text)
{
    field->setText(text);
    // Whoever asks for messages wants no others.
    if (findOnlyAction->isChecked())
        setFindOnly(false);
    apply();
    remember();
}

void FilterBar::apply()
{
    pause->stop();
    TraceExpression::Error error;
    const auto read = TraceExpression::parse(field->text(), &error);
    if (!read) {
        field->showError(error);
        return;
    }
    field->hideError();
    const bool isEmpty = field->text().trimmed().isEmpty();
    if (!isEmpty && (!expression || expression->text() != read->text()))
        expression = read;
    const bool isFilter = !isEmpty && !findOnlyAction->isChecked();
    show(isFilter ? read : std::nullopt);
}

void FilterBar::show(const std::optional<TraceExpression> &wanted)
{
    const bool isSame =
        wanted.has_value() == shown.has_value() && (!wanted || wanted->text() == shown->text());
    if (isSame)
        return;
    shown = wanted;
    done = 0;
    of = 0;
    model->cancelFind();
    search = NoSearch;
    emit filterChanged(shown);
    updateStatus();
}

void FilterBar::enter()
{
    apply();
    if (findOnlyAction->isChecked())
        find(Forwards);
}

void FilterBar::remember()
{
    const QString text = field->text().trimmed();
    if (!text.isEmpty() && TraceExpression::parse(text))
        SavedFilters::addRecent(text);
    field->setHistory(SavedFilters::recent());
}

void FilterBar::escape()
{
    if (search == Looking) {
        model->cancelFind();
        setSearch(NoSearch);
    } else if (!field->text().isEmpty()) {
        field->clear();
        apply();
    } else if (before) {
        before->setFocus(Qt::OtherFocusReason);
    }
}

void FilterBar::focusField()
{
    field->setHistory(SavedFilters::recent());
    field->setFocus(Qt::ShortcutFocusReason);
    field->selectAll();
}

void FilterBar::setFindOnly(bool on)
{
    findOnlyAction->setChecked(on);
    QSettings().setValue(findOnlyKey, on);
    field->setPlaceholderText(on ? tr("Find, for example: id==1a0 and b0>80")
                                 : tr("Filter, for example: id==1a0 and b0>80"));
    apply();
}

// With nothing written it goes on with what was.
void FilterBar::find(Direction direction)
{
    apply();
    const bool isWritten = !field->text().trimmed().isEmpty();
    if (!expression || (isWritten && !TraceExpression::parse(field->text()))) {
        focusField();
        return;
    }
    // Once around: behind the last one comes the first.
    const auto current = model->currentPosition();
    if (search == AtEnd && searched == direction)
        model->setCurrentPosition({});
    searched = direction;
    setSearch(Looking);
    if (direction == Forwards)
        model->findNext(*expression);
    else
        model->findPrevious(*expression);
    model->setCurrentPosition(current);
}

void FilterBar::setSearch(Search state)
{
    search = state;
    updateStatus();
}

void FilterBar::updateStatus()
{
    const QString text = statusText();
    if (status->text() != text)
        status->setText(text);
}

QString FilterBar::statusText() const
{
    if (search == Looking)
        return tr("Looking\u2026");
    if (search == AtEnd)
        return searched == Forwards ? tr("No more; F3 begins at the top")
                                    : tr("No more; Shift+F3 begins at the end");
    if (!shown)
        return {};
    const QString found = tr("%1 found").arg(QLocale().toString(model->total()));
    if (done >= of)
        return found;
    return found + QStringLiteral(" \u2013 %1 %").arg(int(100.0 * double(done) / double(of)));
}

void FilterBar::fillMenu()
{
    saved->clear();
    const auto add = [this](QMenu *menu, const QString &name, const QString &text) {
        connect(menu->addAction(name), &QAction::triggered, this, [this, text] { setText(text); });
    };
    for (const SavedFilters::Filter &filter : SavedFilters::all())
        add(saved, inMenu(filter.name), filter.expression);
    saved->addSeparator();
    QMenu *recent = saved->addMenu(tr("&Recent"));
    for (const QString &text : SavedFilters::recent())
        add(recent, inMenu(text), text);
    recent->setEnabled(!recent->isEmpty());
    saved->addSeparator();
    QAction *save = saved->addAction(tr("&Save this filter\u2026"), this, &FilterBar::askName);
    save->setEnabled(!field->text().trimmed().isEmpty()
                     && TraceExpression::parse(field->text()).has_value());
    saved->addAction(tr("&Manage\u2026"), this, &FilterBar::manage);
}

void FilterBar::askName()
{
    const QString text = field->text();
    auto *dialog = new QInputDialog(this);
    dialog->setObjectName(QStringLiteral("filterName"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(tr("Save filter"));
    dialog->setLabelText(tr("Name of the filter:"));
    dialog->setTextValue(text);
    connect(dialog, &QInputDialog::textValueSelected, this, [text](const QString &name) {
        if (!name.trimmed().isEmpty())
            SavedFilters::add({name.trimmed(), text});
    });
    dialog->open();
}

void FilterBar::manage()
{
    (new FilterDialog(this))->open();
}
