#include "columns.h"

#include "canframe.h"
#include "texts.h"

#include <cstring>

const std::array<const char *, Columns::flagCount> Columns::flagNames = {
    "extended", "remote", "fd", "brs", "esi", "error", "transmitted", "flag_d"};

void Columns::reserve(std::size_t messages)
{
    constexpr std::size_t usualPayload = 8;
    const std::size_t all = size() + messages;
    times.reserve(all);
    numbers.reserve(all);
    lines.reserve(all);
    identifiers.reserve(all);
    lengths.reserve(all);
    for (Column<bool> &flag : flags)
        flag.reserve(all);
    offsets.reserve(all);
    payload.reserve(payload.size() + messages * usualPayload);
}

void Columns::append(const CAN::CanRxMessage *messages, std::size_t count)
{
    qint64 *const time = times.extend(count);
    quint32 *const number = numbers.extend(count);
    quint16 *const line = lines.extend(count);
    quint32 *const identifier = identifiers.extend(count);
    quint8 *const length = lengths.extend(count);
    std::array<bool *, flagCount> flag{};
    for (std::size_t i = 0; i < flag.size(); ++i)
        flag[i] = flags[i].extend(count);
    qint64 *const offset = offsets.extend(count);
    for (std::size_t i = 0; i < count; ++i) {
        const CAN::CanRxMessage &message = messages[i];
        time[i] = CAN::timeOf(message);
        number[i] = message.messageNumber;
        line[i] = message.line;
        identifier[i] = message.id;
        flag[Extended][i] = message.extended;
        flag[Remote][i] = message.remote;
        flag[Fd][i] = message.fdFrame;
        flag[Brs][i] = message.flagC;
        flag[Esi][i] = message.flagB;
        flag[Error][i] = message.id == CAN::errorFrameId;
        flag[Transmitted][i] = message.transmitted;
        flag[FlagD][i] = message.flagD;
        const auto bytes = std::size_t(CAN::payloadSize(message));
        length[i] = quint8(bytes);
        offset[i] = qint64(payload.size());
        std::memcpy(payload.extend(bytes), message.data, bytes);
    }
}

void Columns::finish()
{
    times.squeeze();
    numbers.squeeze();
    lines.squeeze();
    identifiers.squeeze();
    lengths.squeeze();
    for (Column<bool> &flag : flags)
        flag.squeeze();
    offsets.squeeze();
    payload.squeeze();
}

namespace {

// Shows the column where it lies; the array keeps its owner.
template <typename T> py::array arrayOf(const Column<T> &column, const py::object &owner)
{
    py::array array(py::dtype::of<T>(), {py::ssize_t(column.size())}, {py::ssize_t(sizeof(T))},
                    column.data(), owner);
    array.attr("flags").attr("writeable") = false;
    return array;
}

py::dict marksOf(const std::vector<Columns::Mark> &marks)
{
    py::dict texts;
    for (const Columns::Mark &mark : marks)
        texts[py::int_(mark.row)] = textFor(mark.text);
    return texts;
}

py::dict arraysOf(const py::object &self)
{
    const auto &columns = self.cast<const Columns &>();
    py::dict arrays;
    arrays["time"] = arrayOf(columns.times, self);
    arrays["number"] = arrayOf(columns.numbers, self);
    arrays["line"] = arrayOf(columns.lines, self);
    arrays["identifier"] = arrayOf(columns.identifiers, self);
    for (std::size_t i = 0; i < columns.flags.size(); ++i)
        arrays[Columns::flagNames[i]] = arrayOf(columns.flags[i], self);
    arrays["length"] = arrayOf(columns.lengths, self);
    arrays["offsets"] = arrayOf(columns.offsets, self);
    return arrays;
}

using Bytes = py::array_t<quint8, py::array::c_style>;
using Offsets = py::array_t<qint64>;
using Lengths = py::array_t<quint8>;

// Python may hand in anything.
void checkPayload(const Bytes &data, const Offsets &offsets, const Lengths &lengths)
{
    if (data.ndim() != 1 || offsets.ndim() != 1 || lengths.ndim() != 1
        || offsets.size() != lengths.size())
        throw py::value_error("The columns of a trace have one dimension and one length.");
    const auto offset = offsets.unchecked<1>();
    const auto length = lengths.unchecked<1>();
    for (py::ssize_t i = 0; i < offsets.size(); ++i) {
        if (offset(i) < 0 || offset(i) > data.size() || length(i) > data.size() - offset(i))
            throw py::value_error("The payload of a message is outside of the data.");
    }
}

py::array_t<quint8> padded(const Bytes &data, const Offsets &offsets, const Lengths &lengths,
                           py::ssize_t width)
{
    checkPayload(data, offsets, lengths);
    if (width < 1 || width > CAN::maxDataBytes)
        throw py::value_error("A payload has 1 to 64 bytes.");
    py::array_t<quint8> table({offsets.size(), width});
    const auto offset = offsets.unchecked<1>();
    const auto length = lengths.unchecked<1>();
    quint8 *row = table.mutable_data();
    const quint8 *const bytes = data.data();
    const py::gil_scoped_release unlocked;
    for (py::ssize_t i = 0; i < offset.size(); ++i, row += width) {
        const auto used = std::size_t(std::min<py::ssize_t>(length(i), width));
        std::memcpy(row, bytes + offset(i), used);
        std::memset(row + used, 0, std::size_t(width) - used);
    }
    return table;
}

py::array payloads(const Bytes &data, const Offsets &offsets, const Lengths &lengths)
{
    checkPayload(data, offsets, lengths);
    py::array objects(py::dtype("O"), std::vector<py::ssize_t>{offsets.size()});
    const auto offset = offsets.unchecked<1>();
    const auto length = lengths.unchecked<1>();
    auto **const object = static_cast<PyObject **>(objects.mutable_data());
    const auto *const bytes = reinterpret_cast<const char *>(data.data());
    for (py::ssize_t i = 0; i < offset.size(); ++i) {
        PyObject *const payload = PyBytes_FromStringAndSize(bytes + offset(i), length(i));
        if (!payload)
            throw py::error_already_set();
        Py_XDECREF(std::exchange(object[i], payload));
    }
    return objects;
}

} // namespace

void bindColumns(py::module_ &module)
{
    py::class_<Columns, std::shared_ptr<Columns>>(module, "Columns")
        .def("__len__", &Columns::size)
        .def_property_readonly("arrays", &arraysOf)
        .def_property_readonly("data",
                               [](const py::object &self) {
                                   return arrayOf(self.cast<const Columns &>().payload, self);
                               })
        .def_property_readonly("notes",
                               [](const Columns &columns) { return marksOf(columns.notes); })
        .def_property_readonly("bookmarks",
                               [](const Columns &columns) { return marksOf(columns.bookmarks); });
    module.def("padded", &padded, py::arg("data"), py::arg("offsets"), py::arg("lengths"),
               py::arg("width"));
    module.def("payloads", &payloads, py::arg("data"), py::arg("offsets"), py::arg("lengths"));
}
