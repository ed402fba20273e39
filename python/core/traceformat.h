#pragma once

#include "pythonheaders.h"

#include "canrxmessage.h"

#include <QByteArray>
#include <QString>

#include <memory>

/// A format that traces are written in, behind one face: bytes for a file that Python has opened.
class TraceFormat
{
public:
    virtual ~TraceFormat() = default;

    /// The format of such a name; Parquet keeps what \a source tells of the trace. Raises where
    /// there is none.
    static std::unique_ptr<TraceFormat> named(const py::str &name, const py::dict &source);

    virtual void append(const CAN::CanRxMessage &message, const QString &note,
                        QByteArray &block) = 0;
    /// What became of the lines of a text, as JSON, for formats that have a place for it.
    virtual void setReport(const QString & /*report*/) { }
    virtual void finish(QByteArray &block) = 0;
    /// How many messages are written, and what was lost of others.
    virtual py::dict losses() const = 0;
};
