#pragma once

#include "datachunkhandler.h"

#include <QPointer>
#include <QStringList>

#include <functional>
#include <utility>

/// Tells the application something through the store. A slot may delete the store, and with it
/// whatever belongs to the store: whoever has told something goes by what was returned before the
/// next use of anything. Copies are cheap; one on the stack may be asked later as well.
class Teller
{
public:
    explicit Teller(DatachunkHandler *store) : store(store) { }

    bool storeExists() const { return !store.isNull(); }

    /// Calls a signal or slot of the store. False when the store is gone, before or because of it.
    template <typename... Parameters, typename... Arguments>
    [[nodiscard]] bool tell(void (DatachunkHandler::*signal)(Parameters...),
                            Arguments &&...arguments) const
    {
        // This Teller may belong to what the slot deletes.
        const QPointer<DatachunkHandler> called = store;
        if (called)
            (called->*signal)(std::forward<Arguments>(arguments)...);
        return !called.isNull();
    }

    /// The same as the last thing that is done for the store.
    template <typename... Parameters, typename... Arguments>
    void tellLast(void (DatachunkHandler::*signal)(Parameters...), Arguments &&...arguments) const
    {
        static_cast<void>(tell(signal, std::forward<Arguments>(arguments)...));
    }

    /// Tells each text that is not empty as an error message.
    [[nodiscard]] bool tellErrors(const QStringList &texts) const;

    /// Has \a function called by the event loop of the store's thread, if the store is still there
    /// by then. Any thread.
    void later(const std::function<void()> &function) const;

    /// Calls what later() has left to the event loop, if this is the store's thread. Any of that
    /// may delete the store.
    void deliverWaiting() const;

    bool isOnStoreThread() const;

    /// Calls \a function at once on the store's thread, later from any other.
    void onStoreThread(const std::function<void()> &function) const;

private:
    QPointer<DatachunkHandler> store;
};
