#include "canrxmessage.h"
#include "datachunkhelper.h"

#include <QDir>
#include <QList>
#include <QMetaType>

// The types that signals, slots and queued calls of the library carry, by the names that callers
// may use: Qt drops a queued call when it does not know an argument. Done while the library is
// loaded, since a caller may connect before it makes the first object.
static void registerMetaTypes()
{
    qRegisterMetaType<CAN::CanRxMessage>("CAN::CanRxMessage");
    qRegisterMetaType<QDir>("QDir");
    qRegisterMetaType<QList<quint32>>("QList<quint32>");
    qRegisterMetaType<QList<unsigned int>>("QList<unsigned int>");
    qRegisterMetaType<DatachunkHelper::SavedMessageType>("DatachunkHelper::SavedMessageType");
    qRegisterMetaType<DatachunkHelper::ImportFileType>("DatachunkHelper::ImportFileType");
    qRegisterMetaType<DatachunkHelper::ExportOptions>("DatachunkHelper::ExportOptions");
}

Q_CONSTRUCTOR_FUNCTION(registerMetaTypes)
