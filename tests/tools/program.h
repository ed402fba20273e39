#pragma once

#include "messages.h"
#include "storefixture.h"

#include <QObject>
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

/// Runs the program to its end with the arguments of a shell's command line. \a limits are
/// commands that the shell carries out before.
ProgramResult run(const QString &arguments, const QByteArray &input = {},
                  const QString &limits = {});

/// The output of a run that succeeds, and the errors of one that fails without any output; what
/// else it did, otherwise.
QByteArray outputOf(const QString &arguments, const QByteArray &input = {});
QByteArray errorsOf(const QString &arguments, const QByteArray &input = {},
                    const QString &limits = {});

/// The seconds of all messages in a chunk file, or in lines of the text form.
QList<int> secondsInChunk(const QString &fileName);
QList<int> secondsInText(const QByteArray &text);

/// The numbers from \a first on.
QList<int> numbersFrom(int first, int count);

/// Names of everything in a folder, sorted, but for its directory of chunks.
QStringList namesIn(const QString &folder);

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
    QByteArray otherTemporary;
};
