#include "recordingoutput.h"

#include "fileerrors.h"

#include <utility>

bool RecordingOutput::create(const QString &fileName)
{
    // What goes wrong at the end of the file before is told of that file.
    if (!finish())
        return false;
    errorTold = false;
    return output->create(fileName);
}

void RecordingOutput::append(const CAN::CanRxMessage &message)
{
    output->append(message);
    tellError();
}

bool RecordingOutput::finish()
{
    output->finish();
    return tellError();
}

bool RecordingOutput::goOnWith(std::unique_ptr<ContinuousOutput> begun)
{
    if (!finish())
        return false;
    output = std::move(begun);
    errorTold = false;
    return true;
}

bool RecordingOutput::tellError()
{
    const QString reason = output->errorText();
    if (reason.isEmpty() || std::exchange(errorTold, true))
        return true;
    return teller.tell(&DatachunkHandler::newErrorMessage,
                       FileErrors::notWritten(output->fileName(), reason));
}
