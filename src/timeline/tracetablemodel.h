#pragma once

#include "datachunkglobal.h"
#include "tracetimeline.h"

#include <QAbstractTableModel>

#include <memory>
#include <optional>

/// The messages of a timeline, or those that a filter finds, as a table for a view. However many
/// there are, the table has a window of at most mostRows of them, which moves.
///
/// A "row of all" counts all messages, or all that are found so far, from 0; a row of the table
/// counts from origin(). Positions are those of the timeline and stay with their messages.
///
/// What the table has changes in refresh() and in the functions that say so, and nowhere else,
/// whatever becomes of the timeline meanwhile. data() reads a block of 4096 messages at most, and a
/// chunk once where a filter is answered from its index. Use from one thread, with an event loop
/// for the timer and for find.
class DATACHUNK_EXPORT TraceTableModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    /// The columns, from left to right.
    enum Column {
        PositionColumn,
        NumberColumn,
        TimeColumn,
        LineColumn,
        DirectionColumn, ///< "Rx" or "Tx"; chunk files do not keep it, and it is "Rx" there
        IdentifierColumn,
        KindColumn,
        LengthColumn,
        DataColumn, ///< says so where a message is no longer there
        NoteColumn
    };
    static constexpr int columns = NoteColumn + 1; ///< how many there are

    /// Of any column. Invalid where a message is no longer there, but for the first three; of the
    /// position, too, when nobody knows which message it was that a filter had found.
    enum Role {
        PositionRole = Qt::UserRole, ///< quint64
        RowRole,                     ///< quint64; the row of all
        StateRole,                   ///< int; TraceRow::Known or TraceRow::Gone
        MessageRole,                 ///< CAN::CanRxMessage
        TimeRole,                    ///< qint64; in microseconds
        NoteRole,                    ///< QString
        BookmarkRole                 ///< QString; the text, invalid where there is none
    };

    /// What the time column counts from, in seconds with six digits behind the point.
    enum TimeForm {
        AbsoluteTime,
        SinceStart,    ///< the lowest time of all messages
        SinceRowBefore ///< empty in the first row of all
    };

    static constexpr int mostRows = 100000;         ///< of the window
    static constexpr int mostScrollSteps = 1000000; ///< of a scroll bar over all rows

    /// Shows the first rows.
    explicit TraceTableModel(const TraceTimeline &timeline, QObject *parent = nullptr);
    ~TraceTableModel() override;

    /// Rows of the window, up to mostRows; 0 below an index.
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    /// 0 below an index.
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    /// The text of a column, or the value of a role. Invalid for an index that there is not.
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    /// The vertical header counts the rows of all from 1.
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

    /// AbsoluteTime at first.
    TimeForm timeForm() const;
    /// Changes the texts of the time column, with dataChanged().
    void setTimeForm(TimeForm form);

    /// \name The window
    /// \{

    /// Number of rows of all.
    quint64 total() const;
    /// The row of all that the table begins with.
    quint64 origin() const;
    /// The row of the table that shows the message at \a position, or -1.
    int rowOf(quint64 position) const;
    /// \}

    /// \name Moving the window
    /// Each of these ends following. They move the window, and reset the table, where what is asked
    /// for is not well inside it, and return its index in the table. \{

    /// The last row where \a row is behind it; an invalid index when there are no rows.
    QModelIndex showRow(quint64 row);
    /// The first row at or behind \a position, else the last one.
    QModelIndex showPosition(quint64 position);
    /// The first row at or behind the first message at \a time or later, in microseconds. An
    /// invalid index, and nothing moves, when there is no such message.
    QModelIndex jumpToTime(qint64 time);
    /// The same for the first message with \a number.
    QModelIndex jumpToNumber(quint32 number);
    /// \}

    /// \name A scroll bar over all rows
    /// \{

    /// The last step, mostScrollSteps at most; the first one is 0.
    int scrollRange() const;
    /// The row of all at a step; that of the nearest step there is.
    quint64 rowAtScroll(int step) const;
    /// The last step that is not behind \a row.
    int scrollOf(quint64 row) const;
    /// \}

    /// \name Following
    /// \{

    /// Whether the window stays at the end. False at first.
    bool isFollowing() const;
    /// Keeps the window at the end. Whenever rows have come it is reset.
    void setFollowing(bool on);

    /// In milliseconds, 50 at first; with 0 refresh() is left to the caller. The timer rests while
    /// nothing can change.
    int refreshInterval() const;
    /// The same; a negative number counts as 0.
    void setRefreshInterval(int milliseconds);
    /// \}

    /// \name Filter and find
    /// \{

    /// Nothing when all messages are shown.
    std::optional<TraceExpression> filter() const;
    /// Shows what the expression takes, or all messages, and resets the table. What is near the
    /// current position, or else the first row of the table, is found first.
    void setFilter(const std::optional<TraceExpression> &expression);

    /// Where find begins. A view sets it to its current row's.
    std::optional<quint64> currentPosition() const;
    /// Moves neither the window nor anything in the view.
    void setCurrentPosition(std::optional<quint64> position);

    /// Looks in the background for the next message behind the current position, or the previous in
    /// front of it, that the expression and the filter take; without one from the first message, or
    /// the last. Gives up the search before. Ends with found() or notFound().
    void findNext(const TraceExpression &expression);
    /// The same backwards.
    void findPrevious(const TraceExpression &expression);
    /// Neither signal comes any more.
    void cancelFind();
    /// \}

public slots:
    /// Takes in what has come.
    void refresh();

signals:
    /// There are more rows of all, or others.
    void totalChanged(quint64 total);
    /// By setFollowing(), or by what moves the window, which ends it.
    void followingChanged(bool on);
    /// How many messages the filter has looked at, or need not, of how many.
    void filterProgress(quint64 done, quint64 of);
    /// That was all of them. It comes again when messages come that have to be looked at.
    void filterComplete();
    /// It is the current position now, and shown unless the filter has not come as far.
    void found(quint64 position);
    /// The search has come to the end of the trace, or to its beginning.
    void notFound();

private:
    class Private;

    const std::unique_ptr<Private> d;
};
