#include "recording.h"

#include "changetracker.h"
#include "savejob.h"

#include <QRandomGenerator>
#include <QtTest>

namespace {

CAN::CanRxMessage randomMessage(QRandomGenerator &random, quint32 number, qint64 &time)
{
    CAN::CanRxMessage message;
    message.messageNumber = number;
    message.id = quint32(random.bounded(1, 40)) * (random.bounded(4) ? 1 : 0x1000);
    message.extended = message.id > 0x7FF;
    message.fdFrame = random.bounded(10) == 0;
    message.remote = !message.fdFrame && random.bounded(20) == 0;
    message.length = qint8(random.bounded(message.fdFrame ? 65 : 9));
    for (int i = 0; i < message.length; ++i)
        message.data[i] = quint8(random.bounded(4));
    message.line = quint16(random.bounded(3));
    if (random.bounded(500) == 0)
        message.id = CAN::errorFrameId;
    // Mostly forward, as an import's times need not be.
    time += random.bounded(-20, 1000);
    message.seconds = qint32(time / 1000000);
    message.microseconds = qint32(time % 1000000);
    return message;
}

} // namespace

void writeChunk(const QString &fileName, const Messages &messages, const Notes &notes)
{
    SaveJob job;
    job.fileName = fileName;
    for (const CAN::CanRxMessage &message : messages)
        job.messages.append(message);
    job.endPosition = quint32(messages.size());
    job.notes = notes;
    QVERIFY(writeChunkFile(job).isDone());
}

Recording record(const QString &folder, quint32 seed, const QVector<int> &sizes)
{
    QRandomGenerator random(seed);
    Recording recording;
    qint64 time = 1600000000000000;
    for (int chunk = 0; chunk < sizes.size(); ++chunk) {
        Messages messages;
        Notes notes;
        for (int i = 0; i < sizes.at(chunk); ++i) {
            const auto number = quint32(recording.messages.size() + i);
            messages.append(randomMessage(random, number, time));
            const QString note = random.bounded(300) ? QString() : QStringLiteral("n%1").arg(i % 5);
            if (!note.isEmpty())
                notes.insert(number, note);
            recording.notes.append(note);
        }
        writeChunk(QStringLiteral("%1/tmpData%2.dck").arg(folder).arg(chunk), messages, notes);
        recording.messages += messages;
        recording.sizes.append(sizes.at(chunk));
    }
    return recording;
}

TraceExpression expression(const char *text)
{
    return TraceExpression::parse(QString::fromLatin1(text)).value();
}

QVector<quint64> found(const Recording &recording, const char *text)
{
    const bool wantsChanged = qstrcmp(text, "changed and id==5") == 0;
    const TraceExpression wanted = expression(text);
    ChangeTracker changes;
    QVector<quint64> positions;
    for (int i = 0; i < recording.messages.size(); ++i) {
        const bool isChanged = changes.isChanged(MessageView(recording.messages.at(i)));
        if (wanted.matches(recording.messages.at(i), recording.notes.at(i))
            && (isChanged || !wantsChanged))
            positions.append(quint64(i));
    }
    return positions;
}
