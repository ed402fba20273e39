#include "tracedump.h"

#include "canframe.h"
#include "datachunkhandler.h"

#include <QSet>

QString messageDump(const CAN::CanRxMessage &m)
{
    QString line = QStringLiteral("%1 %2 %3 %4")
                       .arg(m.messageNumber)
                       .arg(m.seconds)
                       .arg(m.microseconds)
                       .arg(m.id, 0, 16);
    for (const int field : {int(m.extended), int(m.remote), int(m.fdFrame), int(m.flagB),
                            int(m.flagC), int(m.transmitted), int(m.line), int(m.length)})
        line += QStringLiteral(" %1").arg(field);
    const char *payload = reinterpret_cast<const char *>(m.data);
    const QByteArray hex = QByteArray(payload, CAN::payloadSize(m)).toHex();
    return line + QLatin1Char(' ') + (hex.isEmpty() ? QLatin1String("-") : QLatin1String(hex));
}

QString traceDump(const QString &fileName, DatachunkHelper::ImportFileType type,
                  const QString &formatDescription)
{
    DatachunkHandler store(10000000);
    QString trailer;
    QObject::connect(&store, &DatachunkHandler::chunkContainsFdMessage, [&](bool seen) {
        trailer +=
            QStringLiteral("fd: %1\n").arg(seen ? QLatin1String("true") : QLatin1String("false"));
    });
    QObject::connect(&store, &DatachunkHandler::newErrorMessage, [&](QString error) {
        trailer += QStringLiteral("error: %1\n").arg(error.replace(fileName, QLatin1String("%1")));
    });
    store.importMessages(fileName, type, formatDescription);
    QString dump;
    if (store.getIsLive())
        return trailer;
    QSet<quint32> noted;
    QString notes;
    for (int i = 0; i < int(store.getMessageCount()); ++i) {
        const CAN::CanRxMessage message = store.messageAt(i);
        dump += messageDump(message) + QLatin1Char('\n');
        const quint32 number = message.messageNumber;
        const QString note = store.getMessageNote(number);
        if (!note.isEmpty() && !noted.contains(number))
            notes += QStringLiteral("%1: %2\n").arg(number).arg(note);
        noted.insert(number);
    }
    return dump + notes + trailer;
}
