#pragma once

#include <QString>

/// What the window has to tell its user: what has happened and what to do about it, each in whole
/// sentences.
struct Notice
{
    enum Kind {
        Information, ///< goes away by itself
        Warning,     ///< stays until it is closed
        Failure      ///< the same, and something that was asked for has not been done
    };
    Kind kind = Information;
    QString text;
    QString advice; ///< may be empty
};
