#include "recordcheck.h"

#include "checktexts.h"

#include <algorithm>

using Finding = TraceFinding;

void RecordCheck::look(RecordView record)
{
    const char *const bytes = record.bytes();
    const qint64 size = record.end() - bytes;
    if (std::all_of(bytes, record.end(), [](char byte) { return byte == 0; })) {
        if (zeros++ == 0)
            zerosPlace = place;
    } else {
        endZeros();
        lookAtValues(record);
        lookAtOrder({record.number(), record.time()});
    }
    ++place.record;
    place.byte += size;
}

void RecordCheck::end()
{
    endZeros();
}

void RecordCheck::endZeros()
{
    const qint64 count = std::exchange(zeros, 0);
    // The first message of a trace may be all zeros, and no other one.
    if (count == 1 && zerosPlace.record == 0)
        firstMessage = lastMessage = Message();
    else if (count > 0)
        findings.add(Finding::Error, Finding::Zeros,
                     CheckTexts::tr("%1 records hold nothing but zeros, as a loss of power "
                                    "leaves them.")
                         .arg(count),
                     zerosPlace.byte, zerosPlace.record);
}

void RecordCheck::lookAtValues(RecordView record)
{
    constexpr quint32 mostId = 0x1FFFFFFF;
    constexpr qint32 mostMicroseconds = 999999;
    if (!record.hasPlainFlags())
        tell(Finding::Error, Finding::ValueOutOfBounds, [&] {
            return CheckTexts::tr("A flag of message %1 is neither 0 nor 1.").arg(record.number());
        });
    if (record.id() > mostId && !record.key().isError())
        tell(Finding::Remark, Finding::ValueOutOfBounds, [&] {
            return CheckTexts::tr("The identifier of message %1 has more than 29 bits: %2.")
                .arg(record.number())
                .arg(record.id(), 0, 16);
        });
    if (record.microseconds() < 0 || record.microseconds() > mostMicroseconds)
        tell(Finding::Remark, Finding::ValueOutOfBounds, [&] {
            return CheckTexts::tr("The fraction of the time of message %1 is %2 microseconds.")
                .arg(record.number())
                .arg(record.microseconds());
        });
}

void RecordCheck::lookAtOrder(const Message &message)
{
    if (!firstMessage)
        firstMessage = message;
    const std::optional<Message> before = std::exchange(lastMessage, message);
    if (!before)
        return;
    lookAtNumbers(before->number, message.number);
    if (message.time < before->time)
        tell(Finding::Remark, Finding::TimeFalls,
             [&] { return CheckTexts::timeFalls(before->time, message.time); });
}

void RecordCheck::lookAtNumbers(quint32 before, quint32 next)
{
    const auto severity = numbering == Numbering::ByStore ? Finding::Error : Finding::Remark;
    if (isNext(before, next))
        return;
    if (next <= before)
        tell(severity, Finding::NumberRepeat, [&] {
            return CheckTexts::tr("Message %1 comes behind message %2.").arg(next).arg(before);
        });
    else
        tell(severity, Finding::NumberGap, [&] { return CheckTexts::gap(before, next); });
}
