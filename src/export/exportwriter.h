#pragma once

#include "traceexport.h"

#include <array>

/// One format: what stands for a message, and what it has no place for.
class ExportWriter
{
public:
    virtual ~ExportWriter() = default;

    /// As TraceExport::append.
    virtual bool append(const CAN::CanRxMessage &message, const QString &note,
                        QByteArray &block) = 0;
    /// As TraceExport::finish.
    virtual void finish(QByteArray &block) = 0;

    quint64 lost(TraceExport::Loss loss) const { return losses[std::size_t(loss)]; }

protected:
    void lose(TraceExport::Loss loss) { ++losses[std::size_t(loss)]; }

private:
    std::array<quint64, TraceExport::lossCount> losses{};
};

// Each format is a pair of files.
std::unique_ptr<ExportWriter> candumpLogWriter();
std::unique_ptr<ExportWriter> candumpScreenWriter(TraceExport::Times times);
std::unique_ptr<ExportWriter> vectorAscWriter(TraceExport::Times times);
std::unique_ptr<ExportWriter> peakTrc11Writer();
std::unique_ptr<ExportWriter> peakTrc21Writer();
std::unique_ptr<ExportWriter> csvWriter();
std::unique_ptr<ExportWriter> jsonLinesWriter();
std::unique_ptr<ExportWriter> pcapngWriter();
