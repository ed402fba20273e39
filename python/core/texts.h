#pragma once

#include "pythonheaders.h"

#include <QString>
#include <QStringList>

/// A text of Python as Qt has it. What is no Unicode (a lone surrogate) becomes U+FFFD.
inline QString textFrom(const py::handle &text)
{
    const auto bytes =
        py::reinterpret_steal<py::bytes>(PyUnicode_AsEncodedString(text.ptr(), "utf-8", "replace"));
    if (!bytes)
        throw py::error_already_set();
    return QString::fromUtf8(PyBytes_AS_STRING(bytes.ptr()), int(PyBytes_GET_SIZE(bytes.ptr())));
}

/// The other way round.
inline py::str textFor(const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    return py::str(bytes.constData(), std::size_t(bytes.size()));
}

/// A list of texts.
inline py::list textsFor(const QStringList &texts)
{
    py::list list;
    for (const QString &text : texts)
        list.append(textFor(text));
    return list;
}
