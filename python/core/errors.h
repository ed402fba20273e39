#pragma once

#include "pythonheaders.h"

#include "traceexpression.h"

#include <QString>
#include <QStringList>

/// Raises datachunk.TraceError: a file that is there holds nothing that can be read.
[[noreturn]] void raiseTraceError(const QStringList &problems);

/// Raises OSError, or what of it stands for \a code.
[[noreturn]] void raiseSystemError(int code);

/// Raises OSError with a text that the library has for the failure.
[[noreturn]] void raiseFileError(const QString &text);

/// The expression of a text of Python; None takes every message. Raises datachunk.ExpressionError.
TraceExpression expressionFrom(const py::object &text);
