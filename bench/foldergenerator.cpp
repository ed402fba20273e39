#include "foldergenerator.h"

#include "canframe.h"
#include "savedchunk.h"
#include "savejob.h"

#include <QDir>

#include <array>
#include <cstring>
#include <random>

namespace {

class Traffic
{
public:
    CAN::CanRxMessage next()
    {
        const quint64 bits = random();
        CAN::CanRxMessage message;
        message.id = identifier(int(bits % identifiers));
        message.extended = message.id > 0x7FF;
        message.length = lengths[bits >> 60 & 7];
        const quint64 payload = random();
        std::memcpy(message.data, &payload, sizeof payload);
        message.line = bits >> 20 & 3;
        microseconds += 50 + qint64(bits >> 30) % 100;
        message.seconds = qint32(microseconds / 1000000);
        message.microseconds = qint32(microseconds % 1000000);
        message.messageNumber = quint32(count++);
        plant(message);
        return message;
    }

private:
    static constexpr int identifiers = 400;
    static constexpr std::array<qint8, 8> lengths{0, 1, 2, 4, 8, 8, 8, 8};

    static quint32 identifier(int i)
    {
        return i < 300 ? 0x100 + quint32(i) * 3 : 0x18F00000 + quint32(i) * 256;
    }

    void plant(CAN::CanRxMessage &message) const
    {
        if (count % FolderGenerator::messagesPerRare == 5) {
            message.id = FolderGenerator::rareId;
            message.extended = false;
            message.length = 8;
            std::memset(message.data, FolderGenerator::rareByte, 8);
        } else if (count % FolderGenerator::messagesPerError == 3) {
            message.id = CAN::errorFrameId;
        }
    }

    std::mt19937_64 random{7};
    qint64 microseconds = Q_INT64_C(1600000000000000);
    qint64 count = 0;
};

} // namespace

bool FolderGenerator::write(const QString &folder, qint64 messages, int messagesPerChunk)
{
    Traffic traffic;
    QDir().mkpath(folder);
    for (int chunk = 0; messages > 0; ++chunk) {
        SaveJob job;
        job.fileName = folder + QStringLiteral("/tmpData%1.dck").arg(chunk);
        for (int i = 0; i < messagesPerChunk && messages > 0; ++i, --messages)
            job.messages.append(traffic.next());
        job.endPosition = quint32(job.messages.size());
        const Outcome outcome = writeChunkFile(job);
        if (!outcome.isDone() || !outcome.text.isEmpty() || !addSavedChunk(job))
            return false;
    }
    return true;
}
