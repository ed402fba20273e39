#include "timelinerows.h"

#include "columns.h"
#include "errors.h"
#include "interrupt.h"
#include "texts.h"
#include "tracefilter.h"

#include <algorithm>

namespace {

// The messages of a timeline that are wanted, in order.
class Collecting
{
public:
    explicit Collecting(const TraceTimeline &timeline) : timeline(timeline) { }

    void readAll(quint64 start, quint64 count, Interrupt &interrupt);
    void readAt(const quint64 *positions, std::size_t count, Interrupt &interrupt);
    void readOne(quint64 position);
    py::tuple result();

private:
    void take(const TraceBlock &block, int index, int count);
    void readBookmarks(quint64 start, quint64 end);

    const TraceTimeline &timeline;
    const std::shared_ptr<Columns> columns = std::make_shared<Columns>();
    quint64 gone = 0;
    // Where bookmarks are, and the rows that got them; most traces have none.
    QVector<quint64> marked;
    QVector<quint64>::const_iterator nextMarked;
};

void Collecting::take(const TraceBlock &block, int index, int count)
{
    const std::size_t row = columns->size();
    columns->append(block.messages + index, std::size_t(count));
    if (!block.notes.isEmpty()) {
        for (int i = 0; i < count; ++i) {
            const auto note = block.notes.constFind(block.messages[index + i].messageNumber);
            if (note != block.notes.constEnd())
                columns->addNote(row + std::size_t(i), *note);
        }
    }
    const quint64 position = block.position + quint64(index);
    nextMarked = std::lower_bound(nextMarked, marked.cend(), position);
    for (; nextMarked != marked.cend() && *nextMarked < position + quint64(count); ++nextMarked)
        columns->addBookmark(row + std::size_t(*nextMarked - position),
                             timeline.row(*nextMarked).bookmark.text());
}

void Collecting::readBookmarks(quint64 start, quint64 end)
{
    marked = timeline.bookmarkPositions();
    marked.erase(std::lower_bound(marked.begin(), marked.end(), end), marked.end());
    marked.erase(marked.begin(), std::lower_bound(marked.begin(), marked.end(), start));
    nextMarked = marked.cbegin();
}

// Steps that were read a moment ago are at hand for single rows.
void Collecting::readOne(quint64 position)
{
    const TraceRow row = timeline.row(position);
    if (row.state != TraceRow::Known) {
        ++gone;
        return;
    }
    columns->append(row.message);
    if (!row.note.isEmpty())
        columns->addNote(0, row.note);
    if (row.bookmark.isValid())
        columns->addBookmark(0, row.bookmark.text());
}

void Collecting::readAll(quint64 start, quint64 count, Interrupt &interrupt)
{
    count = std::min(count, timeline.count() - std::min(start, timeline.count()));
    if (count == 1)
        return readOne(start);
    columns->reserve(count);
    readBookmarks(start, start + count);
    gone += timeline.forEach(start, count, [&](const TraceBlock &block) {
        take(block, 0, block.count);
        return interrupt.goesOn();
    });
}

// A timeline reads whole steps of some thousand messages, so positions close to each other are
// visited in one go.
void Collecting::readAt(const quint64 *positions, std::size_t count, Interrupt &interrupt)
{
    constexpr quint64 farApart = 4096;
    if (count == 0)
        return;
    columns->reserve(count);
    readBookmarks(positions[0], positions[count - 1] + 1);
    const quint64 *const end = positions + count;
    for (const quint64 *next = positions; next != end && interrupt.goesOn();) {
        const quint64 *last = next;
        while (last + 1 != end && last[1] - *last < farApart)
            ++last;
        const auto wanted = quint64(last + 1 - next);
        const std::size_t before = columns->size();
        timeline.forEach(*next, *last - *next + 1, [&](const TraceBlock &block) {
            next = std::lower_bound(next, last + 1, block.position);
            for (; next <= last && *next < block.position + quint64(block.count);) {
                const quint64 *const first = next++;
                while (next <= last && *next == *first + quint64(next - first)
                       && *next < block.position + quint64(block.count))
                    ++next;
                take(block, int(*first - block.position), int(next - first));
            }
            return interrupt.goesOn();
        });
        gone += wanted - (columns->size() - before);
        next = last + 1;
    }
}

py::tuple Collecting::result()
{
    columns->finish();
    return py::make_tuple(columns, gone);
}

} // namespace

py::tuple readRange(const TraceTimeline &timeline, quint64 start, quint64 count)
{
    Collecting rows(timeline);
    workUnlocked([&](Interrupt &interrupt) { rows.readAll(start, count, interrupt); });
    return rows.result();
}

py::tuple readPositions(const TraceTimeline &timeline,
                        const py::array_t<quint64, py::array::c_style> &positions)
{
    const quint64 *const first = positions.data();
    const auto count = std::size_t(positions.size());
    if (positions.ndim() != 1 || !std::is_sorted(first, first + count))
        throw py::value_error("The positions have to rise.");
    Collecting rows(timeline);
    workUnlocked([&](Interrupt &interrupt) { rows.readAt(first, count, interrupt); });
    return rows.result();
}

quint64 countFound(const TraceTimeline &timeline, const py::object &where)
{
    const TraceExpression expression = expressionFrom(where);
    quint64 count = 0;
    workUnlocked([&](Interrupt &interrupt) {
        const TraceFilter filter = timeline.filter(expression);
        filter.wait([&interrupt] { return interrupt.goesOn(); });
        count = filter.count();
    });
    return count;
}

py::array positionsFound(const TraceTimeline &timeline, const py::object &where, quint64 start,
                         quint64 count)
{
    const TraceExpression expression = expressionFrom(where);
    const auto found = std::make_shared<Column<quint64>>();
    workUnlocked([&](Interrupt &interrupt) {
        timeline.forEachFound(expression, start, count, [&](const QVector<quint64> &positions) {
            std::copy(positions.begin(), positions.end(),
                      found->extend(std::size_t(positions.size())));
            return interrupt.goesOn();
        });
    });
    found->squeeze();
    const py::capsule owner(new std::shared_ptr<Column<quint64>>(found), [](void *pointer) {
        delete static_cast<std::shared_ptr<Column<quint64>> *>(pointer);
    });
    return py::array_t<quint64>(py::ssize_t(found->size()), found->data(), owner);
}
