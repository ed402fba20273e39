#include "messagecopy.h"

#include "messagemodel.h"
#include "traceexport.h"

#include <QHeaderView>

namespace {

QVector<int> shownColumns(const QHeaderView &header)
{
    QVector<int> columns;
    for (int place = 0; place < header.count(); ++place) {
        const int column = header.logicalIndex(place);
        if (!header.isSectionHidden(column))
            columns.append(column);
    }
    return columns;
}

// What would begin another line or column in a table that it is pasted into.
QString inOneCell(QString text)
{
    return text.replace(QLatin1Char('\t'), QLatin1Char(' '))
        .replace(QLatin1Char('\n'), QLatin1Char(' '))
        .replace(QLatin1Char('\r'), QLatin1Char(' '));
}

} // namespace

QString MessageCopy::asShown(const MessageModel &model, const QHeaderView &header,
                             const QVector<quint64> &positions)
{
    const QVector<int> columns = shownColumns(header);
    QString text;
    QStringList cells;
    if (positions.size() > 1) {
        for (const int column : columns)
            cells += model.headerData(column, Qt::Horizontal).toString();
        text = cells.join(QLatin1Char('\t')) + QLatin1Char('\n');
    }
    for (const quint64 position : positions) {
        const int row = model.rowOf(position);
        cells.clear();
        for (const int column : columns)
            cells += inOneCell(model.index(row, column).data().toString());
        text += cells.join(QLatin1Char('\t')) + QLatin1Char('\n');
    }
    return text;
}

QString MessageCopy::asCandump(const MessageModel &model, const QVector<quint64> &positions,
                               quint64 *leftOut)
{
    TraceExport writer(TraceExport::Candump);
    QByteArray block;
    for (const quint64 position : positions) {
        const QModelIndex index = model.index(model.rowOf(position), 0);
        const QVariant message = index.data(MessageModel::MessageRole);
        if (message.isValid())
            writer.append(message.value<CAN::CanRxMessage>(),
                          index.data(MessageModel::NoteRole).toString(), block);
    }
    *leftOut = quint64(positions.size()) - writer.written();
    return QString::fromUtf8(block);
}
