#include "datachunkhandler.h"
#include "savefileworker.h"

#include <QtTest>

#include <thread>

/// What applications reach through the meta-object: names, order, arguments, queued calls.
/// Links the shared library only.
class TestInterface : public QObject
{
    Q_OBJECT
private slots:
    void methodsStandInTheirOrder();
    void privateSlotsCanBeInvoked();
    void queuedCallsCarryEveryType();
    void queuedSignalsCarryFolders();
};

namespace {

// Names, types and parameter names of the methods that a class adds to those of its base.
QStringList methodsOf(const QMetaObject &meta)
{
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        QString text = QString::fromLatin1(method.methodSignature());
        for (const QByteArray &name : method.parameterNames())
            text += QLatin1Char(' ') + QString::fromLatin1(name);
        if (method.access() == QMetaMethod::Private)
            text += QStringLiteral(" private");
        methods += text.simplified();
    }
    return methods;
}

} // namespace

void TestInterface::methodsStandInTheirOrder()
{
    const QStringList ofStore{
        "newDataFile(uint,QString)",
        "newZippedFile(QString,QString,QDir,QString)",
        "zipFileLoaded(QString)",
        "newImportedFile(QString,QString)",
        "newPartialDataFile(QString,QString,QString)",
        "dataFileRemoved()",
        "showLoadingDialog(bool)",
        "messagesImported(QString)",
        "chunkContainsFdMessage(bool)",
        "informAboutClearStart()",
        "informAboutCleared(bool)",
        "newErrorMessage(QString)",
        "newLine(uchar)",
        "liveModeChanged(bool)",
        "appendCanMessage(CAN::CanRxMessage) message",
        "loadDataFromFile(QString,DatachunkHelper::SavedMessageType) fileName smt",
        "showFileLoadingError()",
        "goLive()",
        "importMessages(QString,DatachunkHelper::ImportFileType,QString) openFileName "
        "importFileType genericFormatDescription",
        "importMessages(QString,DatachunkHelper::ImportFileType) openFileName "
        "importFileType",
        "exportMessages(QString,DatachunkHelper::ExportOptions,QList<quint32>) fileName "
        "expOptions messagesToExport",
        "exportMessages(QString,DatachunkHelper::ExportOptions) fileName expOptions",
        "exportMessages(QString) fileName",
        "dataFileWasRemoved()",
        "newDataFileSaved(QString) time",
        "exportMessageRange(int,int,QString) firstMessage lastMessage saveFileName",
        "exportAllMessages(QString,DatachunkHelper::ExportOptions) fileName expOptions",
        "clearAllMessages()",
        "newPartialDataFileSaved(QString,QString) savedFileName time",
        "handleFullBuffer() private",
        "savingFinished(bool) success private",
        "addTxtMessage(CAN::CanRxMessage) msg private",
    };
    const QStringList ofWorker{"ready()",
                               "dataFileRemoved()",
                               "newDataFile(QString) time",
                               "newPartialDataFile(QString,QString) fileName time",
                               "savingFinished(bool) success",
                               "saveToFile()"};
    QCOMPARE(methodsOf(DatachunkHandler::staticMetaObject), ofStore);
    QCOMPARE(methodsOf(SaveFileWorker::staticMetaObject), ofWorker);
}

void TestInterface::privateSlotsCanBeInvoked()
{
    DatachunkHandler store(20000);
    QSignalSpy cleared(&store, &DatachunkHandler::informAboutCleared);
    QVERIFY(QMetaObject::invokeMethod(&store, "handleFullBuffer"));
    QCOMPARE(cleared.count(), 1);
    bool added = false;
    CAN::CanRxMessage message;
    message.line = 6;
    QVERIFY(QMetaObject::invokeMethod(&store, "addTxtMessage", Q_RETURN_ARG(bool, added),
                                      Q_ARG(CAN::CanRxMessage, message)));
    QVERIFY(added);
    QCOMPARE(store.getLines(), QSet<unsigned char>{6});
    QCOMPARE(store.getMessageCount(), 0u);
    QVERIFY(QMetaObject::invokeMethod(&store, "savingFinished", Q_ARG(bool, false)));
}

void TestInterface::queuedCallsCarryEveryType()
{
    DatachunkHandler store(20000);
    QSignalSpy errors(&store, &DatachunkHandler::newErrorMessage);
    QSignalSpy imported(&store, &DatachunkHandler::messagesImported);
    std::thread([&store] {
        const auto queued = Qt::QueuedConnection;
        QMetaObject::invokeMethod(&store, "appendCanMessage", queued,
                                  Q_ARG(CAN::CanRxMessage, CAN::CanRxMessage()));
        QMetaObject::invokeMethod(&store, "importMessages", queued, Q_ARG(QString, QString()),
                                  Q_ARG(DatachunkHelper::ImportFileType, DatachunkHelper::Unknown));
        QMetaObject::invokeMethod(&store, "exportMessages", queued, Q_ARG(QString, QString()),
                                  Q_ARG(DatachunkHelper::ExportOptions, {}),
                                  Q_ARG(QList<quint32>, {1}));
        QMetaObject::invokeMethod(
            &store, "loadDataFromFile", queued, Q_ARG(QString, QString()),
            Q_ARG(DatachunkHelper::SavedMessageType, DatachunkHelper::CurrentMessages));
    }).join();
    QTRY_COMPARE(store.getMessageCount(), 1u);
    QTRY_COMPARE(imported.count(), 1);
    QTRY_COMPARE(errors.count(), 1);
}

void TestInterface::queuedSignalsCarryFolders()
{
    const DatachunkHandler store(20000);
    const QMetaObject &face = *store.metaObject();
    const int signal = face.indexOfSignal("newZippedFile(QString,QString,QDir,QString)");
    QVERIFY(face.method(signal).parameterType(2) != QMetaType::UnknownType);
}

QTEST_GUILESS_MAIN(TestInterface)
#include "tst_interface.moc"
