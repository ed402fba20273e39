#include "marksmodel.h"

#include "messagetext.h"

#include <QFontDatabase>

#include <algorithm>

namespace {

// Each is a step through all rows, in the model and in what sorts it.
constexpr int mostSingleChanges = 200;

} // namespace

MarksModel::MarksModel(QObject *parent) : QAbstractTableModel(parent) { }

int MarksModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : all.size();
}

int MarksModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : columns;
}

QVariant MarksModel::text(const Mark &mark, int column)
{
    switch (column) {
    case NumberColumn:
        return mark.number;
    case TextColumn:
        return mark.text;
    case TimeColumn:
        return mark.time;
    case IdentifierColumn:
        return mark.identifier;
    default:
        return {};
    }
}

QVariant MarksModel::sortValue(const Mark &mark, int column)
{
    switch (column) {
    case KindColumn:
        return int(mark.kind);
    case NumberColumn:
        return mark.position;
    case TimeColumn:
        return mark.microseconds;
    default:
        return text(mark, column);
    }
}

QVariant MarksModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const Mark &mark = all.at(index.row());
    const bool isNote = mark.kind == Mark::Note;
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return text(mark, index.column());
    case Qt::DecorationRole:
        return index.column() == KindColumn ? QVariant(isNote ? noteIcon : bookmarkIcon)
                                            : QVariant();
    case Qt::ToolTipRole:
        if (index.column() == TimeColumn && !mark.time.isEmpty())
            return MessageText::moment(mark.microseconds);
        Q_FALLTHROUGH();
    case Qt::AccessibleTextRole:
        if (index.column() == KindColumn)
            return isNote ? tr("Note") : tr("Bookmark");
        return text(mark, index.column());
    case Qt::FontRole:
        return index.column() == NumberColumn || index.column() >= TimeColumn
            ? QVariant(QFontDatabase::systemFont(QFontDatabase::FixedFont))
            : QVariant();
    case Qt::TextAlignmentRole:
        return index.column() == NumberColumn || index.column() == TimeColumn
            ? QVariant(int(Qt::AlignRight | Qt::AlignVCenter))
            : QVariant();
    case SortRole:
        return sortValue(mark, index.column());
    case PositionRole:
        return mark.position;
    default:
        return {};
    }
}

QVariant MarksModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    switch (section) {
    case NumberColumn:
        return tr("Number");
    case TextColumn:
        return tr("Text");
    case TimeColumn:
        return tr("Time");
    case IdentifierColumn:
        return tr("Identifier");
    default:
        return {};
    }
}

Qt::ItemFlags MarksModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.column() == TextColumn ? flags | Qt::ItemIsEditable : flags;
}

bool MarksModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid() || index.column() != TextColumn || role != Qt::EditRole)
        return false;
    const QString written = value.toString().trimmed();
    Mark &mark = all[index.row()];
    if (written == mark.text)
        return true;
    if (written.isEmpty()) {
        remove(index.row());
        return true;
    }
    mark.text = written;
    emit dataChanged(index, index);
    emit changeWanted(mark.position, mark.kind, written);
    return true;
}

void MarksModel::setIcons(const QIcon &note, const QIcon &bookmark)
{
    noteIcon = note;
    bookmarkIcon = bookmark;
    if (!all.isEmpty())
        emit dataChanged(index(0, KindColumn), index(all.size() - 1, KindColumn),
                         {Qt::DecorationRole});
}

void MarksModel::removeAt(int row)
{
    beginRemoveRows({}, row, row);
    all.remove(row);
    endRemoveRows();
}

void MarksModel::insert(int row, const Mark &mark)
{
    beginInsertRows({}, row, row);
    all.insert(row, mark);
    endInsertRows();
}

void MarksModel::remove(int row)
{
    const Mark mark = all.at(row);
    removeAt(row);
    if (!mark.text.isEmpty())
        emit changeWanted(mark.position, mark.kind, QString());
}

QModelIndex MarksModel::textAt(quint64 position, Mark::Kind kind)
{
    Mark mark;
    mark.position = position;
    mark.kind = kind;
    const auto place = std::lower_bound(all.begin(), all.end(), mark);
    const int row = int(place - all.begin());
    if (place == all.end() || mark < *place)
        insert(row, mark);
    return index(row, TextColumn);
}

void MarksModel::dropUnwritten()
{
    for (int row = all.size() - 1; row >= 0; --row) {
        if (all.at(row).text.isEmpty())
            removeAt(row);
    }
}

// One that the user is about to write is in no list.
int MarksModel::changesTo(const QVector<Mark> &marks) const
{
    int changes = 0;
    auto shown = all.begin();
    for (const Mark &mark : marks) {
        for (; shown != all.end() && *shown < mark; ++shown)
            changes += shown->text.isEmpty() ? 0 : 1;
        const bool isShown = shown != all.end() && !(mark < *shown);
        changes += isShown && *shown == mark ? 0 : 1;
        shown += isShown ? 1 : 0;
    }
    return changes + int(all.end() - shown);
}

void MarksModel::setMarks(const QVector<Mark> &marks)
{
    if (changesTo(marks) > mostSingleChanges) {
        beginResetModel();
        all = marks;
        endResetModel();
        return;
    }
    int row = 0;
    for (const Mark &mark : marks) {
        while (row < all.size() && all.at(row) < mark) {
            if (all.at(row).text.isEmpty())
                ++row;
            else
                removeAt(row);
        }
        if (row == all.size() || mark < all.at(row)) {
            insert(row, mark);
        } else if (!(all.at(row) == mark)) {
            all[row] = mark;
            emit dataChanged(index(row, 0), index(row, columns - 1));
        }
        ++row;
    }
    for (int last = all.size() - 1; last >= row; --last) {
        if (!all.at(last).text.isEmpty())
            removeAt(last);
    }
}
