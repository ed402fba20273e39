#include "traceexpression.h"

#include "expressionparser.h"
#include "framefilter.h"

#include <QCoreApplication>

struct TraceExpression::Data
{
    QString text;
    FilterNode tree{};
    FrameFilter filter{};
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
        return TraceExpression(std::make_shared<const Data>(
            isBlank ? Data{text} : Data{text, tree, FrameFilter(tree)}));
    }
    if (error)
        *error = first;
    return std::nullopt;
}

TraceExpression TraceExpression::both(const TraceExpression &a, const TraceExpression &b)
{
    if (a.text().trimmed().isEmpty())
        return b;
    if (b.text().trimmed().isEmpty())
        return a;
    const FilterNode tree{FilterNode::All, false, {}, {a.d->tree, b.d->tree}};
    const QString text = QStringLiteral("(%1) and (%2)").arg(a.text(), b.text());
    return TraceExpression(std::make_shared<const Data>(Data{text, tree, FrameFilter(tree)}));
}

QString TraceExpression::text() const
{
    return d->text;
}

bool TraceExpression::matches(const CAN::CanRxMessage &message, const QString &note) const
{
    return d->filter.matches(MessageView(message), {nullptr, note, true});
}
