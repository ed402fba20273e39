#pragma once

#include "fixedtext.h"

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

private:
    void drawText(QPainter &painter, const QRect &place, const QStyleOptionViewItem &option) const;

    mutable FixedText fixedText; // in the font of the last cell that had one of a fixed width
};
