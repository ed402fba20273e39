#include "buschoice.h"

#include "deviceline.h"
#include "generatorline.h"

#include <QSettings>

namespace {

constexpr int mostRate = 200000;
constexpr int mostLines = 8;

} // namespace

BusChoice BusChoice::saved()
{
    BusChoice choice;
    QSettings settings;
    settings.beginGroup(QStringLiteral("bus"));
    const auto value = [&settings](const char *key, const QVariant &otherwise) {
        return settings.value(QLatin1String(key), otherwise);
    };
    choice.kind = Kind(qBound(int(Device), value("kind", Device).toInt(), int(Generator)));
    choice.number = qBound(0, value("number", 0).toInt(), 255);
    choice.device.plugin = value("plugin", QString()).toString();
    choice.device.interface = value("interface", QString()).toString();
    choice.device.bitRate = value("bitRate", 0).toUInt();
    choice.device.dataBitRate = value("dataBitRate", 0).toUInt();
    choice.device.fd = value("fd", false).toBool();
    choice.replay.path = value("replayPath", QString()).toString();
    choice.replay.speed = qBound(0.0, value("replaySpeed", 1.0).toDouble(), 1000.0);
    choice.replay.loops = value("replayLoops", false).toBool();
    choice.replay.keepsLines = value("replayKeepsLines", true).toBool();
    GeneratorOptions &generator = choice.generator;
    generator.rate = qBound(1, value("rate", generator.rate).toInt(), mostRate);
    generator.lines = qBound(1, value("lines", generator.lines).toInt(), mostLines);
    generator.fdFrames = value("generatorFd", false).toBool();
    generator.errorFrames = value("errorFrames", false).toBool();
    return choice;
}

void BusChoice::save() const
{
    QSettings settings;
    settings.beginGroup(QStringLiteral("bus"));
    settings.setValue(QStringLiteral("kind"), int(kind));
    settings.setValue(QStringLiteral("number"), number);
    settings.setValue(QStringLiteral("plugin"), device.plugin);
    settings.setValue(QStringLiteral("interface"), device.interface);
    settings.setValue(QStringLiteral("bitRate"), device.bitRate);
    settings.setValue(QStringLiteral("dataBitRate"), device.dataBitRate);
    settings.setValue(QStringLiteral("fd"), device.fd);
    settings.setValue(QStringLiteral("replayPath"), replay.path);
    settings.setValue(QStringLiteral("replaySpeed"), replay.speed);
    settings.setValue(QStringLiteral("replayLoops"), replay.loops);
    settings.setValue(QStringLiteral("replayKeepsLines"), replay.keepsLines);
    settings.setValue(QStringLiteral("rate"), generator.rate);
    settings.setValue(QStringLiteral("lines"), generator.lines);
    settings.setValue(QStringLiteral("generatorFd"), generator.fdFrames);
    settings.setValue(QStringLiteral("errorFrames"), generator.errorFrames);
}

std::unique_ptr<BusLine> BusChoice::makeLine(const std::shared_ptr<MessageSink> &sink) const
{
    const auto line = quint8(number);
    switch (kind) {
    case Device:
        return std::make_unique<DeviceLine>(device, line, sink);
    case Replay:
        return std::make_unique<ReplayLine>(replay, line, sink);
    default:
        return std::make_unique<GeneratorLine>(generator, line, sink);
    }
}
