#pragma once

#include "traceitems.h"

#include <memory>
#include <vector>

/// Several traces as one, in order of time. Within each trace the order stays, and of equal times
/// the trace that is named first comes first. Each is read on a thread of its own; some thousand of
/// its messages wait.
class MergedItems : public TraceItems
{
public:
    static constexpr std::size_t mostInputs = 100;

    explicit MergedItems(std::vector<std::unique_ptr<TraceItems>> inputs);
    ~MergedItems() override;

    bool forEach(const Take &take, const GoesOn &goesOn) override;

private:
    class Input;

    std::vector<std::unique_ptr<Input>> begin() const;
    void merge(const std::vector<std::unique_ptr<Input>> &all, const Take &take,
               const GoesOn &goesOn);
    double partOf(const std::vector<std::unique_ptr<Input>> &all) const;

    const std::vector<std::unique_ptr<TraceItems>> inputs;
};
