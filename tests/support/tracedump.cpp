#include "tracedump.h"

#include "canframe.h"
#include "datachunkhandler.h"

#include <QSet>

QString messageDump(const CAN::CanRxMessage &m)
{
    const QString line = QString::asprintf(
        "%u %d %d %x %d %d %d %d %d %d %d %d ", m.messageNumber, m.seconds, m.microseconds, m.id,
        m.extended, m.remote, m.fdFrame, m.flagB, m.flagC, m.transmitted, m.line, m.length);
    const char *payload = reinterpret_cast<const char *>(m.data);
    const QByteArray hex = QByteArray(payload, CAN::payloadSize(m)).toHex();
    return line + (hex.isEmpty() ? QLatin1String("-") : QLatin1String(hex));
}

QString traceDump(const QString &fileName, DatachunkHelper::ImportFileType type,
                  const QString &formatDescription)
{
    DatachunkHandler store(10000000);
    QString trailer;
    QObject::connect(&store, &DatachunkHandler::chunkContainsFdMessage, [&](bool seen) {
        trailer += QLatin1String(seen ? "fd: true\n" : "fd: false\n");
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
