#pragma once

#include <QString>

#include <functional>

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
    /// What a button of the notice says and does; none where the text is empty. It is called on
    /// the window's thread, once at most.
    QString actionText = {};
    std::function<void()> action = {};
};
