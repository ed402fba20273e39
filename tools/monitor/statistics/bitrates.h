#pragma once

#include "digestvalues.h"

/// How fast a line is, in bit/s, which a trace does not tell.
struct BitRates
{
    static constexpr int least = 1000;
    static constexpr int most = 20000000;

    int nominal = 500000;
    int data = 2000000; ///< of CAN FD frames with the bit rate switched

    /// How busy the bits keep the line for a second, from 0 to 1; more where the rates are wrong.
    double load(const BusBits &bits) const;

    /// What the user has said of a line.
    static BitRates ofLine(quint8 line);
    void keep(quint8 line) const;
};
