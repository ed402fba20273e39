#pragma once

#include "busline.h"

#include <vector>

struct BusChoice;

/// The bus lines that are connected, or were. Their number is bounded.
class BusLines : public QObject
{
    Q_OBJECT
public:
    static constexpr int most = 32;

    explicit BusLines(std::shared_ptr<MessageSink> sink, QObject *parent = nullptr);
    ~BusLines() override;

    int count() const { return int(lines.size()); }
    BusLine *at(int index) const { return lines[std::size_t(index)].get(); }
    bool isAnyActive() const;
    /// The number behind all those that lines have; 0 where there is none left.
    int freeNumber() const;

    /// Adds a line and starts it. Null, with a notice, when there are too many.
    BusLine *add(const BusChoice &choice);
    void remove(int index);
    void stopAll();

signals:
    void aboutToBeAdded(int index);
    void added();
    void aboutToBeRemoved(int index);
    void removed();
    void stateChanged(int index);
    /// Whether any line is active.
    void activeChanged(bool active);
    void notice(const Notice &notice);

private:
    void lineChanged(const BusLine *line);
    void tellActive();

    const std::shared_ptr<MessageSink> sink;
    std::vector<std::unique_ptr<BusLine>> lines;
    bool wasActive = false;
};
