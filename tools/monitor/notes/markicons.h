#pragma once

#include <QIcon>

class QPalette;

/// Pictures of notes and bookmarks in the colours of a palette, for any resolution.
namespace MarkIcons {

QIcon note(const QPalette &palette);
QIcon bookmark(const QPalette &palette);

} // namespace MarkIcons
