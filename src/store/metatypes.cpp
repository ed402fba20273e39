#include "metatypes.h"

#include "canrxmessage.h"
#include "datachunkhelper.h"

#include <QDir>
#include <QList>
#include <QMetaType>

void registerMetaTypes()
{
    // Qt drops a queued call without a word to the caller when it does not know an argument.
    static const bool registered = [] {
        qRegisterMetaType<CAN::CanRxMessage>("CAN::CanRxMessage");
        qRegisterMetaType<QDir>("QDir");
        qRegisterMetaType<QList<quint32>>("QList<quint32>");
        qRegisterMetaType<QList<unsigned int>>("QList<unsigned int>");
        qRegisterMetaType<DatachunkHelper::SavedMessageType>("DatachunkHelper::SavedMessageType");
        qRegisterMetaType<DatachunkHelper::ImportFileType>("DatachunkHelper::ImportFileType");
        qRegisterMetaType<DatachunkHelper::ExportOptions>("DatachunkHelper::ExportOptions");
        return true;
    }();
    Q_UNUSED(registered)
}
