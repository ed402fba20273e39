#pragma once

#include <QtGlobal>

namespace LineFields {

/// How often on this thread a text has been taken for a number, or a piece of a line for a frame,
/// that is none. The strict readers go on with 0 then, and whoever owns the line finds out by
/// comparing: so a line without any costs one comparison, and no reader has to hand results
/// upwards.
quint64 &misreads();

} // namespace LineFields
