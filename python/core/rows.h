#pragma once

#include "pythonheaders.h"

#include "canrxmessage.h"
#include "columns.h"

#include <QMap>
#include <QString>

#include <vector>

/// The columns of a trace as Python has them, cut and picked as it likes, row by row as messages.
/// Made and destroyed with the interpreter's lock; asked without.
class Rows
{
public:
    using Texts = QMap<qint64, QString>;

    /// Raises where the columns do not fit together.
    Rows(const py::dict &arrays, const py::array_t<quint8, py::array::c_style> &data,
         const py::dict &notes, const py::dict &bookmarks);

    qint64 size() const { return count; }
    CAN::CanRxMessage message(qint64 row) const;

    Texts notes;     ///< by row
    Texts bookmarks; ///< likewise

private:
    template <typename T> struct Field
    {
        explicit Field(const py::object &values)
            : array(values.cast<py::array_t<T>>()),
              bytes(reinterpret_cast<const char *>(array.data()))
        {
            if (array.ndim() != 1)
                throw py::value_error("A column has one dimension.");
            stride = array.strides(0);
        }
        // Cut and turned arrays lie as they like.
        T operator[](qint64 row) const
        {
            return *reinterpret_cast<const T *>(bytes + row * stride);
        }

        py::array_t<T> array;
        const char *bytes;
        py::ssize_t stride = 0;
    };

    void check() const;

    const Field<qint64> times;
    const Field<quint32> numbers;
    const Field<quint16> lines;
    const Field<quint32> identifiers;
    const Field<quint8> lengths;
    const Field<qint64> offsets;
    std::vector<Field<bool>> flags;
    const py::array_t<quint8, py::array::c_style> data;
    const quint8 *const bytes;
    const qint64 count;
};
