// Prints what an import of a trace gives: tracedump FILE [TYPE [DESCRIPTION]]

#include "tracedump.h"

#include <QCoreApplication>
#include <QMetaEnum>

#include <cstdio>

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const QString file = arguments.value(1);
    const QByteArray name = arguments.value(2).toUtf8();
    const auto type = name.isEmpty()
        ? DatachunkHelper().getImportFileType(file)
        : DatachunkHelper::ImportFileType(
            QMetaEnum::fromType<DatachunkHelper::ImportFileType>().keyToValue(name));
    const QByteArray dump = traceDump(file, type, arguments.value(3)).toUtf8();
    std::fwrite(dump.constData(), 1, std::size_t(dump.size()), stdout);
    return 0;
}
