#include "marksview.h"

#include "marksmodel.h"

#include <QHeaderView>

MarksView::MarksView(QWidget *parent) : QTableView(parent)
{
    setSelectionBehavior(SelectRows);
    setEditTriggers(DoubleClicked);
    setSortingEnabled(true);
    setShowGrid(false);
    setAlternatingRowColors(true);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setHorizontalScrollMode(ScrollPerPixel);
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 4 / 3);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setMinimumSectionSize(0);
    const auto choose = [this](const QModelIndex &index) {
        emit positionChosen(index.data(MarksModel::PositionRole).toULongLong());
    };
    connect(this, &QTableView::clicked, this, choose);
    connect(this, &QTableView::activated, this, choose);
}

void MarksView::setModel(QAbstractItemModel *model)
{
    QTableView::setModel(model);
    sortByColumn(MarksModel::NumberColumn, Qt::AscendingOrder);
    fitColumns();
}

std::optional<quint64> MarksView::currentMessage() const
{
    if (!currentIndex().isValid())
        return {};
    return currentIndex().data(MarksModel::PositionRole).toULongLong();
}

// In a narrow dock the columns behind the text are scrolled to.
void MarksView::fitColumns()
{
    constexpr int leastCharacters = 18;
    QHeaderView *header = horizontalHeader();
    int left = viewport()->width();
    for (int column = 0; column < MarksModel::columns; ++column) {
        if (column == MarksModel::TextColumn)
            continue;
        const int width = qMax(header->sectionSizeHint(column), sizeHintForColumn(column));
        header->resizeSection(column, width);
        left -= width;
    }
    header->resizeSection(MarksModel::TextColumn,
                          qMax(leastCharacters * fontMetrics().averageCharWidth(), left));
}

void MarksView::resizeEvent(QResizeEvent *event)
{
    QTableView::resizeEvent(event);
    fitColumns();
}

void MarksView::closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint)
{
    QTableView::closeEditor(editor, hint);
    emit editingEnded();
}
