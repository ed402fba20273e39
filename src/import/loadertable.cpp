#include "candumpreader.h"
#include "wiresharkcsvreader.h"

namespace {

constexpr auto textMode = LineSource::CarriageReturns::Dropped;

constexpr TraceReader readers[] = {
    {DatachunkHelper::SocketCanDump, textMode, readSocketCanDump},
    {DatachunkHelper::WiresharkCsv, textMode, readWiresharkCsv},
};

} // namespace

const TraceReader *traceReaderFor(DatachunkHelper::ImportFileType type)
{
    for (const TraceReader &reader : readers) {
        if (reader.type == type)
            return &reader;
    }
    return nullptr;
}
