#include "archivelimits.h"
#include "targets.h"
#include "tracerecognition.h"
#include "unpackedfile.h"

namespace {

struct Content
{
    QByteArray bytes;
    QString error;
};

// More is not wanted of a bomb.
Content contentOf(UnpackedFile &file)
{
    constexpr int mostBytes = 4 * 1024 * 1024;
    constexpr qint64 blockSize = 100000;
    Content content;
    while (content.bytes.size() < mostBytes) {
        const QByteArray block = file.read(blockSize);
        if (block.isEmpty())
            break;
        content.bytes += block;
    }
    content.error = file.readErrorText();
    return content;
}

void unpack(const QByteArray &bytes)
{
    const QString name = inputFile(QStringLiteral("input.log"), bytes);
    UnpackedFile file(name);
    if (!file.openForReading()) {
        require(!file.refusal().isEmpty(), "what is not opened is explained");
        return;
    }
    const Content first = contentOf(file);
    require(file.isCompressed() || (first.bytes == bytes && first.error.isEmpty()),
            "what is not compressed is read as it is");
    require(file.seek(0), "reading begins again");
    const Content second = contentOf(file);
    // How much comes in front of damage depends on the size of the blocks that are asked for.
    const bool isSame = first.error.isEmpty()
        ? first.bytes == second.bytes
        : first.bytes.startsWith(second.bytes) || second.bytes.startsWith(first.bytes);
    require(isSame && first.error == second.error, "reading again gives the same");
    require(!TraceRecognition::of(name).explanation.isEmpty(), "every file is explained");
}

} // namespace

std::vector<FuzzTarget> compressedTargets()
{
    return {{QStringLiteral("compressed"), unpack}};
}
