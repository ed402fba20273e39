#include "choicemenus.h"

#include "appearance.h"

#include <QActionGroup>
#include <QApplication>
#include <QMenu>
#include <QMessageBox>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(MainWindow)
};

void addChoice(QActionGroup *group, const QString &text, bool isChosen,
               const std::function<void()> &choose)
{
    QAction *action = group->addAction(text);
    action->setCheckable(true);
    action->setChecked(isChosen);
    QObject::connect(action, &QAction::triggered, group, choose);
}

void tellOfNextStart(QWidget *window)
{
    auto *box =
        new QMessageBox(QMessageBox::Information, Texts::tr("Language"),
                        Texts::tr("The language changes when the program is started again."),
                        QMessageBox::Ok, window);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

} // namespace

void ChoiceMenus::addThemes(QMenu *menu)
{
    auto *group = new QActionGroup(menu);
    const auto add = [group](const QString &text, Appearance::Theme theme) {
        addChoice(group, text, Appearance::theme() == theme,
                  [theme] { Appearance::setTheme(theme); });
    };
    add(Texts::tr("&System"), Appearance::SystemTheme);
    add(Texts::tr("&Light"), Appearance::LightTheme);
    add(Texts::tr("&Dark"), Appearance::DarkTheme);
    menu->addActions(group->actions());
}

void ChoiceMenus::addLanguages(QMenu *menu)
{
    auto *group = new QActionGroup(menu);
    const auto add = [group, menu](const QString &text, const QString &language) {
        addChoice(group, text, Appearance::language() == language, [menu, language] {
            Appearance::setLanguage(language);
            tellOfNextStart(menu->window());
        });
    };
    // Everybody finds his own language by its own name.
    add(Texts::tr("&System"), QString());
    add(QStringLiteral("&Deutsch"), QStringLiteral("de"));
    add(QStringLiteral("&English"), QStringLiteral("en"));
    add(QStringLiteral("&Français"), QStringLiteral("fr"));
    menu->addActions(group->actions());
}
