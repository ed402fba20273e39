#include "appearance.h"

#include "translations.h"

#include <QApplication>
#include <QPalette>
#include <QSettings>
#include <QStyle>
#include <QStyleFactory>

namespace {

const QString themeKey = QStringLiteral("window/theme");
const QString languageKey = QStringLiteral("window/language");

QPalette lightPalette()
{
    QPalette palette(QColor(0xf0, 0xf0, 0xf0));
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::AlternateBase, QColor(0xf6, 0xf7, 0xf9));
    palette.setColor(QPalette::Highlight, QColor(0x2f, 0x6f, 0xb7));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(0x1c, 0x5f, 0xa8));
    return palette;
}

QPalette darkPalette()
{
    QPalette palette(QColor(0x2b, 0x2d, 0x30));
    const QColor text(0xdf, 0xe1, 0xe5);
    const QColor weakText(0x7f, 0x84, 0x8c);
    palette.setColor(QPalette::Base, QColor(0x1e, 0x1f, 0x22));
    palette.setColor(QPalette::AlternateBase, QColor(0x25, 0x27, 0x2a));
    palette.setColor(QPalette::ToolTipBase, QColor(0x3a, 0x3d, 0x41));
    palette.setColor(QPalette::Highlight, QColor(0x2f, 0x65, 0xa0));
    palette.setColor(QPalette::Link, QColor(0x6a, 0xa9, 0xf0));
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText,
          QPalette::HighlightedText}) {
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, weakText);
    }
    palette.setColor(QPalette::PlaceholderText, weakText);
    return palette;
}

void show(Appearance::Theme theme)
{
    if (theme == Appearance::SystemTheme) {
        static const QString systemStyle = QApplication::style()->objectName();
        QApplication::setStyle(systemStyle);
        QApplication::setPalette(QPalette());
        return;
    }
    // The one style that is in every Qt and takes all of its colours from the palette.
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(theme == Appearance::DarkTheme ? darkPalette() : lightPalette());
}

} // namespace

Appearance::Theme Appearance::theme()
{
    const int kept = QSettings().value(themeKey).toInt();
    return kept == LightTheme || kept == DarkTheme ? Theme(kept) : SystemTheme;
}

void Appearance::setTheme(Theme theme)
{
    QSettings().setValue(themeKey, int(theme));
    show(theme);
}

QString Appearance::language()
{
    return QSettings().value(languageKey).toString();
}

void Appearance::setLanguage(const QString &language)
{
    QSettings().setValue(languageKey, language);
}

void Appearance::installLanguage()
{
    const QLocale wanted(language());
    const bool isChosen = !language().isEmpty();
    // Dates and numbers are written as in the country, unless that speaks another language.
    if (isChosen && wanted.language() != QLocale::system().language())
        QLocale::setDefault(wanted);
    const QLocale ofSystem = isUntranslated() ? QLocale::c() : QLocale::system();
    installTranslations(QStringLiteral("datachunk-monitor"), isChosen ? wanted : ofSystem);
}

void Appearance::install()
{
    installLanguage();
    if (theme() != SystemTheme)
        show(theme());
}
