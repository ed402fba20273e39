#pragma once

#include <QStringList>

/// Whether the programs are there that read Parquet files back; ./test.sh installs them.
bool haveReaders();
constexpr char noReaders[] = "The readers are not installed; with a network ./test.sh does so.";

/// What read.mjs prints with such arguments; what else it did, where it fails.
QString readByOthers(const QStringList &arguments);
