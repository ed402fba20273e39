#include "cocttimporter.h"
#include "datachunkhandler.h"
#include "genericfileimporter.h"
#include "ixxatfileimporter.h"
#include "peaktraceimporter.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <functional>
#include <memory>

using Messages = QList<CAN::CanRxMessage>;
using Notes = QMap<unsigned int, QString>;
using Type = DatachunkHelper::ImportFileType;

/// What the importer classes do beside reading, which the trace fixtures show.
class Importers : public QObject
{
    Q_OBJECT
private slots:
    void init();

    void failures_data();
    void failures();
    void everyImportNumbersFromZero_data();
    void everyImportNumbersFromZero();
    void stopsWhenDeletedByAnEvent_data();
    void stopsWhenDeletedByAnEvent();

    void peakReadsOnlyItsVersions_data();
    void peakReadsOnlyItsVersions();
    void peakEmitsAndLeavesTheListAlone();
    void peakStopsWhenASlotDeletesIt();
    void peakForgetsTheReservedColumn();
    void notesJoinThoseOfTheCaller();
    void messagesBeforeAnErrorStay();
    void genericLayoutCanBeChanged();
    void storeReportsWhatTheImporterFound_data();
    void storeReportsWhatTheImporterFound();

private:
    QString write(const QByteArray &content, const QString &name = QStringLiteral("trace"));

    std::unique_ptr<QTemporaryDir> folder;
};

namespace {

/// The importer classes behind one face, each with a trace of one message and a broken one.
struct Importer
{
    std::shared_ptr<QObject> object;
    std::function<bool(const QString &, Messages *, Notes *)> importFile;
    std::function<QString()> errorString;
};

template <typename Class> Importer importerOf()
{
    const auto object = std::make_shared<Class>();
    Class *const raw = object.get();
    return {object,
            [raw](const QString &file, Messages *messages, Notes *notes) {
                return raw->importFile(file, messages, notes);
            },
            [raw] { return raw->getErrorString(); }};
}

Importer peakImporter(Type type)
{
    const auto object = std::make_shared<PeakTraceImporter>();
    PeakTraceImporter *const raw = object.get();
    return {object,
            [raw, type](const QString &file, Messages *messages, Notes *notes) {
                const auto connection =
                    QObject::connect(raw, &PeakTraceImporter::newMessage,
                                     [messages](const CAN::CanRxMessage &message) {
                                         if (messages)
                                             messages->append(message);
                                     });
                const bool read = raw->importFile(file, type, messages, notes);
                QObject::disconnect(connection);
                return read;
            },
            [raw] { return raw->getErrorString(); }};
}

struct Sample
{
    const char *name;
    Importer (*create)();
    QByteArray good;
    QByteArray broken;
    QString error;
};

const QString lineError = QStringLiteral("Import error occured at line 2 of file %1.");
const QString columnError =
    QStringLiteral("Import error occured. No valid column description found.");

QVector<Sample> samples()
{
    return {
        {"PEAK 1.x", [] { return peakImporter(Type::PeakTrc11); }, "1) 1.5 Rx 0123 1 11\n",
         ";\n1) 1.5 Rx\n", lineError},
        {"PEAK 2.x", [] { return peakImporter(Type::PeakTrc20); },
         ";$COLUMNS=N,O,T,I,d,l,D\n1 1.5 DT 0123 Rx 1 11\n", "1 1.5 DT 0123 Rx 1 11\n",
         columnError},
        {"Ixxat", importerOf<IxxatFileImporter>, "Time,ID,Data,,,\n1,123,11,,,,\n",
         "Time,Node ID,Data\n\n", columnError},
        {"CoCTT", importerOf<CoCTTImporter>, "Test CAN : 1 123 Rx SD 1 11\n",
         "\nTest CAN : 1 123\n", lineError},
        {"described layout", importerOf<GenericFileImporter>, "1.5 1 123 Rx d 1 11\n",
         "#\n1.5 1 123\n", lineError},
    };
}

void addSampleRows()
{
    QTest::addColumn<int>("index");
    const QVector<Sample> all = samples();
    for (int i = 0; i < all.size(); ++i)
        QTest::newRow(all[i].name) << i;
}

} // namespace

void Importers::init()
{
    folder = std::make_unique<QTemporaryDir>();
}

