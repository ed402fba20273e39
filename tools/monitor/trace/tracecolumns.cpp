#include "tracecolumns.h"

#include "messagemodel.h"

#include <QAction>
#include <QHeaderView>
#include <QMenu>
#include <QScopedValueRollback>
#include <QSettings>
#include <QTableView>

namespace {

const auto key = QStringLiteral("trace/columns");

// What a column should have room for.
QString sampleOf(int column)
{
    switch (column) {
    case TraceTableModel::PositionColumn:
    case TraceTableModel::NumberColumn:
        return QStringLiteral("00000000");
    case TraceTableModel::TimeColumn:
        return QStringLiteral("0000000.000000");
    case TraceTableModel::IdentifierColumn:
        return QStringLiteral("18FF0000");
    case TraceTableModel::KindColumn:
        return QStringLiteral("EXT FD");
    case TraceTableModel::DataColumn:
        return QStringLiteral("00 11 22 33 44 55 66 77");
    case MessageModel::AsciiColumn:
        return QStringLiteral("........");
    default:
        return QStringLiteral("00");
    }
}

} // namespace

TraceColumns::TraceColumns(QTableView *table)
    : QObject(table), table(table), header(table->horizontalHeader()), ownMenu(new QMenu(table))
{
    header->setSectionsMovable(true);
    header->setHighlightSections(false);
    header->setStretchLastSection(true);
    header->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    header->setContextMenuPolicy(Qt::CustomContextMenu);
    ownMenu->setTitle(tr("&Columns"));
    buildMenu();
    load();
    connect(header, &QHeaderView::sectionMoved, this, &TraceColumns::save);
    connect(header, &QHeaderView::sectionResized, this, &TraceColumns::save);
    connect(header, &QWidget::customContextMenuRequested, this,
            [this](const QPoint &point) { ownMenu->popup(header->mapToGlobal(point)); });
}

void TraceColumns::buildMenu()
{
    for (int column = 0; column < MessageModel::allColumns; ++column) {
        const QString name = table->model()->headerData(column, Qt::Horizontal).toString();
        QAction *action = ownMenu->addAction(name);
        action->setCheckable(true);
        connect(action, &QAction::triggered, this, [this, column](bool on) {
            header->setSectionHidden(column, !on);
            save();
        });
    }
    ownMenu->addSeparator();
    connect(ownMenu->addAction(tr("&As at first")), &QAction::triggered, this, [this] {
        setDefaults();
        save();
    });
    connect(ownMenu, &QMenu::aboutToShow, this, &TraceColumns::updateMenu);
}

int TraceColumns::widthFor(const QString &text) const
{
    const int sides = 3 * header->fontMetrics().averageCharWidth();
    return table->fontMetrics().horizontalAdvance(text) + sides;
}

void TraceColumns::fit(int column)
{
    constexpr int mostCharacters = 32;
    const QAbstractItemModel &model = *table->model();
    int width = header->sectionSizeHint(column);
    for (const int row : {0, model.rowCount() / 2, model.rowCount() - 1}) {
        const QString text = model.index(row, column).data().toString();
        width = qMax(width, widthFor(text.left(mostCharacters)));
    }
    header->resizeSection(column, width);
}

void TraceColumns::setDefaults()
{
    const QScopedValueRollback<bool> guard(isLoading, true);
    for (int column = 0; column < MessageModel::allColumns; ++column) {
        const QString name = table->model()->headerData(column, Qt::Horizontal).toString();
        header->moveSection(header->visualIndex(column), column);
        header->setSectionHidden(column,
                                 column == TraceTableModel::PositionColumn
                                     || column == MessageModel::AsciiColumn);
        header->resizeSection(column, qMax(widthFor(sampleOf(column)), widthFor(name)));
    }
    // The note is last and takes what is left.
    header->moveSection(header->visualIndex(MessageModel::AsciiColumn),
                        TraceTableModel::NoteColumn);
}

void TraceColumns::load()
{
    const QScopedValueRollback<bool> guard(isLoading, true);
    const QByteArray state = QSettings().value(key).toByteArray();
    if (!state.isEmpty() && state == header->saveState())
        return;
    if (state.isEmpty() || !header->restoreState(state))
        setDefaults();
}

void TraceColumns::save()
{
    if (!isLoading)
        QSettings().setValue(key, header->saveState());
}

void TraceColumns::updateMenu()
{
    const QList<QAction *> actions = ownMenu->actions();
    const int shown = header->count() - header->hiddenSectionCount();
    for (int column = 0; column < MessageModel::allColumns; ++column) {
        actions[column]->setChecked(!header->isSectionHidden(column));
        // A table without columns would leave nothing to click at.
        actions[column]->setEnabled(shown > 1 || header->isSectionHidden(column));
    }
}
