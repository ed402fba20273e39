#pragma once

#include "findinglist.h"
#include "recordview.h"

#include <optional>
#include <utility>

/// Who has numbered the messages of a chunk.
enum class Numbering {
    ByStore, ///< a store: one after the other
    Free     ///< anybody: a selection leaves some out, and applications set what they like
};

/// Behind the highest number a store begins at 0 again.
inline bool isNext(quint32 number, quint32 next)
{
    return next - number == 1;
}

/// Looks at the records of a chunk, one after the other. Bytes count from the first record's start.
class RecordCheck
{
public:
    RecordCheck(Numbering numbering, FindingList &findings)
        : numbering(numbering), findings(findings)
    {
    }

    void look(RecordView record);
    /// To be called behind the last one.
    void end();

    /// What stands at both ends, apart from records of nothing but zeros.
    struct Message
    {
        quint32 number = 0;
        qint64 time = 0; ///< in microseconds
    };
    std::optional<Message> first() const { return firstMessage; }
    std::optional<Message> last() const { return lastMessage; }

private:
    struct Place
    {
        qint64 record = 0;
        qint64 byte = 0;
    };

    void endZeros();
    void lookAtValues(RecordView record);
    void lookAtOrder(const Message &message);
    void lookAtNumbers(quint32 before, quint32 next);
    template <typename MakeText>
    void tell(TraceFinding::Severity severity, TraceFinding::Kind kind, const MakeText &makeText)
    {
        findings.addRecord(severity, kind, place.byte, place.record, makeText);
    }

    const Numbering numbering;
    FindingList &findings;
    Place place; // of the record that is looked at
    Place zerosPlace;
    qint64 zeros = 0; // records in a row up to here
    std::optional<Message> firstMessage;
    std::optional<Message> lastMessage;
};
