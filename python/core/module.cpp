#include "pythonheaders.h"

#include "columns.h"
#include "reading.h"
#include "timeline.h"
#include "writing.h"

#include <QCoreApplication>
#include <QTextCodec>

namespace {

// Qt goes by the locale, Python by UTF-8 also where the locale is "C"; names of files have to be
// the same for both. A program that uses Qt itself has decided already.
void takeEncodingOfPython()
{
    const auto encoding = py::module_::import("sys").attr("getfilesystemencoding")();
    if (!QCoreApplication::instance() && encoding.cast<std::string>() == "utf-8")
        QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
}

} // namespace

PYBIND11_MODULE(_core, module)
{
    takeEncodingOfPython();
    module.attr("__version__") = DATACHUNK_VERSION;
    bindColumns(module);
    bindReading(module);
    bindTimeline(module);
    bindWriting(module);
}
