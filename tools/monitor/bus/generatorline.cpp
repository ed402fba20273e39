#include "generatorline.h"

#include "messagetime.h"

GeneratorLine::GeneratorLine(const GeneratorOptions &options, quint8 number,
                             std::shared_ptr<MessageSink> sink)
    : PacedLine(tr("Generator"), number, std::move(sink)), options(options)
{
}

GeneratorLine::~GeneratorLine()
{
    endThread();
}

PacedLine::End GeneratorLine::run()
{
    TrafficMix mix(options, number());
    std::vector<CAN::CanRxMessage> batch;
    qint64 time = 0; // of the next message
    while (time = mix.nextTime(), pacer.waitFor(time)) {
        batch.clear();
        while (pacer.isDue(time) && batch.size() < 1000) {
            batch.push_back(mix.next());
            setTime(batch.back(), pacer.wallTime(time));
            time = mix.nextTime();
        }
        feed->add(batch);
    }
    return {};
}
