// Writes a generated trace: datachunk-generate FORMAT FRAMES FILE
// or a folder of chunks:    datachunk-generate folder MESSAGES FOLDER

#include "foldergenerator.h"
#include "tracegenerator.h"

#include <QFile>

#include <cstdio>
#include <cstdlib>

namespace {

int generateFolder(const char *messages, const char *folder)
{
    if (FolderGenerator::write(QFile::decodeName(folder), std::atoll(messages),
                               FolderGenerator::chunkSize))
        return 0;
    std::fprintf(stderr, "%s: cannot be written\n", folder);
    return 1;
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc == 4 && qstrcmp(argv[1], "folder") == 0)
        return generateFolder(argv[2], argv[3]);
    for (const GeneratedFormat &format : generatedFormats()) {
        if (argc != 4 || qstrcmp(format.name, argv[1]) != 0)
            continue;
        QFile file(QFile::decodeName(argv[3]));
        const QByteArray text = generateTrace(format, generateTraffic(std::atoi(argv[2])));
        if (file.open(QIODevice::WriteOnly) && file.write(text) == text.size())
            return 0;
        std::fprintf(stderr, "%s: %s\n", argv[3], qPrintable(file.errorString()));
        return 1;
    }
    std::fputs("usage: datachunk-generate FORMAT FRAMES FILE, with a FORMAT of folder", stderr);
    for (const GeneratedFormat &format : generatedFormats())
        std::fprintf(stderr, " %s", format.name);
    std::fputc('\n', stderr);
    return 2;
}
