#pragma once

#include <QStyledItemDelegate>

/// Draws the cells of the messages: error frames, sent and marked messages stand out, in the
/// colours of the palette. A cell is a line of text and nothing else, for there are many of them
/// and they change often.
class MessageDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    explicit MessageDelegate(QObject *parent = nullptr);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;
};
