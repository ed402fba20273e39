#include "cocttimporter.h"
#include "datachunkhandler.h"
#include "genericfileimporter.h"
#include "ixxatfileimporter.h"
#include "peaktraceimporter.h"

#include <QtTest>

#include <memory>

using Messages = QList<CAN::CanRxMessage>;
using Notes = QMap<unsigned int, QString>;
using Store = DatachunkHandler;
using Type = DatachunkHelper::ImportFileType;

/// What the importer classes do beside reading, which the trace fixtures show.
class TestImporters : public QObject
{
    Q_OBJECT
private slots:
    void peak();
    void ixxat();
    void coctt();
    void describedLayout();
    void peakReadsOnlyItsVersions();
    void peakStopsWhenASlotDeletesIt();
    void notesJoinThoseOfTheCaller();
    void genericLayoutCanBeChanged();

private:
    QString write(const QByteArray &content, const QString &name = QStringLiteral("trace"));

    /// Uses a class with a trace of one message and a broken one, and then the store's function
    /// that does the same.
    template <typename Class, typename... Types>
    void use(const QByteArray &good, const QByteArray &broken, QString error,
             bool (*load)(Store &, const QString &), Types... type);

    const QTemporaryDir folder;
};

namespace {

const QString noError = QStringLiteral("No error.");
const QString lineError = QStringLiteral("Import error occured at line 2 of file %1.");
const QString columnError =
    QStringLiteral("Import error occured. No valid column description found.");

} // namespace

