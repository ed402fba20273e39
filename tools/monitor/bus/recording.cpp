#include "recording.h"

namespace {

constexpr unsigned int messagesInMemory = 200000;

} // namespace

Recording::Recording(QObject *parent)
    : Recording(std::make_unique<DatachunkHandler>(messagesInMemory), parent)
{
}

Recording::Recording(std::unique_ptr<DatachunkHandler> store, QObject *parent)
    : ShownTrace(store->timeline(), tr("Recording"), parent), ownStore(std::move(store))
{
}

Recording::~Recording() = default;
