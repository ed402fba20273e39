#include "tracefixtures.h"

#include "storefixture.h"

#include <QDirIterator>
#include <QMetaEnum>

#include <algorithm>

namespace {

TraceFixture readFixture(const QString &expectedFile)
{
    const auto types = QMetaEnum::fromType<DatachunkHelper::ImportFileType>();
    TraceFixture fixture;
    fixture.fileName = expectedFile.left(expectedFile.lastIndexOf(QLatin1String(".expected")));
    fixture.name = fixture.fileName.section(QLatin1Char('/'), -2);
    fixture.type = DatachunkHelper().getImportFileType(fixture.fileName);
    QStringList rest;
    for (const QString &line : QString::fromUtf8(readFile(expectedFile)).split(QLatin1Char('\n'))) {
        if (line.startsWith(QLatin1String("#type "))) {
            fixture.type = DatachunkHelper::ImportFileType(types.keyToValue(line.mid(6).toUtf8()));
            fixture.isDetected = false;
        } else if (line.startsWith(QLatin1String("#description "))) {
            fixture.description = line.mid(13);
        } else {
            rest.append(line);
        }
    }
    fixture.expected = rest.join(QLatin1Char('\n'));
    return fixture;
}

} // namespace

QVector<TraceFixture> traceFixtures()
{
    QVector<TraceFixture> found;
    QDirIterator files(QStringLiteral(TESTDATA "/traces"), {QStringLiteral("*.expected")},
                       QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext())
        found.append(readFixture(files.next()));
    if (found.isEmpty())
        qFatal("no fixtures below %s", TESTDATA);
    std::sort(found.begin(), found.end(),
              [](const TraceFixture &a, const TraceFixture &b) { return a.name < b.name; });
    return found;
}
