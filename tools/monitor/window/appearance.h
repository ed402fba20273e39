#pragma once

#include <QString>

/// How the program looks and what it speaks, as the user has chosen it.
namespace Appearance {

/// The colours of all windows.
enum Theme {
    SystemTheme, ///< the desktop's, and its style
    LightTheme,
    DarkTheme
};

/// As it was kept; the system's at first.
Theme theme();
/// Keeps it, and changes all windows.
void setTheme(Theme theme);

/// "de", "en" or "fr"; empty for the system's, as at first.
QString language();
/// Keeps it for the next start.
void setLanguage(const QString &language);

/// Has texts come in the language. Needs the application object, and no display.
void installLanguage();
/// Has windows look and speak so. Needs the application object, and none of its windows.
void install();

} // namespace Appearance
