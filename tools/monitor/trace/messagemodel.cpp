#include "messagemodel.h"

#include "messagetext.h"

namespace {

CAN::CanRxMessage messageOf(const QModelIndex &index)
{
    return index.data(TraceTableModel::MessageRole).value<CAN::CanRxMessage>();
}

bool isThere(const QModelIndex &index)
{
    return index.siblingAtColumn(0).data(TraceTableModel::StateRole).toInt() == TraceRow::Known;
}

} // namespace

MessageModel::MessageModel(const TraceTimeline &timeline, QObject *parent)
    : TraceTableModel(timeline, parent)
{
    setTimeForm(TraceTableModel::SinceStart);
}

void MessageModel::setLook(const TraceLook &look)
{
    ownLook = look;
    const TimeForm forms[] = {TraceTableModel::SinceStart, TraceTableModel::SinceRowBefore,
                              TraceTableModel::AbsoluteTime, TraceTableModel::AbsoluteTime,
                              TraceTableModel::AbsoluteTime};
    setTimeForm(forms[look.time]);
    if (rowCount() > 0)
        emit dataChanged(index(0, 0), index(rowCount() - 1, allColumns - 1));
}

void MessageModel::setMark(quint64 position, qint64 time)
{
    ownMark = position;
    ownMarkedTime = time;
    TraceLook look = ownLook;
    look.time = TraceLook::SinceMark;
    setLook(look);
}

int MessageModel::rowAtOrBehind(quint64 position) const
{
    const int exact = rowOf(position);
    if (exact >= 0)
        return exact;
    int low = 0;
    for (int high = rowCount(); low < high;) {
        const int middle = low + (high - low) / 2;
        if (positionOf(middle).value_or(0) < position)
            low = middle + 1;
        else
            high = middle;
    }
    return low;
}

std::optional<quint64> MessageModel::positionOf(int row) const
{
    const QVariant position = index(row, 0).data(PositionRole);
    return position.isValid() ? std::optional<quint64>(position.toULongLong()) : std::nullopt;
}

int MessageModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(allColumns);
}

QVariant MessageModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return text(index);
    case Qt::EditRole:
        return index.column() == NoteColumn ? data(index, NoteRole) : text(index);
    case Qt::ToolTipRole:
        return toolTip(index);
    case MarksRole:
        return marks(index);
    default:
        return TraceTableModel::data(
            index.column() < columns ? index : index.siblingAtColumn(DataColumn), role);
    }
}

QVariant MessageModel::text(const QModelIndex &index) const
{
    const bool isOurTime =
        ownLook.time == TraceLook::SinceMark || ownLook.time == TraceLook::DateAndTime;
    const bool isOurs = index.column() == IdentifierColumn || index.column() == DataColumn
        || index.column() == AsciiColumn || (index.column() == TimeColumn && isOurTime);
    if (!isOurs || (index.column() == DataColumn && !isThere(index)))
        return TraceTableModel::data(index, Qt::DisplayRole);
    if (!isThere(index))
        return {};
    switch (index.column()) {
    case IdentifierColumn:
        return MessageText::identifier(messageOf(index), ownLook.identifierBase);
    case DataColumn:
        return MessageText::data(messageOf(index), ownLook.dataBase);
    case AsciiColumn:
        return MessageText::ascii(messageOf(index));
    default:
        return timeText(index);
    }
}

QString MessageModel::timeText(const QModelIndex &index) const
{
    const qint64 time = data(index, TimeRole).toLongLong();
    return ownLook.time == TraceLook::SinceMark ? MessageText::seconds(time - ownMarkedTime)
                                                : MessageText::moment(time);
}

QVariant MessageModel::toolTip(const QModelIndex &index) const
{
    if (!isThere(index))
        return {};
    switch (index.column()) {
    case NumberColumn:
        return data(index, BookmarkRole);
    case DataColumn:
        return QString(MessageText::data(messageOf(index), ownLook.dataBase) + QLatin1Char('\n')
                       + MessageText::ascii(messageOf(index)));
    case TimeColumn:
        return MessageText::moment(data(index, TimeRole).toLongLong());
    case NoteColumn:
        return data(index, NoteRole);
    default:
        return {};
    }
}

int MessageModel::marks(const QModelIndex &index) const
{
    if (!isThere(index))
        return GoneMark;
    const CAN::CanRxMessage message = messageOf(index);
    int marks = 0;
    if (message.id == CAN::errorFrameId)
        marks |= ErrorMark;
    if (message.transmitted)
        marks |= SentMark;
    if (data(index, BookmarkRole).isValid())
        marks |= BookmarkMark;
    if (ownLook.time == TraceLook::SinceMark && ownMark == positionOf(index.row()))
        marks |= TimeMark;
    return marks;
}

QVariant MessageModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && section == AsciiColumn && role == Qt::DisplayRole)
        return tr("Characters");
    return TraceTableModel::headerData(section, orientation, role);
}

Qt::ItemFlags MessageModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = TraceTableModel::flags(index);
    const bool isNote = index.isValid() && index.column() == NoteColumn && isThere(index);
    return isNote ? flags | Qt::ItemIsEditable : flags;
}

bool MessageModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    const auto position = positionOf(index.row());
    if (role != Qt::EditRole || index.column() != NoteColumn || !position)
        return false;
    if (value.toString() != data(index, NoteRole).toString())
        emit noteWritten(*position, value.toString());
    return false;
}
