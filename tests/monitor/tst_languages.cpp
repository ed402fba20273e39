#include "appearance.h"
#include "mainwindow.h"
#include "temporarysettings.h"

#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>
#include <QTranslator>

/// The window in each of its languages.
class TestLanguages : public QObject
{
    Q_OBJECT
private slots:
    void cleanup();
    void oneIsToldFromMany_data();
    void oneIsToldFromMany();
    void everyKeyIsOneActionOfAMenu_data();
    void everyKeyIsOneActionOfAMenu();
    void everyKeyIsOneButton_data();
    void everyKeyIsOneButton();

private:
    const TemporarySettings settings;
};

namespace {

void speak(const QString &language)
{
    Appearance::setLanguage(language);
    Appearance::installLanguage();
}

QString copied(int count)
{
    return QCoreApplication::translate("TraceView", "%n message(s) copied.", nullptr, count);
}

// "menu: a text & another" for each letter that two of the same menu have.
QStringList clashesOf(const QWidget &menu, const QString &name)
{
    static const QRegularExpression key(QStringLiteral("&(\\S)"));
    QStringList clashes;
    QMap<QString, QString> textOfKey;
    for (const QAction *action : menu.actions()) {
        const QRegularExpressionMatch found = key.match(action->text());
        QString &text = textOfKey[found.captured(1).toLower()];
        if (found.hasMatch() && !text.isEmpty())
            clashes += name + QStringLiteral(": ") + text + QStringLiteral(" & ") + action->text();
        text = action->text();
        if (action->menu()) {
            emit action->menu()->aboutToShow();
            clashes += clashesOf(*action->menu(), action->text());
        }
    }
    return clashes;
}

} // namespace

void TestLanguages::cleanup()
{
    qDeleteAll(qApp->findChildren<QTranslator *>());
}

void TestLanguages::oneIsToldFromMany_data()
{
    QTest::addColumn<QString>("one");
    QTest::addColumn<QString>("many");
    QTest::newRow("de") << "1 Nachricht kopiert."
                        << "2 Nachrichten kopiert.";
    QTest::newRow("en") << "1 message copied."
                        << "2 messages copied.";
    QTest::newRow("fr") << QStringLiteral("1 message copié.")
                        << QStringLiteral("2 messages copiés.");
    QTest::newRow("it") << "1 message copied."
                        << "2 messages copied.";
}

void TestLanguages::oneIsToldFromMany()
{
    QFETCH(QString, one);
    QFETCH(QString, many);
    speak(QString::fromLatin1(QTest::currentDataTag()));
    QCOMPARE(copied(1), one);
    QCOMPARE(copied(2), many);
}

void TestLanguages::everyKeyIsOneActionOfAMenu_data()
{
    QTest::addColumn<QString>("language");
    for (const char *language : {"de", "en", "fr"})
        QTest::newRow(language) << language;
}

void TestLanguages::everyKeyIsOneActionOfAMenu()
{
    QFETCH(QString, language);
    speak(language);
    const MainWindow window;
    QCOMPARE(clashesOf(*window.menuBar(), QString()).join(QLatin1Char('\n')), QString());
}

void TestLanguages::everyKeyIsOneButton_data()
{
    everyKeyIsOneActionOfAMenu_data();
}

// A key of two buttons presses none.
void TestLanguages::everyKeyIsOneButton()
{
    QFETCH(QString, language);
    speak(language);
    const MainWindow window;
    QSet<QKeySequence> keys;
    for (const auto *button : window.findChildren<QPushButton *>()) {
        if (!button->isVisibleTo(&window) || button->shortcut().isEmpty())
            continue;
        QVERIFY2(!keys.contains(button->shortcut()), qPrintable(button->text()));
        keys.insert(button->shortcut());
    }
    for (const QAction *menu : window.menuBar()->actions())
        QVERIFY2(!keys.contains(QKeySequence::mnemonic(menu->text())), qPrintable(menu->text()));
    QVERIFY(keys.size() > 2);
}

QTEST_MAIN(TestLanguages)
#include "tst_languages.moc"
