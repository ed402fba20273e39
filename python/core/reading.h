#pragma once

#include "pythonheaders.h"

#include "datachunkhelper.h"
#include "interrupt.h"
#include "traceexpression.h"
#include "tracestream.h"

/// One trace to read from front to back, as Python has asked for it.
class Reading
{
public:
    /// Raises where \a mode, \a type or \a where are none.
    Reading(const py::str &path, const py::str &mode, const py::object &type,
            const py::str &description, const py::object &where);

    /// Hands on the messages that are wanted, without the interpreter's lock. Raises where the
    /// file holds none that can be read, and when Python interrupts.
    void run(const TraceStream::Take &take);

    /// What became of the lines, the type and the problems, as the last run has found them.
    py::dict report() const;

private:
    bool findType();
    void read(const TraceStream::Take &take, Interrupt &interrupt);

    const QString path;
    const TraceExpression where;
    const QString description;
    DatachunkHelper::ImportMode mode = DatachunkHelper::Tolerant;
    DatachunkHelper::ImportFileType type = DatachunkHelper::Unknown;
    bool isTypeKnown = false;
    TraceStream::Result result = TraceStream::Failed;
    ImportReport lines;
    QStringList problems;
};

/// Tells Python of the functions.
void bindReading(py::module_ &module);
