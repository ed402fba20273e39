#include "tabletools.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QCoreApplication>
#include <QFontDatabase>
#include <QHeaderView>
#include <QMenu>
#include <QSettings>
#include <QTableView>

#include <algorithm>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(TableTools)
};

void showColumnMenu(QTableView *table, const QPoint &where)
{
    auto *menu = new QMenu(table);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (int column = 0; column < table->model()->columnCount(); ++column) {
        const QVariant title = table->model()->headerData(column, Qt::Horizontal);
        QAction *action = menu->addAction(title.toString());
        action->setCheckable(true);
        action->setChecked(!table->isColumnHidden(column));
        QObject::connect(action, &QAction::toggled, table,
                         [table, column](bool on) { table->setColumnHidden(column, !on); });
    }
    menu->popup(table->horizontalHeader()->mapToGlobal(where));
}

QVector<int> shownColumns(const QTableView *table)
{
    QVector<int> columns;
    for (int i = 0; i < table->model()->columnCount(); ++i) {
        const int column = table->horizontalHeader()->logicalIndex(i);
        if (!table->isColumnHidden(column))
            columns.append(column);
    }
    return columns;
}

QVector<int> wantedRows(const QTableView *table)
{
    QVector<int> rows;
    const QModelIndexList selected = table->selectionModel()->selectedRows();
    for (const QModelIndex &index : selected)
        rows.append(index.row());
    for (int row = 0; selected.isEmpty() && row < table->model()->rowCount(); ++row)
        rows.append(row);
    std::sort(rows.begin(), rows.end());
    return rows;
}

} // namespace

void TableTools::prepare(QTableView *table)
{
    table->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setAlternatingRowColors(true);
    table->setShowGrid(false);
    table->setWordWrap(false);
    table->setTabKeyNavigation(false);
    table->setCornerButtonEnabled(false);
    table->verticalHeader()->hide();
    table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table->verticalHeader()->setDefaultSectionSize(QFontMetrics(table->font()).height() + 4);
    QHeaderView *header = table->horizontalHeader();
    header->setHighlightSections(false);
    header->setSectionsMovable(true);
    header->setContextMenuPolicy(Qt::CustomContextMenu);
    QObject::connect(header, &QWidget::customContextMenuRequested, table,
                     [table](const QPoint &where) { showColumnMenu(table, where); });
}

void TableTools::setColumnWidth(QTableView *table, int column, const char *sample)
{
    const QString title = table->model()->headerData(column, Qt::Horizontal).toString();
    const int needed = QFontMetrics(table->font()).horizontalAdvance(QLatin1String(sample));
    const QHeaderView *header = table->horizontalHeader();
    const int arrow = header->style()->pixelMetric(QStyle::PM_HeaderMarkSize, nullptr, header);
    const int titleNeeds = header->fontMetrics().horizontalAdvance(title) + arrow;
    const int margin = 2 * header->style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, header);
    table->setColumnWidth(column, std::max(needed, titleNeeds) + margin + 4);
}

void TableTools::copy(const QTableView *table)
{
    const QAbstractItemModel *model = table->model();
    const QVector<int> columns = shownColumns(table);
    QStringList lines;
    QStringList cells;
    for (const int column : columns)
        cells += model->headerData(column, Qt::Horizontal).toString();
    lines += cells.join(QLatin1Char('\t'));
    const QVector<int> rows = wantedRows(table);
    for (const int row : rows) {
        cells.clear();
        for (const int column : columns)
            cells += model->index(row, column).data().toString();
        lines += cells.join(QLatin1Char('\t'));
    }
    QApplication::clipboard()->setText(lines.join(QLatin1Char('\n')) + QLatin1Char('\n'));
}

QAction *TableTools::copyAction(QTableView *table)
{
    auto *action = new QAction(Texts::tr("&Copy"), table);
    action->setShortcut(QKeySequence::Copy);
    action->setShortcutContext(Qt::WidgetShortcut);
    QObject::connect(action, &QAction::triggered, table, [table] { copy(table); });
    table->addAction(action);
    return action;
}

void TableTools::keepColumns(const QTableView *table, const char *key)
{
    QSettings().setValue(QLatin1String(key), table->horizontalHeader()->saveState());
}

bool TableTools::restoreColumns(QTableView *table, const char *key)
{
    const QByteArray state = QSettings().value(QLatin1String(key)).toByteArray();
    return !state.isEmpty() && table->horizontalHeader()->restoreState(state);
}
