#include "canframe.h"
#include "recordview.h"
#include "tabletext.h"
#include "tracetablemodel_p.h"

// Without reading the message: a view looks for a position among many rows that it does not show.
std::optional<quint64> TraceTableModel::Private::positionOf(quint64 row) const
{
    const Shown *known = screen.object(row);
    return known ? known->position : rows.positionOf(row);
}

TraceTableModel::Private::Shown TraceTableModel::Private::shown(quint64 row) const
{
    if (const Shown *known = screen.object(row))
        return *known;
    Shown read;
    read.row.state = TraceRow::Gone;
    read.position = rows.positionOf(row);
    if (read.position)
        read.row = dataOf(timeline)->cache.row(rows.snapshot(), *read.position);
    screen.insert(row, new Shown(read));
    return read;
}

QVariant TraceTableModel::Private::text(quint64 row, int column) const
{
    if (column == PositionColumn) {
        const auto position = positionOf(row);
        return position ? QVariant(QString::number(*position)) : QVariant();
    }
    const Shown all = shown(row);
    const CAN::CanRxMessage &message = all.row.message;
    if (all.row.state != TraceRow::Known)
        return column == DataColumn ? QVariant(tr("no longer there")) : QVariant();
    switch (column) {
    case NumberColumn:
        return QString::number(message.messageNumber);
    case TimeColumn:
        return timeText(row, MessageView(message).time());
    case LineColumn:
        return QString::number(MessageView(message).line());
    case DirectionColumn:
        return message.transmitted ? tr("Tx") : tr("Rx");
    case IdentifierColumn:
        return TableText::identifier(message);
    case KindColumn:
        return TableText::kind(message);
    case LengthColumn:
        return QString::number(CAN::payloadSize(message));
    case DataColumn:
        return TableText::data(message);
    default:
        return all.row.note;
    }
}

QString TraceTableModel::Private::timeText(quint64 row, qint64 time) const
{
    switch (timeForm) {
    case SinceStart:
        return TableText::time(time - start);
    case SinceRowBefore: {
        const Shown before = row > 0 ? shown(row - 1) : Shown();
        return before.row.state == TraceRow::Known
            ? TableText::time(time - MessageView(before.row.message).time())
            : QString();
    }
    default:
        return TableText::time(time);
    }
}

QVariant TraceTableModel::Private::value(const Shown &shown, int role)
{
    const TraceRow &row = shown.row;
    if (role == StateRole)
        return int(row.state);
    if (row.state != TraceRow::Known)
        return {};
    switch (role) {
    case MessageRole:
        return QVariant::fromValue(row.message);
    case TimeRole:
        return MessageView(row.message).time();
    case NoteRole:
        return row.note;
    default:
        return row.bookmark.isValid() ? QVariant(row.bookmark.text()) : QVariant();
    }
}

QVariant TraceTableModel::Private::alignment(int column)
{
    switch (column) {
    case PositionColumn:
    case NumberColumn:
    case TimeColumn:
    case LengthColumn:
        return int(Qt::AlignRight | Qt::AlignVCenter);
    default:
        return int(Qt::AlignLeft | Qt::AlignVCenter);
    }
}
