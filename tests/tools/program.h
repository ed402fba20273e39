#pragma once

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>

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

/// The words between the blanks of a text, as the arguments of a program.
QStringList words(const QString &text);

/// Writes a chunk with one message of each kind. Their numbers are 10 to 14 and their seconds
/// 100 to 104; the second has the note "look here", the third the bookmark "mark".
void writeKinds(const QString &fileName);

/// A test whose functions each work in a folder of their own. It is the current one, holds the
/// temporary files of the program, too, and none of them may be left at the end.
class FolderTest : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();

private:
    std::unique_ptr<QTemporaryDir> folder;
};
