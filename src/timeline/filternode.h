#pragma once

#include "bytepattern.h"
#include "ranges.h"

#include <QString>

#include <vector>

/// One question to a message.
struct FrameTest
{
    enum Field : quint8 {
        // Numbers, which have to lie in the ranges.
        Id,
        Kind,
        Line,
        Length,
        Number,
        Time, ///< in microseconds
        Byte,
        // Others.
        Data,
        Note,
        Changed
    };

    static constexpr quint64 all = ~Q_UINT64_C(0);

    Field field = Id;
    quint8 byte = 0;    ///< which one, for Byte
    quint64 mask = all; ///< the bits of the number that count
    Ranges ranges;
    BytePattern pattern; ///< for Data
    QString text;        ///< for Note: what it contains; any note will do where it is empty
};

/// An expression as a tree.
struct FilterNode
{
    enum Kind : quint8 { Test, All, Any };

    Kind kind = Test;
    bool isNegated = false;
    FrameTest test;
    std::vector<FilterNode> children; ///< of All and Any
};
