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
    const auto choose = [this](const QModelIndex &index) {
        emit positionChosen(index.data(MarksModel::PositionRole).toULongLong());
    };
    connect(this, &QTableView::clicked, this, choose);
    connect(this, &QTableView::activated, this, choose);
}

void MarksView::setModel(QAbstractItemModel *model)
{
    QTableView::setModel(model);
    QHeaderView *header = horizontalHeader();
    constexpr int rowsMeasured = 200;
    header->setResizeContentsPrecision(rowsMeasured);
    for (int column = 0; column < MarksModel::columns; ++column) {
        const bool isText = column == MarksModel::TextColumn;
        header->setSectionResizeMode(column,
                                     isText ? QHeaderView::Fixed : QHeaderView::ResizeToContents);
    }
    sortByColumn(MarksModel::PositionColumn, Qt::AscendingOrder);
    connect(header, &QHeaderView::sectionResized, this, &MarksView::fitColumns);
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
    const int others = header->length() - header->sectionSize(MarksModel::TextColumn);
    const int least = leastCharacters * fontMetrics().averageCharWidth();
    const int width = qMax(least, viewport()->width() - others);
    if (header->sectionSize(MarksModel::TextColumn) != width)
        header->resizeSection(MarksModel::TextColumn, width);
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
