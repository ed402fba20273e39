#pragma once

#include "datachunkhandler.h"
#include "showntrace.h"

/// What is received from the bus lines: the store that records it, and the trace that is shown.
class Recording : public ShownTrace
{
    Q_OBJECT
public:
    explicit Recording(QObject *parent = nullptr);
    ~Recording() override;

    DatachunkHandler &store() { return *ownStore; }

private:
    explicit Recording(std::unique_ptr<DatachunkHandler> store, QObject *parent);

    const std::unique_ptr<DatachunkHandler> ownStore;
};
