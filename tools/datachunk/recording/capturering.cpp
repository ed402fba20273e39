#include "capturering.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace {

qint64 bytesOf(const QString &note)
{
    return note.size() * qint64(sizeof(QChar));
}

} // namespace

QString joinedNotes(const QString &first, const QString &second)
{
    constexpr int longest = 2000;
    if (first.isEmpty() || second.isEmpty())
        return first + second;
    return first.size() + second.size() > longest ? first : first + QLatin1String(" ; ") + second;
}

qint64 CaptureRing::bytes() const
{
    // What a map and the system take for each of its entries, beside the entry.
    constexpr qint64 bytesOfNode = 48;
    constexpr qint64 bytesOfEntry = qint64(sizeof(decltype(held)::value_type)) + bytesOfNode;
    return qint64(held.size()) * bytesOfEntry + qint64(arrivals.size() * sizeof(Key)) + noteBytes;
}

void CaptureRing::add(const CAN::CanRxMessage &message, qint64 time, const QString &note)
{
    const Key key(time, nextNumber++);
    held.emplace_hint(held.end(), key, message);
    arrivals.push_back(key);
    if (note.isEmpty())
        return;
    notes.emplace(key.second, note);
    noteBytes += bytesOf(note);
}

QString CaptureRing::takeBetween(qint64 begin, qint64 end, const Visit &visit)
{
    const auto first = held.lower_bound({begin, 0});
    const auto behind = held.lower_bound({end + 1, 0});
    std::vector<decltype(held)::const_iterator> found;
    for (auto next = first; next != behind; ++next)
        found.push_back(next);
    std::sort(found.begin(), found.end(),
              [](const auto &a, const auto &b) { return a->first.second < b->first.second; });
    for (const auto &next : found)
        visit(next->second, takeNotesUntil(next->first.second));
    held.erase(first, behind);
    forgetTaken();
    return takeNotesUntil(nextNumber);
}

QString CaptureRing::takeNotesUntil(quint64 number)
{
    QString joined;
    while (!notes.empty() && notes.begin()->first <= number) {
        const QString note = notes.begin()->second;
        joined = joinedNotes(joined, note);
        noteBytes -= bytesOf(note);
        notes.erase(notes.begin());
    }
    return joined;
}

void CaptureRing::forgetTaken()
{
    while (!arrivals.empty() && held.find(arrivals.front()) == held.end())
        arrivals.pop_front();
}

QString CaptureRing::dropOldest()
{
    const Key oldest = arrivals.front();
    held.erase(oldest);
    forgetTaken();
    const QString note = takeNotesUntil(oldest.second);
    if (note.isEmpty() || held.empty())
        return note;
    const quint64 next = arrivals.front().second;
    const QString both = joinedNotes(note, takeNotesUntil(next));
    notes.emplace(next, both);
    noteBytes += bytesOf(both);
    return {};
}

void CaptureRing::clear()
{
    held.clear();
    arrivals.clear();
    notes.clear();
    noteBytes = 0;
}
