#pragma once

/// Registers every type that signals, slots and queued calls of the library carry, by the names
/// that callers may use. Any thread; repeated calls cost next to nothing.
void registerMetaTypes();
