#include "rowselection.h"

#include "messagemodel.h"

#include <QItemSelectionModel>

namespace {

// Each takes some time whenever the rows of the table change.
constexpr int mostRanges = 200;

} // namespace

void RowSelection::clear()
{
    current.reset();
    anchor.reset();
    ranges.clear();
}

void RowSelection::take(const QItemSelection &selection)
{
    ranges.clear();
    for (const QItemSelectionRange &range : selection) {
        const auto first = model.positionOf(range.top());
        const auto last = model.positionOf(range.bottom());
        if (first && last && ranges.size() < mostRanges)
            ranges.append({*first, *last});
    }
}

void RowSelection::restore(QItemSelectionModel &selection, int column) const
{
    const int rows = model.rowCount();
    QItemSelection rowsAgain;
    for (const Range &range : ranges) {
        const int first = model.rowAtOrBehind(range.first);
        int last = model.rowAtOrBehind(range.last);
        if (last >= rows || model.positionOf(last) != range.last)
            --last;
        if (first <= last)
            rowsAgain.select(model.index(first, 0),
                             model.index(last, MessageModel::allColumns - 1));
    }
    selection.select(rowsAgain, QItemSelectionModel::ClearAndSelect);
    const int row = current ? model.rowOf(*current) : -1;
    if (row >= 0)
        selection.setCurrentIndex(model.index(row, column), QItemSelectionModel::NoUpdate);
}