QString Importers::write(const QByteArray &content, const QString &name)
{
    QFile file(folder->filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write a trace");
    return file.fileName();
}

void Importers::failures_data()
{
    addSampleRows();
}

void Importers::failures()
{
    QFETCH(int, index);
    const Sample sample = samples().at(index);
    const Importer importer = sample.create();
    const QString broken = write(sample.broken, QStringLiteral("100%2 %1 broken"));
    Messages messages;
    Notes notes;

    QVERIFY(!importer.importFile(write(sample.good), nullptr, &notes));
    QVERIFY(!importer.importFile(folder->filePath(QStringLiteral("missing")), &messages, &notes));
    QVERIFY(!importer.importFile(folder->path(), &messages, &notes));
    QCOMPARE(importer.errorString(), QStringLiteral("No error."));

    QVERIFY(!importer.importFile(broken, &messages, nullptr));
    const QString error = QString(sample.error).replace(QStringLiteral("%1"), broken);
    QCOMPARE(importer.errorString(), error);
    QVERIFY(importer.importFile(write(sample.good), &messages, nullptr));
    QVERIFY(!importer.importFile(folder->filePath(QStringLiteral("missing")), &messages, nullptr));
    QCOMPARE(importer.errorString(), error);
}

void Importers::everyImportNumbersFromZero_data()
{
    addSampleRows();
}

void Importers::everyImportNumbersFromZero()
{
    QFETCH(int, index);
    const Sample sample = samples().at(index);
    const Importer importer = sample.create();
    const QString trace = write(sample.good);
    Messages messages;
    Notes notes;
    for (int i = 0; i < 2; ++i)
        QVERIFY(importer.importFile(trace, &messages, &notes));
    QCOMPARE(messages.size(), 2);
    for (const CAN::CanRxMessage &message : qAsConst(messages)) {
        QCOMPARE(message.messageNumber, 0u);
        QCOMPARE(message.id, 0x123u);
        QCOMPARE(int(message.data[0]), 0x11);
    }
    QVERIFY(notes.isEmpty());
}

void Importers::stopsWhenDeletedByAnEvent_data()
{
    addSampleRows();
}

void Importers::stopsWhenDeletedByAnEvent()
{
    QFETCH(int, index);
    const Sample sample = samples().at(index);
    Importer importer = sample.create();
    const QString trace = write(sample.good);
    const auto importFile = importer.importFile;
    QMetaObject::invokeMethod(
        this, [&importer] { importer.object.reset(); }, Qt::QueuedConnection);
    Messages messages;
    Notes notes;
    QVERIFY(!importFile(trace, &messages, &notes));
    QVERIFY(messages.isEmpty());
}

void Importers::peakReadsOnlyItsVersions_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("version 1.0 is not read") << int(Type::PeakTrc10);
    QTest::newRow("a type that other readers take is not read") << int(Type::SocketCanDump);
    QTest::newRow("an unknown type is not read") << int(Type::Unknown);
    QTest::newRow("a number that is no type is not read") << 262;
}

void Importers::peakReadsOnlyItsVersions()
{
    QFETCH(int, type);
    const QString trace = write("(1.5) can0 123#11\n1) 1.5 Rx 0123 1 11\n");
    PeakTraceImporter importer;
    Messages messages;
    Notes notes;
    QVERIFY(!importer.importFile(trace, Type(type), &messages, &notes));
    QCOMPARE(importer.getErrorString(), QStringLiteral("No error."));

    DatachunkHandler store(10000);
    QSignalSpy errors(&store, &DatachunkHandler::newErrorMessage);
    QVERIFY(!store.loadPeakTraceFile(trace, Type(type)));
    store.informAboutLastError();
    QCOMPARE(errors.last().first().toString(), QStringLiteral("No error."));
}

void Importers::peakEmitsAndLeavesTheListAlone()
{
    const QString trace = write("1) 1.5 Rx 0001 0\n2) 2.5 Warng BUSOFF\n3) 3.5 Tx 0002 0\n");
    PeakTraceImporter importer;
    QSignalSpy emitted(&importer, &PeakTraceImporter::newMessage);
    Messages messages;
    QVERIFY(importer.importFile(trace, Type::PeakTrc11, &messages, nullptr));
    QVERIFY(messages.isEmpty());
    QCOMPARE(emitted.size(), 2);
    QCOMPARE(emitted[0].first().value<CAN::CanRxMessage>().id, 1u);
    QCOMPARE(emitted[1].first().value<CAN::CanRxMessage>().messageNumber, 1u);
}

