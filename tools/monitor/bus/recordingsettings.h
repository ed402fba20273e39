#pragma once

#include <QString>

/// How recordings are kept.
struct RecordingSettings
{
    static constexpr int leastBudget = 16;
    static constexpr int mostBudget = 10000000;
    static constexpr int leastMemory = 10000;
    static constexpr int mostMemory = 5000000;

    int budget = 10000;  ///< MiB on the disk; beyond it the oldest chunk goes
    int memory = 200000; ///< messages in memory before they go to the disk
    QString folder;      ///< where saved recordings are put

    static RecordingSettings saved();
    void save() const;
};
