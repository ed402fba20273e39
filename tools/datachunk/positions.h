#pragma once

#include <QCommandLineParser>
#include <QList>

#include <limits>
#include <vector>

/// The options "range" and "select".
QList<QCommandLineOption> positionOptions();

/// Positions in a trace: all of them, a range or single ones. The first message is at 0.
class Positions
{
public:
    /// Takes over what the options ask for. False, with the usage error printed, when they are
    /// wrong.
    bool read(const QCommandLineParser &parser);

    bool contains(quint64 position) const;
    quint64 last() const { return end; }

private:
    bool readRange(const QString &text);
    bool readSingle(const QString &text);

    quint64 begin = 0;
    quint64 end = std::numeric_limits<quint64>::max(); // included
    std::vector<quint64> single;                       // sorted; when not empty, exactly these
};
