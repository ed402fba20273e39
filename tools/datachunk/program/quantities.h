#pragma once

#include <QCommandLineParser>

/// The value of an option as a time in microseconds: a whole number with the unit ms, s, min or h,
/// or of seconds without a unit. \a byDefault without the option. False, with the usage error
/// printed, when it is none or not from \a least to \a most.
bool timeOption(const QCommandLineParser &parser, const QString &name, qint64 least, qint64 most,
                qint64 byDefault, qint64 &microseconds);

/// The same as a size in bytes, with the unit KiB, MiB or GiB, or of MiB without a unit.
bool sizeOption(const QCommandLineParser &parser, const QString &name, qint64 least, qint64 most,
                qint64 byDefault, qint64 &bytes);
