#include "reading.h"

#include "columns.h"
#include "errors.h"
#include "texts.h"
#include "tracematcher.h"
#include "tracerecognition.h"

#include <QMetaEnum>

namespace {

QMetaEnum typeEnum()
{
    return QMetaEnum::fromType<DatachunkHelper::ImportFileType>();
}

QString typeName(DatachunkHelper::ImportFileType type)
{
    return QLatin1String(typeEnum().valueToKey(type));
}

DatachunkHelper::ImportFileType typeNamed(const QString &name)
{
    bool isKnown = false;
    const int value = typeEnum().keyToValue(name.toLatin1().constData(), &isKnown);
    if (!isKnown)
        throw py::value_error("There is no such type of traces: "
                              + std::string(name.toUtf8().constData()));
    return DatachunkHelper::ImportFileType(value);
}

DatachunkHelper::ImportMode modeNamed(const QString &name)
{
    if (name == QLatin1String("strict"))
        return DatachunkHelper::Strict;
    if (name == QLatin1String("tolerant"))
        return DatachunkHelper::Tolerant;
    throw py::value_error("A mode is \"tolerant\" or \"strict\".");
}

py::dict dictOf(const char *what, const ImportReport::Lines &lines)
{
    py::list numbers;
    for (const quint64 number : lines.first)
        numbers.append(number);
    py::dict row;
    row["what"] = what;
    row["count"] = lines.count;
    row["lines"] = numbers;
    if (!lines.text.isEmpty())
        row["first"] = textFor(lines.text);
    return row;
}

void addLines(const ImportReport &report, py::dict &texts)
{
    py::list leftOut;
    for (int i = 0; i < ImportReport::reasonCount; ++i) {
        const ImportReport::Lines &lines = report.leftOut[std::size_t(i)];
        if (lines.count > 0)
            leftOut.append(dictOf(ImportReport::reasonName(ImportReport::Reason(i)), lines));
    }
    py::list changed;
    for (int i = 0; i < ImportReport::changeCount; ++i) {
        const ImportReport::Lines &lines = report.changed[std::size_t(i)];
        if (lines.count > 0)
            changed.append(dictOf(ImportReport::changeName(ImportReport::Change(i)), lines));
    }
    py::dict channels;
    for (const ImportReport::Channel &channel : report.channels)
        channels[textFor(channel.name)] = channel.line;
    texts["lines"] = report.lines;
    texts["frames"] = report.frames;
    texts["notes"] = report.notes;
    texts["leftOut"] = leftOut;
    texts["changed"] = changed;
    texts["channels"] = channels;
    if (report.unlikely.count > 0)
        texts["unlikely"] = dictOf("became a frame, but does not look like one", report.unlikely);
    if (report.start.isValid())
        texts["start"] = textFor(report.start.toString(Qt::ISODateWithMs));
    if (!report.timeBase.isEmpty())
        texts["timeBase"] = textFor(report.timeBase);
}

} // namespace

Reading::Reading(const py::str &path, const py::str &mode, const py::object &type,
                 const py::str &description, const py::object &where)
    : path(textFrom(path)), where(expressionFrom(where)), description(textFrom(description)),
      mode(modeNamed(textFrom(mode))), isTypeKnown(!type.is_none() || !this->description.isEmpty())
{
    if (!type.is_none())
        this->type = typeNamed(textFrom(type));
    else if (isTypeKnown)
        this->type = DatachunkHelper::GenericFormat;
}

// False, and a problem, when nobody reads it.
bool Reading::findType()
{
    if (isTypeKnown)
        return true;
    const TraceRecognition found = mode == DatachunkHelper::Strict
        ? TraceRecognition::strictly(path)
        : TraceRecognition::of(path);
    type = found.type;
    if (type == DatachunkHelper::Unknown)
        problems.append(found.explanation.isEmpty() ? QStringLiteral("Not a known kind of trace.")
                                                    : found.explanation);
    else if (type == DatachunkHelper::EmptyTxtFile)
        problems.append(QStringLiteral("The file is empty."));
    return problems.isEmpty();
}

void Reading::read(const TraceStream::Take &take, Interrupt &interrupt)
{
    result = TraceStream::Failed;
    problems.clear();
    if (!findType())
        return;
    TraceStream stream(path, type, description);
    stream.setMode(mode);
    const bool takesAll = where.text().isEmpty();
    TraceMatcher matcher(where);
    const TraceStream::Take takeMatching = [&](const TraceItem &item) {
        return !matcher.takes(item.message, item.note) || take(item);
    };
    result = stream.read(takesAll ? take : takeMatching, [&] { return interrupt.goesOn(); });
    problems = stream.errorTexts();
    lines = stream.report();
}

void Reading::run(const TraceStream::Take &take)
{
    workUnlocked([&](Interrupt &interrupt) { read(take, interrupt); });
    if (result == TraceStream::Failed)
        raiseTraceError(problems);
}

py::dict Reading::report() const
{
    py::dict texts;
    texts["file"] = textFor(path);
    texts["type"] = textFor(typeName(type));
    addLines(lines, texts);
    texts["problems"] = textsFor(problems);
    return texts;
}

namespace {

// Messages come one by one; columns take some hundred of them in a third of the time.
class Collector
{
public:
    explicit Collector(Columns &columns) : columns(columns) { messages.reserve(blockSize); }

    bool take(const TraceItem &item)
    {
        const std::size_t row = columns.size() + messages.size();
        messages.push_back(item.message);
        if (!item.note.isEmpty())
            columns.addNote(row, item.note);
        if (item.bookmark.isValid())
            columns.addBookmark(row, item.bookmark.text());
        if (messages.size() == blockSize)
            handOn();
        return true;
    }
    void finish()
    {
        handOn();
        columns.finish();
    }

private:
    static constexpr std::size_t blockSize = 256;

    void handOn()
    {
        columns.append(messages.data(), messages.size());
        messages.clear();
    }

    Columns &columns;
    std::vector<CAN::CanRxMessage> messages;
};

py::tuple readColumns(const py::str &path, const py::str &mode, const py::object &type,
                      const py::str &description, const py::object &where)
{
    Reading reading(path, mode, type, description, where);
    const auto columns = std::make_shared<Columns>();
    Collector collector(*columns);
    reading.run([&collector](const TraceItem &item) { return collector.take(item); });
    collector.finish();
    return py::make_tuple(columns, reading.report());
}

py::dict recognise(const py::str &path)
{
    const QString name = textFrom(path);
    TraceRecognition found;
    {
        const py::gil_scoped_release unlocked;
        found = TraceRecognition::of(name);
    }
    py::dict texts;
    texts["type"] = textFor(typeName(found.type));
    texts["percent"] = found.percent;
    texts["line"] = found.line;
    texts["line_text"] = textFor(found.lineText);
    texts["explanation"] = textFor(found.explanation);
    return texts;
}

} // namespace

void bindReading(py::module_ &module)
{
    module.def("read", &readColumns, py::arg("path"), py::arg("mode"), py::arg("type"),
               py::arg("description"), py::arg("where"));
    module.def(
        "check_expression", [](const py::str &where) { expressionFrom(where); }, py::arg("where"));
    module.def("recognise", &recognise, py::arg("path"));
}
