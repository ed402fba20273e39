#include "errors.h"

#include "texts.h"

#include <cerrno>

namespace {

template <typename... Values> [[noreturn]] void raise(const char *name, const Values &...values)
{
    const py::object type = py::module_::import("datachunk._errors").attr(name);
    PyErr_SetObject(type.ptr(), type(values...).ptr());
    throw py::error_already_set();
}

} // namespace

void raiseTraceError(const QStringList &problems)
{
    raise("TraceError", textFor(problems.join(QLatin1Char(' '))));
}

void raiseSystemError(int code)
{
    errno = code;
    PyErr_SetFromErrno(PyExc_OSError);
    throw py::error_already_set();
}

void raiseFileError(const QString &text)
{
    PyErr_SetObject(PyExc_OSError, textFor(text).ptr());
    throw py::error_already_set();
}

TraceExpression expressionFrom(const py::object &text)
{
    if (text.is_none())
        return {};
    if (!py::isinstance<py::str>(text))
        throw py::type_error("An expression is a text.");
    TraceExpression::Error error;
    const auto expression = TraceExpression::parse(textFrom(text), &error);
    if (!expression)
        raise("ExpressionError", textFor(error.text), py::int_(error.column), text);
    return *expression;
}
