#pragma once

#include "framesource.h"

#include <QSocketNotifier>

#include <string>
#include <string_view>

/// candump lines from standard input, as they come. Lines without a time get the time of day
/// at which they arrive. Never holds more than one block and one line.
class CandumpSource : public FrameSource
{
    Q_OBJECT
public:
    explicit CandumpSource(QObject *parent = nullptr);

    QString name() const override;
    bool start() override;
    bool setPaused(bool paused) override;
    QString errorText() const override { return error; }
    quint64 unreadableCount() const override { return unreadable; }

private:
    void readBlock();
    void takeBytes(std::string_view bytes);
    void keepRest(std::string_view rest);
    void takeLine(std::string_view line);
    void end(const QString &text);

    QSocketNotifier notifier;
    std::string unfinishedLine;
    bool skippingLine = false; // the rest of a line that is too long
    QString error;
    quint64 unreadable = 0;
};
