#pragma once

#include "filternode.h"
#include "traceexpression.h"

/// Reads an expression that is not blank into \a tree. Returns false and the first error where
/// \a text is none.
bool parseExpression(const QString &text, FilterNode &tree, TraceExpression::Error &error);
