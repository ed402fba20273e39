#pragma once

#include "mark.h"

#include <QAbstractTableModel>
#include <QIcon>

/// The notes and bookmarks of a trace as a table. What the user writes is asked for by a signal and
/// shown at once; what has become of it comes with the next list.
class MarksModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column { KindColumn, NumberColumn, TextColumn, TimeColumn, IdentifierColumn };
    static constexpr int columns = IdentifierColumn + 1;
    enum Role {
        SortRole = Qt::UserRole, ///< what a column is sorted by
        PositionRole             ///< quint64; of the message
    };

    explicit MarksModel(QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    /// Of the text; an empty one takes the mark away.
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;

    const QVector<Mark> &marks() const { return all; }
    /// Shows others: a few row by row, so that what is selected stays, many at once.
    void setMarks(const QVector<Mark> &marks);
    void setIcons(const QIcon &note, const QIcon &bookmark);

    /// The text of the one at \a position; added without a text where there is none, until it gets
    /// one or dropUnwritten().
    QModelIndex textAt(quint64 position, Mark::Kind kind);
    void dropUnwritten();
    void remove(int row);

signals:
    void changeWanted(quint64 position, Mark::Kind kind, const QString &text);

private:
    int changesTo(const QVector<Mark> &marks) const;
    void removeAt(int row);
    void insert(int row, const Mark &mark);
    static QVariant text(const Mark &mark, int column);
    static QVariant sortValue(const Mark &mark, int column);

    QVector<Mark> all; // rising
    QIcon noteIcon;
    QIcon bookmarkIcon;
};
