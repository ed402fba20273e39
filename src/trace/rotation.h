#pragma once

#include <QtGlobal>

/// A store moves its messages to a chunk file this much below its limit.
constexpr quint32 rotationMargin = 5000;
