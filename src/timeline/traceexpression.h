#pragma once

#include "canrxmessage.h"
#include "datachunkglobal.h"

#include <QString>

#include <memory>
#include <optional>

class FrameFilter;

/// Which messages of a trace are wanted, as docs/filter-expressions.md describes the words for it.
/// A value that is cheap to copy and never changes; any thread.
class DATACHUNK_EXPORT TraceExpression
{
public:
    /// Why a text is no expression.
    struct Error
    {
        int column = 0; ///< of the character where it shows, counted from 1; one behind the last
                        ///< character where the text ends too early
        QString text;   ///< a sentence for the user
    };

    static constexpr int mostCharacters = 10000; ///< a longer text is an error
    static constexpr int mostLevels = 200;       ///< and so are deeper parentheses

    /// Takes every message.
    TraceExpression();
    /// Shares what was read once; costs no more than a pointer.
    TraceExpression(const TraceExpression &other) = default;
    /// As the copy.
    TraceExpression &operator=(const TraceExpression &other) = default;

    /// Reads an expression; an empty one takes every message. Returns nothing, and tells the first
    /// error, where \a text is none. Takes a time that grows with the length only.
    static std::optional<TraceExpression> parse(const QString &text, Error *error = nullptr);

    /// Takes what both \a a and \a b take.
    static TraceExpression both(const TraceExpression &a, const TraceExpression &b);

    /// As it was written.
    QString text() const;

    /// Whether \a message, which has \a note, is wanted. Nothing is known of the messages in front
    /// of it, so that "changed" is true of each.
    bool matches(const CAN::CanRxMessage &message, const QString &note = {}) const;

private:
    struct Data;
    friend const FrameFilter &filterOf(const TraceExpression &expression);

    explicit TraceExpression(std::shared_ptr<const Data> data);

    std::shared_ptr<const Data> d; // never null
};
