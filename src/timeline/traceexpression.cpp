#include "traceexpression.h"

#include "expressionparser.h"
#include "framefilter.h"

#include <QCoreApplication>

struct TraceExpression::Data
{
    QString text;
    FrameFilter filter;
};

const FrameFilter &filterOf(const TraceExpression &expression)
{
    return expression.d->filter;
}

TraceExpression::TraceExpression(std::shared_ptr<const Data> data) : d(std::move(data)) { }

TraceExpression::TraceExpression() : TraceExpression(std::make_shared<const Data>()) { }

std::optional<TraceExpression> TraceExpression::parse(const QString &text, Error *error)
{
    Error first;
    FilterNode tree;
    const bool isBlank = text.trimmed().isEmpty();
    if (text.size() > mostCharacters) {
        first = {
            mostCharacters + 1,
            QCoreApplication::translate("TraceExpression", "A filter has at most %1 characters.")
                .arg(mostCharacters)};
    } else if (isBlank || parseExpression(text, tree, first)) {
        return TraceExpression(
            std::make_shared<const Data>(Data{text, isBlank ? FrameFilter() : FrameFilter(tree)}));
    }
    if (error)
        *error = first;
    return std::nullopt;
}

QString TraceExpression::text() const
{
    return d->text;
}

bool TraceExpression::matches(const CAN::CanRxMessage &message, const QString &note) const
{
    return d->filter.matches(MessageView(message), {nullptr, note, true});
}
