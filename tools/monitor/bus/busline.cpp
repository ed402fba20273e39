#include "busline.h"

#include <utility>

BusLine::BusLine(const QString &name, quint8 number, std::shared_ptr<MessageSink> sink)
    : feed(std::make_shared<LineFeed>(std::move(sink))), ownName(name), ownNumber(number)
{
}

void BusLine::setState(State state, const QString &errorText)
{
    if (state == ownState && errorText == error)
        return;
    ownState = state;
    error = errorText;
    emit stateChanged();
}

void BusLine::fail(const QString &text, const QString &advice)
{
    setState(Failed, text);
    emit notice({Notice::Failure, text, advice});
}

QString BusLine::stateText() const
{
    switch (ownState) {
    case Starting:
        return tr("connecting");
    case Running:
        return isPaced() ? tr("running") : tr("connected");
    case Paused:
        return tr("paused");
    case Lost:
        return tr("lost, trying again");
    case Failed:
        return tr("failed");
    default:
        return tr("stopped");
    }
}
