#include "rows.h"

#include "canframe.h"
#include "texts.h"

#include <cstring>

namespace {

Rows::Texts textsIn(const py::dict &marks)
{
    Rows::Texts texts;
    for (const auto &[row, text] : marks)
        texts.insert(row.cast<qint64>(), textFrom(text));
    return texts;
}

} // namespace

Rows::Rows(const py::dict &arrays, const py::array_t<quint8, py::array::c_style> &data,
           const py::dict &notes, const py::dict &bookmarks)
    : notes(textsIn(notes)), bookmarks(textsIn(bookmarks)), times(arrays["time"]),
      numbers(arrays["number"]), lines(arrays["line"]), identifiers(arrays["identifier"]),
      lengths(arrays["length"]), offsets(arrays["offsets"]), data(data), bytes(data.data()),
      count(times.array.size())
{
    for (const char *name : Columns::flagNames)
        flags.emplace_back(py::object(arrays[name]));
    check();
}

void Rows::check() const
{
    bool fits = numbers.array.size() == count && lines.array.size() == count
        && identifiers.array.size() == count && lengths.array.size() == count
        && offsets.array.size() == count;
    for (const Field<bool> &flag : flags)
        fits = fits && flag.array.size() == count;
    for (qint64 row = 0; row < count && fits; ++row)
        fits = lengths[row] <= CAN::maxDataBytes && offsets[row] >= 0
            && offsets[row] <= data.size() - lengths[row];
    if (!fits)
        throw py::value_error("The columns do not fit together.");
}

CAN::CanRxMessage Rows::message(qint64 row) const
{
    constexpr qint64 million = 1000000;
    CAN::CanRxMessage message;
    const qint64 time = times[row];
    const qint64 fraction = (time % million + million) % million;
    message.seconds = qint32((time - fraction) / million);
    message.microseconds = qint32(fraction);
    message.id = identifiers[row];
    message.length = qint8(lengths[row]);
    std::memcpy(message.data, bytes + offsets[row], lengths[row]);
    message.remote = flags[Columns::Remote][row];
    message.extended = flags[Columns::Extended][row];
    message.fdFrame = flags[Columns::Fd][row];
    message.flagB = flags[Columns::Esi][row];
    message.flagC = flags[Columns::Brs][row];
    message.flagD = flags[Columns::FlagD][row];
    message.transmitted = flags[Columns::Transmitted][row];
    message.messageNumber = numbers[row];
    message.line = lines[row];
    return message;
}
