#pragma once

/// Has the texts of the program, of the library and of Qt come in the language that the environment
/// asks for, where there are such. Needs the application object.
void installTranslations();