void Importers::peakStopsWhenASlotDeletesIt()
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

void Importers::peakForgetsTheReservedColumn()
{
    PeakTraceImporter importer;
    QSignalSpy emitted(&importer, &PeakTraceImporter::newMessage);
    Messages messages;
    const QByteArray row = "1 1.5 DT 0001 Rx . 1 11\n";
    const QString with = write(";$COLUMNS=N,O,T,I,d,R,L,D\n" + row, QStringLiteral("with"));
    const QString without = write(";$COLUMNS=N,O,T,I,d,?,L,D\n" + row, QStringLiteral("without"));
    QVERIFY(importer.importFile(with, Type::PeakTrc21, &messages, nullptr));
    QCOMPARE(emitted.size(), 0);
    QVERIFY(importer.importFile(without, Type::PeakTrc21, &messages, nullptr));
    QCOMPARE(emitted.size(), 1);
}

void Importers::notesJoinThoseOfTheCaller()
{
    const QString trace = write("Test Info : a\nTest CAN : 1 1 Rx SD 0\nTest Error : b\n");
    Messages messages;
    Notes notes = {{0, QStringLiteral("mine")}, {7, QStringLiteral("other")}};
    QVERIFY(CoCTTImporter().importFile(trace, &messages, &notes));
    const Notes expected = {{0, QStringLiteral("mine | Test Info : a")},
                            {1, QStringLiteral("Test Error : b")},
                            {7, QStringLiteral("other")}};
    QCOMPARE(notes, expected);
}

void Importers::messagesBeforeAnErrorStay()
{
    Messages messages;
    const QString trace = write("1.0 1 7 Rx d 0\n2.0 1\n");
    QVERIFY(!GenericFileImporter().importFile(trace, &messages, nullptr));
    QCOMPARE(messages.size(), 1);
    QCOMPARE(messages[0].id, 7u);
}

void Importers::genericLayoutCanBeChanged()
{
    GenericFileImporter importer;
    QCOMPARE(importer.formatDescription, QStringLiteral("t n i ? ? l d"));
    importer.formatDescription = QStringLiteral("I t");
    Messages messages;
    QVERIFY(importer.importFile(write("10 1.5\n"), &messages, nullptr));
    QCOMPARE(messages[0].id, 10u);
    QCOMPARE(messages[0].microseconds, 5);
}

void Importers::storeReportsWhatTheImporterFound_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QByteArray>("broken");
    QTest::addColumn<QString>("error");
    const QVector<Sample> all = samples();
    for (int i = 0; i < all.size(); ++i)
        QTest::newRow(all[i].name) << i << all[i].broken << all[i].error;
}

void Importers::storeReportsWhatTheImporterFound()
{
    QFETCH(int, index);
    QFETCH(QByteArray, broken);
    QFETCH(QString, error);
    DatachunkHandler store(10000);
    QSignalSpy errors(&store, &DatachunkHandler::newErrorMessage);
    const std::function<bool(const QString &)> load[] = {
        [&](const QString &file) { return store.loadPeakTraceFile(file, Type::PeakTrc11); },
        [&](const QString &file) { return store.loadPeakTraceFile(file, Type::PeakTrc20); },
        [&](const QString &file) { return store.loadIxxatFile(file); },
        [&](const QString &file) { return store.loadCoCTTFile(file); },
        [&](const QString &file) {
            return store.loadGenericFile(file, QStringLiteral("t n i ? ? l d"));
        },
    };
    const QString file = write(broken);
    QVERIFY(!load[index](file));
    store.informAboutLastError();
    QCOMPARE(errors.last().first().toString(), error.replace(QStringLiteral("%1"), file));
    QVERIFY(!load[index](folder->filePath(QStringLiteral("missing"))));
    store.informAboutLastError();
    QCOMPARE(errors.last().first().toString(), QStringLiteral("No error."));
    QVERIFY(load[index](write(samples().at(index).good)));
}

QTEST_GUILESS_MAIN(Importers)
#include "tst_importers.moc"
