#pragma once

#include "tracelook.h"
#include "tracetablemodel.h"

/// The messages of a timeline as the table of the window shows them: with a column of characters,
/// in the user's choice of numbers and times, and with notes that can be written.
class MessageModel : public TraceTableModel
{
    Q_OBJECT
public:
    enum MoreColumns { AsciiColumn = columns, allColumns };

    /// Of any column; an int of Marks.
    static constexpr int MarksRole = BookmarkRole + 1;
    enum Mark {
        GoneMark = 1, ///< the message is no longer there
        ErrorMark = 2,
        SentMark = 4,
        BookmarkMark = 8,
        TimeMark = 16 ///< times count from it
    };

    explicit MessageModel(const TraceTimeline &timeline, QObject *parent = nullptr);

    const TraceLook &look() const { return ownLook; }
    void setLook(const TraceLook &look);

    /// The position and time of the message that times count from with TraceLook::SinceMark.
    void setMark(quint64 position, qint64 time);
    qint64 markedTime() const { return ownMarkedTime; }

    /// The first row of the table at or behind \a position; the number of rows without one.
    int rowAtOrBehind(quint64 position) const;
    /// Nothing where nobody knows which message it was.
    std::optional<quint64> positionOf(int row) const;

    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    /// Of a note: emits noteWritten(), and false as nothing has changed yet.
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;

signals:
    void noteWritten(quint64 position, const QString &text);

private:
    QVariant text(const QModelIndex &index) const;
    QString timeText(const QModelIndex &index) const;
    QVariant toolTip(const QModelIndex &index) const;
    int marks(const QModelIndex &index) const;

    TraceLook ownLook;
    std::optional<quint64> ownMark;
    qint64 ownMarkedTime = 0;
};
