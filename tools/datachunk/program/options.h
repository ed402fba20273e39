#pragma once

#include <QCommandLineParser>

/// The value of an option as a whole number, \a byDefault without the option. False, with the
/// usage error printed, when it is no number from \a least to \a most; \a base is 10 or 16.
bool numberOption(const QCommandLineParser &parser, const QString &name, quint64 least,
                  quint64 most, quint64 byDefault, quint64 &value, int base = 10);
