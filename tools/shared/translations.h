#pragma once

#include <QLocale>
#include <QString>

/// Has the texts of \a program, of the library and of Qt come in the language of \a locale, where
/// there are such, and in English otherwise. Needs the application object.
void installTranslations(const QString &program, const QLocale &locale = QLocale::system());

/// Whether the environment asks for English in the one way that Qt does not know.
bool isUntranslated();
