#pragma once

// Python's headers have members called "slots", which Qt makes a word of the language: they come
// first in every file.
#include <pybind11/functional.h>
#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

namespace py = pybind11;
