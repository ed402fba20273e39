#pragma once

/// \file
/// When a store rotates.

#include <QtGlobal>

/// A store moves its messages to a chunk file this far below its message limit; a limit below it
/// is never reached.
constexpr quint32 rotationMargin = 5000;
