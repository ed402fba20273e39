#include "identifierview.h"

#include "digestdelegates.h"
#include "digesttext.h"
#include "identifiertable.h"
#include "showntrace.h"
#include "tabletools.h"
#include "tracedigest.h"

#include <QAction>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QSettings>
#include <QTableView>
#include <QVBoxLayout>

namespace {

constexpr char columnsKey[] = "identifiers/columns";

} // namespace

IdentifierView::IdentifierView(ShownTrace *trace, QWidget *parent)
    : QWidget(parent), digest(TraceDigest::of(trace)), model(new IdentifierTable(this)),
      table(new QTableView), search(new QLineEdit), progress(new QLabel)
{
    search->setObjectName(QStringLiteral("identifierSearch"));
    search->setPlaceholderText(tr("Type an identifier to see only those that contain it"));
    search->setAccessibleName(tr("Identifier"));
    search->setClearButtonEnabled(true);
    search->installEventFilter(this);
    progress->setObjectName(QStringLiteral("progress"));
    auto *above = new QHBoxLayout;
    above->addWidget(search, 1);
    above->addWidget(progress);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(2);
    layout->addLayout(above);
    layout->addWidget(table, 1);
    model->setDigest(digest);
    buildTable();
    buildMenu();
    setFocusProxy(table);
    connect(search, &QLineEdit::textChanged, model, &IdentifierTable::setFilter);
    connect(digest, &TraceDigest::updated, this, &IdentifierView::showProgress);
    connect(digest, &TraceDigest::cleared, this, &IdentifierView::showProgress);
    ages.setInterval(2 * TraceDigest::millisecondsPerUpdate);
    connect(&ages, &QTimer::timeout, this, &IdentifierView::tick);
}

IdentifierView::~IdentifierView()
{
    TableTools::keepColumns(table, columnsKey);
}

void IdentifierView::buildTable()
{
    table->setObjectName(QStringLiteral("identifiers"));
    table->setAccessibleName(tr("Identifiers"));
    table->setModel(model);
    TableTools::prepare(table);
    table->setItemDelegateForColumn(IdentifierTable::DataColumn, new PayloadDelegate(model, this));
    table->setItemDelegateForColumn(IdentifierTable::CurveColumn, new CurveDelegate(model, this));
    static const char *const samples[IdentifierTable::columns] = {
        "00000000",   "000",       "EXT FD BRS", "00",        "00 00 00 00 00 00 00 00 ",
        "0000000000", "0,000,000", "00,000",     "000.00 ms", "000.00 ms",
        "000.00 ms",  "000.00 ms", "000.0 s"};
    for (int column = 0; column < IdentifierTable::columns; ++column)
        TableTools::setColumnWidth(table, column, samples[column]);
    table->setColumnHidden(IdentifierTable::MeanPeriodColumn, true);
    table->setColumnHidden(IdentifierTable::CurveColumn, true);
    table->horizontalHeader()->setSortIndicator(IdentifierTable::IdentifierColumn,
                                                Qt::AscendingOrder);
    TableTools::restoreColumns(table, columnsKey);
    table->setSortingEnabled(true);
    table->installEventFilter(this);
    connect(table, &QTableView::doubleClicked, this, &IdentifierView::chooseCurrent);
}

void IdentifierView::buildMenu()
{
    const auto add = [this](const QString &text, auto slot) {
        auto *action = new QAction(text, table);
        connect(action, &QAction::triggered, this, slot);
        table->addAction(action);
        return action;
    };
    add(tr("&Show last message"), [this] {
        chooseCurrent();
    })->setShortcuts({QKeySequence(Qt::Key_Return), QKeySequence(Qt::Key_Enter)});
    table->actions().constLast()->setShortcutContext(Qt::WidgetShortcut);
    add(tr("&Only this identifier"), [this] { filterCurrent(true); });
    add(tr("&All but this identifier"), [this] { filterCurrent(false); });
    TableTools::copyAction(table);
    table->setContextMenuPolicy(Qt::ActionsContextMenu);
}

void IdentifierView::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (!digest)
        return;
    // As the table of messages writes them.
    const QSettings settings;
    const auto base = [&settings](const char *key) {
        return settings.value(QLatin1String(key)).toInt() == 10 ? 10 : 16;
    };
    model->setBases(base("trace/number base"), base("trace/data base"));
    digest->setWatched(this, true);
    tick();
    showProgress();
}

void IdentifierView::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    ages.stop();
    if (digest)
        digest->setWatched(this, false);
}

// Whatever is typed in the table is searched for.
bool IdentifierView::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const auto *key = static_cast<QKeyEvent *>(event);
    if (watched == search && (key->key() == Qt::Key_Down || key->key() == Qt::Key_Return)) {
        table->setFocus();
        if (!table->currentIndex().isValid())
            table->selectRow(0);
        return true;
    }
    if (key->key() == Qt::Key_Escape && !search->text().isEmpty()) {
        search->clear();
        table->setFocus();
        return true;
    }
    const bool isCommand = key->modifiers() & (Qt::ControlModifier | Qt::AltModifier);
    const QString text = key->text();
    if (watched != table || isCommand || text.isEmpty() || !text.at(0).isLetterOrNumber())
        return QWidget::eventFilter(watched, event);
    search->setFocus();
    search->setText(search->text() + text);
    return true;
}

void IdentifierView::showProgress()
{
    progress->setText(DigestText::progress(digest->summary()));
    // Where messages come, the ages are brought up with them.
    if (digest->isGrowing() && isVisible())
        ages.start();
}

void IdentifierView::tick()
{
    if (!digest || !digest->isGrowing())
        ages.stop();
    else
        ages.start();
    model->updateAges();
}

void IdentifierView::chooseCurrent()
{
    if (const IdentifierDigest *identifier = model->at(table->currentIndex().row()))
        emit positionChosen(identifier->position);
}

void IdentifierView::filterCurrent(bool isWanted)
{
    const IdentifierDigest *identifier = model->at(table->currentIndex().row());
    if (!identifier)
        return;
    const bool isOfLine = digest->summary().lines.size() > 1;
    const QString expression = DigestText::expression(identifier->last, isOfLine);
    emit filterWanted(isWanted ? expression : QStringLiteral("not (%1)").arg(expression));
}
