#pragma once

#include <QStyledItemDelegate>

class IdentifierTable;

/// Draws the payload of an IdentifierTable, byte by byte, with what has just changed marked.
class PayloadDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    PayloadDelegate(const IdentifierTable *table, QObject *parent);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;

private:
    double freshness(qint64 changed, int row) const;

    const IdentifierTable *const table;
};

/// Draws the messages of a row of an IdentifierTable over time.
class CurveDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    CurveDelegate(const IdentifierTable *table, QObject *parent);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;

private:
    const IdentifierTable *const table;
};
