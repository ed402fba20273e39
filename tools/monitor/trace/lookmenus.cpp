#include "lookmenus.h"

#include "messagemodel.h"

#include <QMenu>

LookMenus::LookMenus(MessageModel *model, QWidget *parent)
    : QObject(parent), model(model), ownTimes(new QMenu(tr("&Time"), parent)),
      ownNumbers(new QMenu(tr("&Numbers"), parent))
{
    const auto time = [](TraceLook::Time time) {
        return [time](TraceLook &look) { look.time = time; };
    };
    addChoice(ownTimes, tr("Since the &start"), time(TraceLook::SinceStart));
    addChoice(ownTimes, tr("Since the message &before"), time(TraceLook::SinceRowBefore));
    addChoice(ownTimes, tr("Since the &marked message"), time(TraceLook::SinceMark));
    addChoice(ownTimes, tr("&Date and time of day"), time(TraceLook::DateAndTime));
    addChoice(ownTimes, tr("Seconds as &recorded"), time(TraceLook::Seconds));
    const auto identifiers = [](int base) {
        return [base](TraceLook &look) { look.identifierBase = base; };
    };
    const auto data = [](int base) { return [base](TraceLook &look) { look.dataBase = base; }; };
    addChoice(ownNumbers, tr("&Hexadecimal identifiers"), identifiers(16));
    addChoice(ownNumbers, tr("&Decimal identifiers"), identifiers(10));
    ownNumbers->addSeparator();
    addChoice(ownNumbers, tr("He&xadecimal data"), data(16));
    addChoice(ownNumbers, tr("D&ecimal data"), data(10));
    connect(ownTimes, &QMenu::aboutToShow, this, &LookMenus::update);
    load();
}

void LookMenus::addChoice(QMenu *menu, const QString &text,
                          const std::function<void(TraceLook &)> &choose)
{
    QAction *action = menu->addAction(text);
    action->setCheckable(true);
    choices.append({action, choose});
    connect(action, &QAction::triggered, this, [this, choose] {
        const TraceLook before = model->look();
        TraceLook look = model->look();
        choose(look);
        look.save();
        model->setLook(look);
        update();
        if (look.time != before.time)
            emit chosen(TraceTableModel::TimeColumn);
        if (look.dataBase != before.dataBase)
            emit chosen(TraceTableModel::DataColumn);
    });
}

void LookMenus::load()
{
    TraceLook look = TraceLook::load();
    if (model->look().time == TraceLook::SinceMark)
        look.time = TraceLook::SinceMark;
    if (!(look == model->look()))
        model->setLook(look);
    update();
}

void LookMenus::update()
{
    for (const Choice &choice : choices) {
        TraceLook look = model->look();
        choice.choose(look);
        choice.action->setChecked(look == model->look());
    }
}
