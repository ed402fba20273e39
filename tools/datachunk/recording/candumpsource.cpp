#include "candumpsource.h"

#include "candumpline.h"
#include "cantimestamp.h"
#include "terminal.h"

#include <array>
#include <cerrno>

#include <unistd.h>

namespace {
constexpr std::size_t blockSize = 64UL * 1024;
constexpr std::size_t longestLine = 4096;
} // namespace

CandumpSource::CandumpSource(QObject *parent)
    : FrameSource(parent), notifier(STDIN_FILENO, QSocketNotifier::Read)
{
    notifier.setEnabled(false);
    connect(&notifier, &QSocketNotifier::activated, this, [this] { readBlock(); });
}

QString CandumpSource::name() const
{
    return Cli::tr("standard input");
}

bool CandumpSource::start()
{
    // Finds a closed stream or a folder at once; waiting for either would never end.
    if (read(STDIN_FILENO, nullptr, 0) < 0) {
        error = systemErrorText(errno);
        if (errno == EBADF)
            error = Cli::tr("The stream is closed, and candump lines are to come from it.");
        return false;
    }
    notifier.setEnabled(true);
    return true;
}

bool CandumpSource::setPaused(bool paused)
{
    notifier.setEnabled(!paused);
    return true;
}

// Reads one block per turn of the event loop, so that signals and finished chunks are noticed.
void CandumpSource::readBlock()
{
    std::array<char, blockSize> block;
    const ssize_t size = read(STDIN_FILENO, block.data(), block.size());
    if (size > 0)
        takeBytes({block.data(), std::size_t(size)});
    else if (size == 0)
        end(QString());
    else if (errno != EINTR && errno != EAGAIN)
        end(systemErrorText(errno));
}

void CandumpSource::takeBytes(std::string_view bytes)
{
    for (;;) {
        const std::size_t lineEnd = bytes.find('\n');
        if (lineEnd == bytes.npos) {
            keepRest(bytes);
            return;
        }
        if (unfinishedLine.empty() && !skippingLine) {
            takeLine(bytes.substr(0, lineEnd));
        } else {
            keepRest(bytes.substr(0, lineEnd));
            takeLine(unfinishedLine);
            unfinishedLine.clear();
            skippingLine = false;
        }
        bytes.remove_prefix(lineEnd + 1);
    }
}

void CandumpSource::keepRest(std::string_view rest)
{
    skippingLine = skippingLine || unfinishedLine.size() + rest.size() > longestLine;
    if (skippingLine)
        unfinishedLine = "?"; // counts as a line that is no frame
    else
        unfinishedLine += rest;
}

void CandumpSource::takeLine(std::string_view line)
{
    // How "candump -d" tells that frames came faster than it could print them.
    constexpr std::string_view dropMark = "DROPCOUNT: dropped ";
    if (line.find_first_not_of(" \t\r") == line.npos)
        return;
    if (line.substr(0, dropMark.size()) == dropMark) {
        line.remove_prefix(dropMark.size());
        const std::string_view number = line.substr(0, line.find_first_not_of("0123456789"));
        emit gap(Cli::tr("candump has dropped %1 frames.")
                     .arg(QString::fromLatin1(number.data(), int(number.size()))));
        return;
    }
    std::optional<CandumpLine> frame = readCandumpLine(line);
    if (!frame) {
        ++unreadable;
        return;
    }
    if (!frame->hasTime) {
        const CanTimeStamp now(QTime::currentTime());
        frame->message.seconds = now.seconds();
        frame->message.microseconds = now.microseconds();
    }
    emit received(frame->message);
}

void CandumpSource::end(const QString &text)
{
    notifier.setEnabled(false);
    error = text;
    takeLine(unfinishedLine);
    unfinishedLine.clear();
    emit ended();
}
