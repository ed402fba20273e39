#include "timeline.h"

#include "columns.h"
#include "errors.h"
#include "interrupt.h"
#include "texts.h"
#include "timelinerows.h"
#include "tracetimeline.h"

namespace {

// What numpy shows of an identifier, without gaps that would have to be described.
struct IdentifierRow
{
    quint32 identifier;
    quint8 line;
    bool extended;
    bool remote;
    bool fd;
    quint64 count;
    quint64 first;
    quint64 last;
};

std::unique_ptr<TraceTimeline> openTimeline(const std::vector<py::str> &paths)
{
    QStringList names;
    for (const py::str &path : paths)
        names.append(textFrom(path));
    std::unique_ptr<TraceTimeline> timeline;
    workUnlocked([&](Interrupt &interrupt) {
        timeline = std::make_unique<TraceTimeline>(names);
        timeline->waitForAll([&interrupt] { return interrupt.goesOn(); });
    });
    return timeline;
}

bool refresh(TraceTimeline &timeline)
{
    const quint64 before = timeline.count();
    workUnlocked([&](Interrupt &interrupt) {
        timeline.refresh();
        timeline.waitForAll([&interrupt] { return interrupt.goesOn(); });
    });
    return timeline.count() != before;
}

py::object positionOr(const std::optional<quint64> &position)
{
    return position ? py::object(py::int_(*position)) : py::object(py::none());
}

py::object find(const TraceTimeline &timeline, const py::object &where, quint64 start,
                bool isBackwards)
{
    const TraceExpression expression = expressionFrom(where);
    std::optional<quint64> found;
    workUnlocked([&](Interrupt &interrupt) {
        const auto goesOn = [&interrupt] { return interrupt.goesOn(); };
        found = isBackwards ? timeline.findPrevious(expression, start, goesOn)
                            : timeline.findNext(expression, start, goesOn);
    });
    return positionOr(found);
}

py::object positionOfNumber(const TraceTimeline &timeline, quint32 number)
{
    std::optional<quint64> found;
    {
        const py::gil_scoped_release unlocked;
        found = timeline.positionOfNumber(number);
    }
    return positionOr(found);
}

py::tuple identifiers(const TraceTimeline &timeline)
{
    QVector<TraceIdentifier> found;
    bool isExact = false;
    {
        const py::gil_scoped_release unlocked;
        found = timeline.identifiers(&isExact);
    }
    py::array_t<IdentifierRow> rows(found.size());
    IdentifierRow *row = rows.mutable_data();
    for (const TraceIdentifier &id : found)
        *row++ = {id.id, id.line, id.extended, id.remote, id.fdFrame, id.count, id.first, id.last};
    return py::make_tuple(rows, isExact);
}

py::tuple rate(const TraceTimeline &timeline, qint64 from, qint64 to, int intervals)
{
    constexpr int most = 1000000;
    // Farther away than any record, and differences still are numbers.
    constexpr qint64 mostTime = qint64(1) << 61;
    if (intervals < 1 || intervals > most || to <= from || from < -mostTime || to > mostTime)
        throw py::value_error("A rate has 1 to 1000000 intervals, and ends behind its start.");
    TraceRate rate;
    {
        const py::gil_scoped_release unlocked;
        rate = timeline.rate(from, to, intervals);
    }
    py::array_t<quint8> lines(rate.lines.size());
    std::copy(rate.lines.begin(), rate.lines.end(), lines.mutable_data());
    py::array_t<quint64> messages({intervals, rate.lines.size()});
    quint64 *next = messages.mutable_data();
    for (const QVector<quint64> &interval : qAsConst(rate.messages))
        next = std::copy(interval.begin(), interval.end(), next);
    py::array_t<quint64> errors(rate.errors.size());
    std::copy(rate.errors.begin(), rate.errors.end(), errors.mutable_data());
    return py::make_tuple(lines, messages, errors);
}

} // namespace

void bindTimeline(py::module_ &module)
{
    PYBIND11_NUMPY_DTYPE(IdentifierRow, identifier, line, extended, remote, fd, count, first, last);
    const py::call_guard<py::gil_scoped_release> unlocked;
    py::class_<TraceTimeline>(module, "Timeline")
        .def(py::init(&openTimeline), py::arg("paths"))
        .def("__len__", [](const TraceTimeline &timeline) { return timeline.count(); })
        .def("refresh", &refresh)
        .def_property_readonly(
            "problems", [](const TraceTimeline &timeline) { return textsFor(timeline.problems()); })
        .def_property_readonly("first_time", &TraceTimeline::firstTime)
        .def_property_readonly("last_time", &TraceTimeline::lastTime)
        .def("position_of_time", &TraceTimeline::positionOfTime, py::arg("time"), unlocked)
        .def("position_of_number", &positionOfNumber, py::arg("number"))
        .def("find", &find, py::arg("where"), py::arg("start"), py::arg("backwards"))
        .def("count", &countFound, py::arg("where"))
        .def("positions", &positionsFound, py::arg("where"), py::arg("start"), py::arg("count"))
        .def("read", &readRange, py::arg("start"), py::arg("count"))
        .def("read_positions", &readPositions, py::arg("positions"))
        .def("identifiers", &identifiers)
        .def("rate", &rate, py::arg("start"), py::arg("end"), py::arg("intervals"));
}
