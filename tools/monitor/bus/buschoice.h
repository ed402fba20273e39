#pragma once

#include "busline.h"
#include "devicereader.h"
#include "replayline.h"
#include "trafficmix.h"

/// What the user wants to connect. All three kinds keep their options, so that nothing has to be
/// entered twice.
struct BusChoice
{
    enum Kind { Device, Replay, Generator };

    Kind kind = Generator;
    int number = 0; ///< of the bus line, 0 to 255
    DeviceOptions device;
    ReplayOptions replay;
    GeneratorOptions generator;

    /// What was saved last.
    static BusChoice saved();
    void save() const;

    std::unique_ptr<BusLine> makeLine(const std::shared_ptr<MessageSink> &sink) const;
};
