#include "sourcedigest.h"

#include "stopsignals.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>

#include <system_error>

SourceDigest::SourceDigest(std::vector<TraceInput *> inputs) : inputs(std::move(inputs))
{
    for (const TraceInput *input : this->inputs) {
        for (const TraceInput::Name &name : input->names())
            names.append(name.path);
    }
    try {
        thread = std::thread([this] { run(); });
    } catch (const std::system_error &) {
        // Without a thread it is done when it is asked for.
    }
}

SourceDigest::~SourceDigest()
{
    isGivenUp = true;
    if (thread.joinable())
        thread.join();
}

void SourceDigest::run()
{
    for (const QString &name : qAsConst(names))
        digests.append(digestOf(name));
}

// Empty for what is no file, or cannot be read.
QByteArray SourceDigest::digestOf(const QString &fileName) const
{
    constexpr qint64 blockSize = 256LL * 1024;
    QFile file(fileName);
    if (!QFileInfo(fileName).isFile() || !file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return {};
    QCryptographicHash hash(QCryptographicHash::Sha256);
    QByteArray block;
    do {
        if (isGivenUp || StopSignals::received())
            return {};
        block.resize(int(blockSize));
        const qint64 size = file.read(block.data(), blockSize);
        if (size < 0)
            return {};
        block.truncate(int(size));
        hash.addData(block);
    } while (!block.isEmpty());
    return hash.result().toHex();
}

ParquetTrace::Source SourceDigest::source()
{
    if (thread.joinable())
        thread.join();
    else if (digests.isEmpty())
        run();
    QByteArrayList reports;
    for (const TraceInput *input : inputs) {
        const QByteArray report = input->report();
        if (!report.isEmpty())
            reports.append(report);
    }
    const QByteArray all = reports.join(',');
    const QByteArray lines = digests.join('\n');
    return {names.join(QLatin1Char('\n')), lines.trimmed().isEmpty() ? QByteArray() : lines,
            QString::fromUtf8(reports.size() > 1 ? '[' + all + ']' : all)};
}
