#pragma once

class QMenu;

/// Menus for how the program looks and what it speaks.
namespace ChoiceMenus {

void addThemes(QMenu *menu);
void addLanguages(QMenu *menu);

} // namespace ChoiceMenus
