#pragma once

#include "pacedline.h"

/// A trace that is to come again.
struct ReplayOptions
{
    QString path;           ///< a file of any kind, or a folder of chunks
    double speed = 1;       ///< 0 for as fast as possible
    bool loops = false;     ///< begins anew at its end
    bool keepsLines = true; ///< the messages keep their bus lines
};

/// Replays a trace, with the times between its messages, as if they came now.
class ReplayLine : public PacedLine
{
    Q_OBJECT
public:
    ReplayLine(const ReplayOptions &options, quint8 number, std::shared_ptr<MessageSink> sink);
    ~ReplayLine() override;

private:
    End run() override;
    End replayOnce();
    End replayFile();
    End replayFolder();
    bool take(const CAN::CanRxMessage &message);
    void flush();

    const ReplayOptions options;
    std::vector<CAN::CanRxMessage> batch; // of the thread
    quint64 messages = 0;                 // in this round; of the thread
};