QString TestImporters::write(const QByteArray &content, const QString &name)
{
    QFile file(folder.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write a trace");
    return file.fileName();
}

template <typename Class, typename... Types>
void TestImporters::use(const QByteArray &good, const QByteArray &broken, QString error,
                        bool (*load)(Store &, const QString &), Types... type)
{
    const QString goodTrace = write(good);
    const QString brokenTrace = write(broken, QStringLiteral("100%2 %1 broken"));
    const QString missing = folder.filePath(QStringLiteral("missing"));
    error.replace(QStringLiteral("%1"), brokenTrace);
    Messages messages;
    Notes notes;
    auto importer = std::make_unique<Class>();
    // Those with a type emit their messages and leave the list alone.
    if constexpr (sizeof...(type) != 0)
        connect(importer.get(), &Class::newMessage, this,
                [&messages](const CAN::CanRxMessage &message) { messages.append(message); });

    QVERIFY(!importer->importFile(goodTrace, type..., nullptr, &notes));
    QVERIFY(!importer->importFile(missing, type..., &messages, &notes));
    QVERIFY(!importer->importFile(folder.path(), type..., &messages, &notes));
    QCOMPARE(importer->getErrorString(), noError);
    QVERIFY(!importer->importFile(brokenTrace, type..., &messages, nullptr));
    QCOMPARE(importer->getErrorString(), error);
    messages.clear();
    for (int i = 0; i < 2; ++i)
        QVERIFY(importer->importFile(goodTrace, type..., &messages, &notes));
    QVERIFY(!importer->importFile(missing, type..., &messages, &notes));
    QCOMPARE(importer->getErrorString(), error);
    QCOMPARE(messages.size(), 2);
    for (const CAN::CanRxMessage &message : qAsConst(messages)) {
        QCOMPARE(message.messageNumber, 0u);
        QCOMPARE(message.id, 0x123u);
        QCOMPARE(int(message.data[0]), 0x11);
    }
    QVERIFY(notes.isEmpty());

    messages.clear();
    QMetaObject::invokeMethod(
        this, [&importer] { importer.reset(); }, Qt::QueuedConnection);
    QVERIFY(!importer->importFile(goodTrace, type..., &messages, &notes));
    QVERIFY(messages.isEmpty() && !importer);

    Store store(10000);
    QSignalSpy errors(&store, &Store::newErrorMessage);
    QVERIFY(!load(store, brokenTrace));
    store.informAboutLastError();
    QCOMPARE(errors.last().first().toString(), error);
    QVERIFY(!load(store, missing));
    store.informAboutLastError();
    QCOMPARE(errors.last().first().toString(), noError);
    QVERIFY(load(store, goodTrace));
}

void TestImporters::peak()
{
    constexpr auto v11 = Type::PeakTrc11;
    constexpr auto v20 = Type::PeakTrc20;
    use<PeakTraceImporter>(
        "1) 1.5 Rx 0123 1 11\n", "1) 1.5 Warng BUSOFF\n2) 2.5 Rx\n", lineError,
        [](Store &s, const QString &f) { return s.loadPeakTraceFile(f, v11); }, v11);
    use<PeakTraceImporter>(
        ";$COLUMNS=N,O,T,I,d,l,D\n1 1.5 DT 0123 Rx 1 11\n", "1 1.5 DT 0123 Rx 1 11\n", columnError,
        [](Store &s, const QString &f) { return s.loadPeakTraceFile(f, v20); }, v20);
}

void TestImporters::ixxat()
{
    use<IxxatFileImporter>("Time,ID,Data,,,\n1,123,11,,,,\n", "Time,Node ID,Data\n\n", columnError,
                           [](Store &s, const QString &f) { return s.loadIxxatFile(f); });
}

void TestImporters::coctt()
{
    use<CoCTTImporter>("Test CAN : 1 123 Rx SD 1 11\n", "Test Info : a\nTest CAN : 1 123\n",
                       lineError, [](Store &s, const QString &f) { return s.loadCoCTTFile(f); });
}

void TestImporters::describedLayout()
{
    const auto load = [](Store &s, const QString &f) {
        return s.loadGenericFile(f, QStringLiteral("t n i ? ? l d"));
    };
    use<GenericFileImporter>("1.5 1 123 Rx d 1 11\n", "#\n1.5 1 123\n", lineError, load);
}

void TestImporters::peakReadsOnlyItsVersions()
{
    const QString trace = write("(1.5) can0 123#11\n1) 1.5 Rx 0123 1 11\n");
    PeakTraceImporter importer;
    Messages messages;
    Store store(10000);
    // The last one is PeakTrc12 in 8 bits.
    for (const int type : {int(Type::PeakTrc10), int(Type::SocketCanDump), 262}) {
        QVERIFY(!importer.importFile(trace, Type(type), &messages, nullptr));
        QCOMPARE(importer.getErrorString(), noError);
        QVERIFY(!store.loadPeakTraceFile(trace, Type(type)));
    }
}

void TestImporters::peakStopsWhenASlotDeletesIt()
{
    const QString trace = write("1) 1.5 Rx 0001 0\n2) 2.5 Rx 0002 0\nwords\n");
    auto importer = std::make_unique<PeakTraceImporter>();
    int received = 0;
    connect(importer.get(), &PeakTraceImporter::newMessage, this, [&] {
        ++received;
        importer.reset();
    });
    Messages messages;
    QVERIFY(!importer->importFile(trace, Type::PeakTrc11, &messages, nullptr));
    QCOMPARE(received, 1);
}

void TestImporters::notesJoinThoseOfTheCaller()
{
    const QString trace = write("Test Info : a\nTest CAN : 1 1 Rx SD 0\nTest Error : b\n");
    Messages messages;
    Notes notes = {{0, QStringLiteral("mine")}, {7, QStringLiteral("other")}};
    QVERIFY(CoCTTImporter().importFile(trace, &messages, &notes));
    QCOMPARE(notes, Notes({{0, "mine | Test Info : a"}, {1, "Test Error : b"}, {7, "other"}}));
}

void TestImporters::genericLayoutCanBeChanged()
{
    GenericFileImporter importer;
    QCOMPARE(importer.formatDescription, QStringLiteral("t n i ? ? l d"));
    importer.formatDescription = QStringLiteral("I t l");
    Messages messages;
    QVERIFY(!importer.importFile(write("10 1.5 0\n11\n"), &messages, nullptr));
    QCOMPARE(messages.size(), 1); // the one before the error
    QCOMPARE(messages[0].id, 10u);
    QCOMPARE(messages[0].microseconds, 5);
}

QTEST_GUILESS_MAIN(TestImporters)
#include "tst_importers.moc"
