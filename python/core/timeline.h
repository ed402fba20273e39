#pragma once

#include "pythonheaders.h"

/// Tells Python of timelines.
void bindTimeline(py::module_ &module);
