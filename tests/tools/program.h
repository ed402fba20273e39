#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

/// What a run of the datachunk program left behind. A status of -1 stands for a crash or a run
/// that did not end.
struct ProgramResult
{
    int status = -1;
    QByteArray output;
    QByteArray errors;
};

QString programPath();

/// Runs the program to its end.
ProgramResult runProgram(const QStringList &arguments, const QByteArray &input = {});

void writeFile(const QString &fileName, const QByteArray &content);

/// candump log lines "(N.000000) can0 123#..." with the number from \a first on as time and
/// payload.
QByteArray candumpLines(int first, int count);

/// The seconds of all messages in a chunk file, read with the library.
QList<int> secondsInChunk(const QString &fileName);

/// The numbers from \a first on.
QList<int> numbersFrom(int first, int count);
