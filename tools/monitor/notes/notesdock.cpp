#include "notesdock.h"

#include "markicons.h"
#include "markreader.h"
#include "marksmodel.h"
#include "marksview.h"
#include "showntrace.h"

#include <QAction>
#include <QEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QSortFilterProxyModel>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <functional>

namespace {

constexpr int millisecondsBetweenLooks = 500;

QToolButton *buttonFor(QAction *action)
{
    auto *button = new QToolButton;
    button->setDefaultAction(action);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

} // namespace

NotesDock::NotesDock(QWidget *parent)
    : QDockWidget(tr("Notes and bookmarks"), parent), model(new MarksModel(this)),
      sorted(new QSortFilterProxyModel(this)), search(new QLineEdit), view(new MarksView),
      hint(new QLabel), timer(new QTimer(this)), reader(new MarkReader(this))
{
    setObjectName(QStringLiteral("notes"));
    sorted->setSourceModel(model);
    sorted->setSortRole(MarksModel::SortRole);
    sorted->setSortCaseSensitivity(Qt::CaseInsensitive);
    sorted->setFilterCaseSensitivity(Qt::CaseInsensitive);
    sorted->setFilterKeyColumn(-1);
    view->setModel(sorted);
    buildActions();
    setWidget(buildContent());
    setIcons();
    connectParts();
    updateActions();
    tellCount();
}

NotesDock::~NotesDock() = default;

QAction *NotesDock::newAction(const QString &objectName, const QString &text,
                              void (NotesDock::*act)())
{
    auto *action = new QAction(text, this);
    action->setObjectName(objectName);
    connect(action, &QAction::triggered, this, act);
    return action;
}

void NotesDock::buildActions()
{
    noteAction = newAction(QStringLiteral("addNote"), tr("Note"), &NotesDock::addNote);
    noteAction->setShortcut(QKeySequence(QStringLiteral("Ctrl+Shift+M")));
    noteAction->setToolTip(tr("Write a note on the current message"));
    bookmarkAction =
        newAction(QStringLiteral("addBookmark"), tr("Bookmark"), &NotesDock::addBookmark);
    bookmarkAction->setShortcut(QKeySequence(QStringLiteral("Ctrl+M")));
    bookmarkAction->setToolTip(tr("Set a bookmark on the current message"));
    editAction = newAction(QStringLiteral("editMark"), tr("Edit"), &NotesDock::editCurrent);
    editAction->setShortcut(Qt::Key_F2);
    editAction->setShortcutContext(Qt::WidgetShortcut);
    removeAction =
        newAction(QStringLiteral("removeMark"), tr("Remove"), &NotesDock::removeSelected);
    removeAction->setShortcut(QKeySequence::Delete);
    // The same key edits the text in an editor.
    removeAction->setShortcutContext(Qt::WidgetShortcut);
    view->addActions({editAction, removeAction});
    view->setContextMenuPolicy(Qt::ActionsContextMenu);
}

QWidget *NotesDock::buildContent()
{
    search->setObjectName(QStringLiteral("searchMarks"));
    search->setPlaceholderText(tr("Search in notes and bookmarks"));
    search->setAccessibleName(search->placeholderText());
    search->setClearButtonEnabled(true);
    search->installEventFilter(this);
    view->setObjectName(QStringLiteral("marks"));
    view->setAccessibleName(windowTitle());
    hint->setObjectName(QStringLiteral("marksHint"));
    hint->setWordWrap(true);
    hint->setForegroundRole(QPalette::WindowText);
    auto *buttons = new QHBoxLayout;
    buttons->setSpacing(0);
    for (QAction *action : {noteAction, bookmarkAction})
        buttons->addWidget(buttonFor(action));
    buttons->addStretch();
    buttons->addWidget(buttonFor(removeAction));
    auto *content = new QWidget;
    auto *layout = new QVBoxLayout(content);
    layout->setContentsMargins(2, 2, 2, 2);
    layout->setSpacing(2);
    layout->addWidget(search);
    layout->addLayout(buttons);
    layout->addWidget(view, 1);
    layout->addWidget(hint);
    return content;
}

void NotesDock::connectParts()
{
    connect(search, &QLineEdit::textChanged, sorted, &QSortFilterProxyModel::setFilterFixedString);
    connect(search, &QLineEdit::textChanged, this, &NotesDock::tellCount);
    connect(view, &MarksView::positionChosen, this, &NotesDock::positionChosen);
    connect(view, &MarksView::editingEnded, model, &MarksModel::dropUnwritten,
            Qt::QueuedConnection);
    connect(view, &MarksView::editingEnded, this, &NotesDock::lookAgain, Qt::QueuedConnection);
    connect(view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &NotesDock::updateActions);
    for (const auto changed : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
        connect(model, changed, this, &NotesDock::tellCount);
    connect(model, &QAbstractItemModel::modelReset, this, &NotesDock::tellCount);
    connect(model, &MarksModel::changeWanted, this,
            [this](quint64 position, Mark::Kind kind, const QString &text) {
                if (trace && kind == Mark::Note)
                    trace->setNote(position, text);
                else if (trace)
                    trace->setBookmark(position, text);
            });
    connect(reader, &MarkReader::marksRead, this, &NotesDock::showList);
    connect(timer, &QTimer::timeout, this, &NotesDock::look);
    connect(this, &QDockWidget::visibilityChanged, this, [this](bool isVisible) {
        isInSight = isVisible;
        updateTimer();
    });
}

QList<QAction *> NotesDock::markActions() const
{
    return {noteAction, bookmarkAction};
}

void NotesDock::setTrace(ShownTrace *newTrace)
{
    if (trace == newTrace)
        return;
    if (trace)
        trace->disconnect(this);
    trace = newTrace;
    if (trace)
        connect(trace, &ShownTrace::marksChanged, this, &NotesDock::lookAgain);
    current.reset();
    isCut = false;
    reader->forgetTrace();
    model->setMarks({});
    model->dropUnwritten();
    updateActions();
    updateTimer();
}

void NotesDock::setCurrentPosition(quint64 position)
{
    current = position;
    updateActions();
}

// A list that nobody sees is not kept up to date.
void NotesDock::updateTimer()
{
    if (!trace || !isInSight) {
        timer->stop();
    } else if (!timer->isActive()) {
        timer->start(millisecondsBetweenLooks);
        look();
    }
}

void NotesDock::look()
{
    if (!trace)
        updateTimer();
    else
        reader->read(trace->timeline());
}

// What was shown before it was written may not have come to be.
void NotesDock::lookAgain()
{
    reader->forget();
    if (timer->isActive())
        look();
}

void NotesDock::showList(const MarkList &list)
{
    // The editor would go with its row; what is written there has the list read again.
    if (view->isEdited())
        return;
    isCut = list.isCut;
    model->setMarks(list.marks);
    view->fitColumns();
    tellCount();
}

void NotesDock::updateActions()
{
    noteAction->setEnabled(trace && current);
    bookmarkAction->setEnabled(trace && current);
    const bool hasSelection = view->selectionModel()->hasSelection();
    editAction->setEnabled(hasSelection);
    removeAction->setEnabled(hasSelection);
}

void NotesDock::tellCount()
{
    const int all = model->rowCount();
    const int shown = sorted->rowCount();
    const QLocale locale;
    if (!trace)
        hint->setText(QString());
    else if (isCut)
        hint->setText(tr("Only those on the first %1 messages are listed; filter the trace for "
                         "notes to see the others.")
                          .arg(locale.toString(MarkReader::mostMessages)));
    else if (all == 0)
        hint->setText(tr("Nothing is written on this trace. Select a message and press "
                         "\"Note\" or \"Bookmark\"."));
    else if (shown < all)
        hint->setText(tr("%1 of %2").arg(locale.toString(shown), locale.toString(all)));
    else
        hint->setText(tr("Notes and bookmarks: %1").arg(locale.toString(all)));
}

void NotesDock::add(Mark::Kind kind)
{
    if (!trace || !current)
        return;
    setVisible(true);
    raise();
    // What is searched for must not hide what is written.
    search->clear();
    const QModelIndex text = sorted->mapFromSource(model->textAt(*current, kind));
    view->setCurrentIndex(text);
    view->scrollTo(text);
    view->setFocus();
    view->edit(text);
}

void NotesDock::editCurrent()
{
    const QModelIndex row = view->currentIndex();
    if (row.isValid())
        view->edit(row.sibling(row.row(), MarksModel::TextColumn));
}

void NotesDock::removeSelected()
{
    QVector<int> rows;
    const QModelIndexList selected = view->selectionModel()->selectedRows();
    for (const QModelIndex &index : selected)
        rows.append(sorted->mapToSource(index).row());
    std::sort(rows.begin(), rows.end(), std::greater<>());
    for (const int row : qAsConst(rows))
        model->remove(row);
}

void NotesDock::setIcons()
{
    model->setIcons(MarkIcons::note(palette()), MarkIcons::bookmark(palette()));
    noteAction->setIcon(MarkIcons::note(palette()));
    bookmarkAction->setIcon(MarkIcons::bookmark(palette()));
}

void NotesDock::changeEvent(QEvent *event)
{
    QDockWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        setIcons();
}

// From the search into the list, and out of it.
bool NotesDock::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == search && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        const bool isEnter = key == Qt::Key_Return || key == Qt::Key_Enter;
        if ((isEnter || key == Qt::Key_Down) && sorted->rowCount() > 0) {
            view->setFocus();
            view->setCurrentIndex(sorted->index(0, MarksModel::TextColumn));
            if (isEnter)
                emit positionChosen(*view->currentMessage());
            return true;
        }
        if (key == Qt::Key_Escape && !search->text().isEmpty()) {
            search->clear();
            return true;
        }
    }
    return QDockWidget::eventFilter(watched, event);
}
