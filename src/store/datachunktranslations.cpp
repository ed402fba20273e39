#include "datachunktranslations.h"

#include <QCoreApplication>
#include <QPointer>
#include <QTranslator>

#include <memory>

// A macro of Qt that works outside of namespaces only. Linked statically, what is embedded would be
// left out if nobody asked for it.
static void initCatalogues()
{
    Q_INIT_RESOURCE(datachunkhandler_texts);
}

namespace {

bool isEnglish(const QString &language)
{
    return language == QLatin1String("C") || language.startsWith(QLatin1String("en"));
}

// Left to itself, a translator passes English, for which there is no file, and goes on to what is
// liked less.
bool loadLikedBest(QTranslator &translator, const QLocale &locale)
{
    const QStringList languages = locale.uiLanguages();
    for (const QString &language : languages) {
        if (isEnglish(language))
            return false;
        if (translator.load(QLatin1String("datachunkhandler_") + language,
                            QStringLiteral(":/datachunk/texts"), QStringLiteral("-")))
            return true;
    }
    return false;
}

} // namespace

bool DatachunkTranslations::install(const QLocale &locale)
{
    static QPointer<QTranslator> installed;
    initCatalogues();
    delete installed;
    QCoreApplication *application = QCoreApplication::instance();
    if (!application)
        return false;
    auto translator = std::make_unique<QTranslator>();
    if (!loadLikedBest(*translator, locale))
        return false;
    translator->setParent(application);
    installed = translator.release();
    return QCoreApplication::installTranslator(installed);
}
