#pragma once

#include "datachunkglobal.h"

#include <QLocale>

/// The texts of the library in other languages than English: German and French, which it carries
/// within itself. It speaks English until the application asks for another language.
namespace DatachunkTranslations {

/// Has all texts from here on come in the language of \a locale that its user likes best and that
/// there is. Replaces what an earlier call has installed. False, and texts are in English, when
/// English is liked better, there is none of the languages, or there is no QCoreApplication yet.
/// The application's thread.
DATACHUNK_EXPORT bool install(const QLocale &locale = QLocale::system());

} // namespace DatachunkTranslations
