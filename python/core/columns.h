#pragma once

#include "pythonheaders.h"

#include "canmessagebookmark.h"
#include "canrxmessage.h"
#include "column.h"

#include <QString>

#include <array>
#include <vector>

/// The messages of a trace by their fields, as arrays that Python looks at where they lie. Filled
/// by one thread, then never changed.
class Columns
{
public:
    /// The flags in their order.
    enum Flag { Extended, Remote, Fd, Brs, Esi, Error, Transmitted, FlagD, flagCount };
    static const std::array<const char *, flagCount> flagNames;

    /// A text that belongs to a row.
    struct Mark
    {
        std::size_t row;
        QString text;
    };

    std::size_t size() const { return times.size(); }
    /// Makes room for so many more messages.
    void reserve(std::size_t messages);
    void append(const CAN::CanRxMessage *messages, std::size_t count);
    void append(const CAN::CanRxMessage &message) { append(&message, 1); }
    void addNote(std::size_t row, const QString &note) { notes.push_back({row, note}); }
    void addBookmark(std::size_t row, const QString &text) { bookmarks.push_back({row, text}); }
    /// To be called when all is there.
    void finish();

    Column<qint64> times;
    Column<quint32> numbers;
    Column<quint16> lines;
    Column<quint32> identifiers;
    Column<quint8> lengths;
    std::array<Column<bool>, flagCount> flags;
    Column<qint64> offsets; ///< where the payload begins in `payload`
    Column<quint8> payload;
    std::vector<Mark> notes;
    std::vector<Mark> bookmarks;
};

/// Tells Python of the class.
void bindColumns(py::module_ &module);
