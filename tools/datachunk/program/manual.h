#pragma once

#include "commands.h"

// What the program says of itself, all of it made of the table of commands.

/// The options that every command takes.
QList<QCommandLineOption> generalOptions();
/// Those of a command alone, and then the general ones.
QList<QCommandLineOption> optionsOf(const Command &command);

QString generalHelp();
QString commandHelp(const Command &command);

/// The manual page, in the language of man(7).
QByteArray manualPage();
/// A script for bash that completes commands, options, their values and file names.
QByteArray bashCompletion();
