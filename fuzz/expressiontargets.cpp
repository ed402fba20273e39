#include "framefilter.h"
#include "messages.h"
#include "targets.h"

namespace {

void requireError(const QString &text, const TraceExpression::Error &error)
{
    require(error.column >= 1 && error.column <= text.size() + 1 && !error.text.isEmpty(),
            "an error has a place and a text");
}

void requireNegation(const FrameFilter &filter, const FrameFilter &negation)
{
    for (quint32 seed = 0; seed < 70; ++seed) {
        const CAN::CanRxMessage message = makeMessage(seed, int(seed % 65));
        const MessageView view(message);
        const FrameFilter::Context context{nullptr, u"note", seed % 2 != 0};
        require(filter.matches(view, context) != negation.matches(view, context),
                "a filter and its negation take every message between them");
        ChunkFacts facts;
        facts.hasNotes = seed % 3 != 0;
        const auto verdict = filter.judge(view.key(), facts);
        const auto opposite = negation.judge(view.key(), facts);
        require((verdict == FrameFilter::Verdict::Depends)
                        == (opposite == FrameFilter::Verdict::Depends)
                    && (verdict != opposite || opposite == FrameFilter::Verdict::Depends),
                "verdicts are opposite as well");
    }
}

void parse(const QByteArray &bytes)
{
    const QString text = QString::fromUtf8(bytes);
    TraceExpression::Error error;
    const auto expression = TraceExpression::parse(text, &error);
    if (!expression) {
        requireError(text, error);
        return;
    }
    const QString condition = text.trimmed().isEmpty() ? QStringLiteral("id>=0") : text;
    const auto negation = TraceExpression::parse(QStringLiteral("not (%1)").arg(condition), &error);
    if (negation)
        requireNegation(filterOf(*expression), filterOf(*negation));
    else
        require(text.count(QLatin1Char('(')) >= TraceExpression::mostLevels
                    || text.size() + 6 > TraceExpression::mostCharacters,
                "what is an expression is one in parentheses");
}

} // namespace

std::vector<FuzzTarget> expressionTargets()
{
    return {{QStringLiteral("expression"), parse}};
}
