#include "translations.h"

#include "datachunktranslations.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

namespace {

const QString resources = QStringLiteral(":/datachunk/texts");

QString folderOfQt()
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return QLibraryInfo::path(QLibraryInfo::TranslationsPath);
#else
    return QLibraryInfo::location(QLibraryInfo::TranslationsPath);
#endif
}

// False when there is no such catalogue.
bool install(const QString &fileName, const QString &folder)
{
    auto *translator = new QTranslator(QCoreApplication::instance());
    return translator->load(fileName, folder, QStringLiteral("-"))
        && QCoreApplication::installTranslator(translator);
}

} // namespace

// Qt goes by LANGUAGE whatever else is set. To all other programs this locale means no translation.
bool isUntranslated()
{
    for (const char *name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const QByteArray locale = qgetenv(name);
        if (!locale.isEmpty())
            return locale == "C" || locale == "POSIX";
    }
    return false;
}

void installTranslations(const QString &program, const QLocale &locale)
{
    if (!DatachunkTranslations::install(locale)) {
        // The texts of the sources, with the forms for one and for many.
        install(program + QLatin1String("_en"), resources);
        return;
    }
    // The library has the same languages, and has asked whether English is liked better.
    const QStringList languages = locale.uiLanguages();
    for (const QString &language : languages) {
        if (!install(program + QLatin1Char('_') + language, resources))
            continue;
        install(QLatin1String("qtbase_") + language, folderOfQt());
        return;
    }
}
