#pragma once

#include <QString>

#include <optional>

/// The test of a filter expression for the times that \a text tells: "A..B", both included, of
/// which one may be missing. An end is seconds with up to six digits behind the point, a date with
/// or without a time of day, in UTC as records have it, or a time of day, which counts from
/// midnight. Nothing when the text is no such span.
std::optional<QString> timeSpanTest(const QString &text);
