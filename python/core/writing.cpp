#include "writing.h"

#include "errors.h"
#include "interrupt.h"
#include "parquettrace.h"
#include "reading.h"
#include "rows.h"
#include "savefileworker.h"
#include "texts.h"
#include "traceexport.h"
#include "traceformat.h"

#include <algorithm>
#include <cerrno>

#include <unistd.h>

namespace {

constexpr qint64 rowsBetweenQuestions = 1024;

// Puts what a format gives into a file that Python has opened.
class FormatWriter
{
public:
    FormatWriter(TraceFormat &format, int file) : format(format), file(file) { }

    bool append(const CAN::CanRxMessage &message, const QString &note)
    {
        constexpr int leastWritten = 256 * 1024;
        format.append(message, note, block);
        return block.size() < leastWritten || flush();
    }
    void finish()
    {
        format.finish(block);
        flush();
    }
    /// Raises where the system did not take everything.
    void check() const
    {
        if (error != 0)
            raiseSystemError(error);
    }

private:
    bool flush()
    {
        for (int at = 0; at < block.size() && error == 0;) {
            const auto taken =
                ::write(file, block.constData() + at, std::size_t(block.size() - at));
            if (taken > 0)
                at += int(taken);
            else if (errno != EINTR)
                error = taken == 0 ? EIO : errno;
        }
        block.resize(0);
        return error == 0;
    }

    TraceFormat &format;
    const int file;
    QByteArray block;
    int error = 0;
};

py::dict writeRows(const Rows &rows, int file, const py::str &formatName, const py::dict &source)
{
    const auto format = TraceFormat::named(formatName, source);
    FormatWriter writer(*format, file);
    workUnlocked([&](Interrupt &interrupt) {
        for (qint64 row = 0; row < rows.size(); ++row) {
            const bool isStopped = row % rowsBetweenQuestions == 0 && !interrupt.goesOn();
            const QString note = rows.notes.isEmpty() ? QString() : rows.notes.value(row);
            if (isStopped || !writer.append(rows.message(row), note))
                return;
        }
        writer.finish();
    });
    writer.check();
    return format->losses();
}

// Straight from the file, in the memory of a block.
py::dict convert(Reading &reading, int file, const py::str &formatName, const py::dict &source)
{
    const auto format = TraceFormat::named(formatName, source);
    FormatWriter writer(*format, file);
    reading.run(
        [&writer](const TraceItem &item) { return writer.append(item.message, item.note); });
    const py::dict report = reading.report();
    format->setReport(textFrom(py::module_::import("json").attr("dumps")(report)));
    {
        const py::gil_scoped_release unlocked;
        writer.finish();
    }
    writer.check();
    py::dict result = format->losses();
    result["report"] = report;
    return result;
}

// Notes and bookmarks belong to numbers, which have to occur once each in a file. Cut and joined
// traces may have them twice; then those behind get higher ones.
std::vector<quint32> uniqueNumbers(const Rows &rows)
{
    std::vector<quint32> numbers;
    numbers.reserve(std::size_t(rows.size()));
    quint32 shift = 0;
    for (qint64 row = 0; row < rows.size(); ++row) {
        const quint32 number = rows.message(row).messageNumber;
        if (row > 0 && number + shift <= numbers.back())
            shift = numbers.back() + 1 - number;
        numbers.push_back(number + shift);
    }
    return numbers;
}

template <typename Value, typename Make>
QMap<unsigned int, Value> byNumber(const Rows::Texts &texts, const std::vector<quint32> &numbers,
                                   const Make &make)
{
    QMap<unsigned int, Value> all;
    for (auto text = texts.begin(); text != texts.end(); ++text) {
        if (text.key() >= 0 && std::size_t(text.key()) < numbers.size())
            all.insert(numbers[std::size_t(text.key())],
                       make(numbers[std::size_t(text.key())], text.value()));
    }
    return all;
}

// The error text, empty when all is written.
QString writeChunkFile(const Rows &rows, const QString &fileName, Interrupt &interrupt)
{
    // So many fit into the buffer of the file, which is never written out between two checks then.
    constexpr qint64 rowsBetweenFlushes = 128;
    const std::vector<quint32> numbers = uniqueNumbers(rows);
    QList<CAN::CanRxMessage> ends = {rows.message(0), rows.message(rows.size() - 1)};
    SaveFileWorker worker(
        fileName, &ends, DatachunkHelper::CurrentMessages, 0, 0,
        byNumber<QString>(rows.notes, numbers, [](quint32, const QString &text) { return text; }),
        byNumber<CanMessageBookmark>(
            rows.bookmarks, numbers,
            [](quint32 number, const QString &text) { return CanMessageBookmark(number, text); }),
        0, {});
    if (!worker.createContinuousOutputFile(fileName))
        return QStringLiteral("The file could not be created.");
    for (qint64 row = 0; row < rows.size() && worker.errorText().isEmpty(); ++row) {
        CAN::CanRxMessage message = rows.message(row);
        message.messageNumber = numbers[std::size_t(row)];
        worker.appendToContinuousOutputFile(message);
        if (row % rowsBetweenFlushes == 0) {
            worker.flushContinuousOutput();
            if (!interrupt.goesOn())
                return {};
        }
    }
    worker.finishContinousOutput();
    return worker.errorText();
}

void writeChunk(const Rows &rows, const py::str &path)
{
    const QString fileName = textFrom(path);
    if (rows.size() == 0)
        throw py::value_error("A chunk file has one message at least.");
    QString error;
    workUnlocked([&](Interrupt &interrupt) { error = writeChunkFile(rows, fileName, interrupt); });
    if (!error.isEmpty())
        raiseFileError(error);
}

py::object formatOfFile(const py::str &name)
{
    const QString fileName = textFrom(name);
    if (fileName.endsWith(QLatin1String(".parquet"), Qt::CaseInsensitive))
        return py::str("parquet");
    const auto format = TraceExport::formatOfFile(fileName);
    return format ? py::object(textFor(TraceExport::formatNames().at(*format)))
                  : py::object(py::none());
}

py::str parquetDifference(const py::str &path)
{
    const QString fileName = textFrom(path);
    QString difference;
    {
        const py::gil_scoped_release unlocked;
        difference = ParquetTrace::differenceOf(fileName);
    }
    return textFor(difference);
}

} // namespace

void bindWriting(py::module_ &module)
{
    py::class_<Reading>(module, "Reading")
        .def(py::init<const py::str &, const py::str &, const py::object &, const py::str &,
                      const py::object &>(),
             py::arg("path"), py::arg("mode"), py::arg("type"), py::arg("description"),
             py::arg("where"));
    py::class_<Rows>(module, "Rows")
        .def(py::init<const py::dict &, const py::array_t<quint8, py::array::c_style> &,
                      const py::dict &, const py::dict &>(),
             py::arg("arrays"), py::arg("data"), py::arg("notes"), py::arg("bookmarks"));
    module.def("write", &writeRows, py::arg("rows"), py::arg("file"), py::arg("format"),
               py::arg("source"));
    module.def("convert", &convert, py::arg("reading"), py::arg("file"), py::arg("format"),
               py::arg("source"));
    module.def("write_chunk", &writeChunk, py::arg("rows"), py::arg("path"));
    module.def("parquet_difference", &parquetDifference, py::arg("path"));
    module.def("format_of_file", &formatOfFile, py::arg("name"));
    module.def("format_names", [] {
        return textsFor(TraceExport::formatNames() + QStringList(QStringLiteral("parquet")));
    });
}
