#include "conversion.h"

#include "conversionreport.h"
#include "filechecks.h"
#include "movefiles.h"
#include "owntrace.h"
#include "sourcedigest.h"
#include "stopsignals.h"
#include "terminal.h"
#include "traceoutput.h"
#include "uniquenumbers.h"
#include "workfolder.h"

#include <QFileInfo>

#include <unistd.h>

namespace {

using Result = TraceReading::Result;

bool isBinary(const TargetFormat &format)
{
    return format.kind == TargetFormat::OwnChunk || format.kind == TargetFormat::Parquet
        || (format.kind == TargetFormat::Foreign && !TraceExport::isText(format.foreign));
}

bool checkTarget(const Conversion &conversion)
{
    if (!conversion.goesToOutput())
        return checkFree(conversion.target);
    QString text;
    if (conversion.format.kind == TargetFormat::OwnChunk)
        text = Cli::tr("A chunk file is not written from front to back and cannot go there.");
    else if (isBinary(conversion.format) && isatty(STDOUT_FILENO))
        text = Cli::tr("This is a terminal, and the format is not for one.");
    if (!text.isEmpty())
        printError(Cli::tr("standard output"), text);
    return text.isEmpty();
}

bool openAll(const std::vector<TraceInput *> &inputs, Result &result)
{
    for (TraceInput *input : inputs) {
        input->keepBookmarks();
        result = worse(result, input->open());
        if (result == Result::Failed)
            return false;
    }
    return true;
}

// What became of the writing; failed where it is not written completely.
struct Written
{
    Result result = Result::Failed;
    ConversionLosses losses;
};

Written writeEncoded(MergedTrace &trace, const Conversion &conversion, const QString &fileName,
                     std::unique_ptr<MessageEncoder> encoder)
{
    Written written;
    TraceOutput output(fileName, std::move(encoder));
    bool isWritten = output.open();
    Progress progress(trace.subject(), [&] { return trace.part(); });
    quint64 count = 0;
    if (isWritten)
        written.result = trace.forEachBlock([&](const MessageBlock &block) {
            isWritten = output.write(block);
            count += block.messages.size();
            progress.setCount(count);
            return isWritten;
        });
    if (written.result == Result::Failed && isWritten)
        return written;
    if (count == 0 && isWritten) {
        printError(trace.subject(), Cli::tr("Nothing to export."));
        written.result = Result::Failed;
        return written;
    }
    if (!isWritten || !output.close()) {
        tellNotWritten(conversion.target, output.errorText());
        written.result = Result::Failed;
    }
    written.losses = output.losses();
    return written;
}

Written writeOwn(MergedTrace &trace, const Conversion &conversion, const QString &fileName,
                 bool renumbers)
{
    OwnTrace own(trace, conversion, renumbers);
    Written written;
    written.result = own.survey();
    if (written.result != Result::Failed && !own.write(fileName))
        written.result = Result::Failed;
    written.losses.written = own.count();
    return written;
}

// An empty file name is standard output, which a text of ours needs a place for its header for.
Written writeTrace(const std::vector<TraceInput *> &inputs, const Conversion &conversion,
                   const QString &fileName)
{
    const TargetFormat &format = conversion.format;
    const QString target = conversion.goesToOutput() ? QString() : fileName;
    if (format.kind == TargetFormat::Foreign) {
        MergedTrace trace(inputs, conversion.selection);
        return writeEncoded(trace, conversion, target,
                            textEncoder(format.foreign, conversion.times));
    }
    if (format.kind == TargetFormat::Parquet) {
        SourceDigest digest(inputs);
        MergedTrace trace(inputs, conversion.selection);
        return writeEncoded(trace, conversion, target,
                            parquetEncoder([&digest] { return digest.source(); }));
    }
    const bool isStream = inputs.size() == 1 && !inputs.front()->timeline();
    UniqueNumbers numbered(*inputs.front());
    MergedTrace trace(isStream ? std::vector<TraceInput *>{&numbered} : inputs,
                      conversion.selection);
    return writeOwn(trace, conversion, fileName, !isStream);
}

bool moveInPlace(const QString &fileName, const Conversion &conversion,
                 const ConversionLosses &losses)
{
    if (!conversion.tellsCounts)
        return moveFiles({fileName}, {conversion.target});
    if (!checkFree(conversion.target))
        return false;
    const int error = moveFile(fileName, conversion.target);
    if (error != 0)
        printError(conversion.target, systemErrorText(error));
    else
        writeLine(QStringLiteral("%1: %2").arg(conversion.target, losses.line()));
    return error == 0;
}

} // namespace

bool convert(const std::vector<TraceInput *> &inputs, const Conversion &conversion)
{
    Result result = Result::Complete;
    if (!checkTarget(conversion))
        return false;
    const bool toOutput = conversion.goesToOutput();
    const QFileInfo target(conversion.target);
    const QString folder = toOutput ? QDir::tempPath() : target.path();
    const WorkFolder work(folder);
    if (!work.isValid()) {
        printError(toOutput ? folder : conversion.target, work.errorText());
        return false;
    }
    if (!openAll(inputs, result))
        return false;
    // What writes our own formats goes by the end of the name, where the user may have another.
    const QString unfinished =
        work.filePath(QLatin1String("unfinished.") + conversion.format.suffix());
    const Written written = writeTrace(inputs, conversion, unfinished);
    result = worse(result, written.result);
    if (result == Result::Failed)
        return false;
    if (!toOutput && !moveInPlace(unfinished, conversion, written.losses))
        return false;
    tellLosses(written.losses, conversion);
    return result == Result::Complete && !(conversion.failsOnLoss && written.losses.areAny());
}
