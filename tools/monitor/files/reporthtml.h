#pragma once

#include "importreport.h"
#include "tracesorting.h"

/// What became of the lines of an imported trace, as a page for a text browser. The numbers of
/// lines lead to "line:NUMBER", where \a hasLines says that they can be shown.
QString reportHtml(const ImportSource &source, const ImportReport &report, bool hasLines);
