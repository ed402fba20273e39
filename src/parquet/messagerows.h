#pragma once

#include "canrxmessage.h"

#include <QByteArray>
#include <QString>

#include <vector>

namespace Parquet {

/// Messages field by field, as columns are written: one row group of them at the most.
struct MessageRows
{
    static constexpr int mostRows = 131072;
    static constexpr int mostBytes = 16 * 1024 * 1024; ///< of payloads and notes, but for the last
    static constexpr int mostNoteBytes = 16 * 1024 * 1024;

    bool isFull() const { return count == mostRows || payloadSize + notes.size() >= mostBytes; }
    /// Whether a file of these takes longer to open and close than to be packed as well as can be.
    bool isSmall() const;
    void add(const CAN::CanRxMessage &message);
    /// Adds the note of the message that was added last. False when its end was cut off.
    bool addNote(const QString &note);
    void clear();

    int count = 0;
    // The first elements are those of the messages; there is room for more.
    std::vector<qint64> times; // microseconds
    std::vector<quint32> numbers;
    std::vector<quint32> lines;
    std::vector<quint32> identifiers;
    std::vector<quint8> flags;    ///< a bit for each of the boolean columns, in their order
    std::vector<quint32> lengths; ///< of 32 bits with a sign
    std::vector<quint8> payloadSizes;

    std::vector<char> payloads;     ///< of all messages, one behind the other, and eight more bytes
    int payloadSize = 0;            ///< of all
    std::vector<quint32> notedRows; ///< rising
    QByteArray notes;               ///< of these, as PLAIN has them

private:
    void grow();
    void addPayload(const CAN::CanRxMessage &message, std::size_t row);
};

} // namespace Parquet
