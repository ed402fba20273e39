#pragma once

#include "pacedline.h"
#include "trafficmix.h"

/// Traffic for trying the monitor without hardware.
class GeneratorLine : public PacedLine
{
    Q_OBJECT
public:
    GeneratorLine(const GeneratorOptions &options, quint8 number,
                  std::shared_ptr<MessageSink> sink);
    ~GeneratorLine() override;

    int lastNumber() const override { return number() + options.lines - 1; }

private:
    End run() override;

    const GeneratorOptions options;
};
