#pragma once

#include "pythonheaders.h"

/// Tells Python of the functions that write traces.
void bindWriting(py::module_ &module);
