#pragma once

#include "traceinput.h"

/// An input whose message numbers occur once each, as they have to in a file: notes and bookmarks
/// belong to them. Chunks of an archive may come from several traces, each numbered from 0.
class UniqueNumbers : public TraceInput
{
public:
    /// \a input must live as long.
    explicit UniqueNumbers(TraceInput &input) : input(input) { }

    std::vector<Name> names() const override { return input.names(); }
    QString subject() const override { return input.subject(); }
    Result open() override { return input.open(); }
    Result forEachMessage(quint64 from, const Visit &visit) override;
    double part() const override { return input.part(); }

private:
    TraceInput &input;
};
