#include "datachunktranslations.h"
#include "importreport.h"
#include "peaktraceimporter.h"
#include "traceexpression.h"

#include <QtTest>
#include <QXmlStreamReader>

/// The catalogues, and the library's texts in the language that an application asks for. Links the
/// shared library only.
class TestTranslations : public QObject
{
    Q_OBJECT
private slots:
    void placeholdersAreKept_data();
    void placeholdersAreKept();
    void theLanguageIsInstalled_data();
    void theLanguageIsInstalled();
    void everyContextIsFound();
};

namespace {

// What a text and its translation must have in common.
QString frameOf(const QString &text)
{
    static const QRegularExpression place(QStringLiteral("%(?:L?\\d|[np])|&(?=\\S)"));
    QStringList places;
    for (auto found = place.globalMatch(text); found.hasNext();)
        places.append(found.next().captured());
    places.sort();
    places.removeDuplicates();
    const QString start = text.startsWith(QLatin1Char('\n')) ? QStringLiteral("\\n") : QString();
    const QString end = text.endsWith(QLatin1Char('\n')) ? QStringLiteral("\\n") : QString();
    return start + places.join(QLatin1Char(' ')) + end;
}

QString bracketError()
{
    TraceExpression::Error error;
    TraceExpression::parse(QStringLiteral("(err"), &error);
    return error.text;
}

QString peakError()
{
    QTemporaryFile file;
    if (!file.open() || file.write(";$FILEVERSION=2.1\n;$COLUMNS=?\n 1) x\n") < 0 || !file.flush())
        return {};
    QList<CAN::CanRxMessage> messages;
    PeakTraceImporter importer;
    importer.importFile(file.fileName(), DatachunkHelper::PeakTrc21, &messages, nullptr);
    return importer.getErrorString();
}

} // namespace

void TestTranslations::placeholdersAreKept_data()
{
    QTest::addColumn<QString>("path");
    const QDir folder(QStringLiteral(TRANSLATIONS));
    const QStringList names = folder.entryList({QStringLiteral("*.ts")});
    QCOMPARE(names.size(), 7);
    for (const QString &name : names)
        QTest::newRow(qPrintable(name)) << folder.filePath(name);
}

void TestTranslations::placeholdersAreKept()
{
    QFETCH(QString, path);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QXmlStreamReader xml(&file);
    QString source;
    QString element;
    int texts = 0;
    while (!xml.atEnd()) {
        xml.readNext();
        if (!xml.isStartElement())
            continue;
        if (xml.name() == QLatin1String("message"))
            element = xml.attributes().hasAttribute(QLatin1String("numerus"))
                ? QStringLiteral("numerusform")
                : QStringLiteral("translation");
        if (xml.name() == QLatin1String("source"))
            source = xml.readElementText();
        if (xml.name() != element)
            continue;
        const QString text = xml.readElementText();
        QVERIFY2(!text.isEmpty(), qPrintable(source));
        QCOMPARE(frameOf(text), frameOf(source));
        ++texts;
    }
    QVERIFY(!xml.hasError() && texts > 10);
}

void TestTranslations::theLanguageIsInstalled_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("text");
    QTest::newRow("German") << "de_DE"
                            << "leer";
    QTest::newRow("German of another country") << "de_AT"
                                               << "leer";
    QTest::newRow("French in place of German") << "fr_CA"
                                               << "vide";
    QTest::newRow("English in place of French") << "en_GB"
                                                << "empty";
    QTest::newRow("a language that there is not") << "it_IT"
                                                  << "empty";
    QTest::newRow("no language") << "C"
                                 << "empty";
}

void TestTranslations::theLanguageIsInstalled()
{
    QFETCH(QString, locale);
    QFETCH(QString, text);
    QCOMPARE(DatachunkTranslations::install(QLocale(locale)), text != QLatin1String("empty"));
    QCOMPARE(ImportReport::reasonText(ImportReport::Empty), text);
    QCOMPARE(ImportReport::reasonName(ImportReport::Empty), "empty");
}

void TestTranslations::everyContextIsFound()
{
    QCOMPARE(bracketError(), QStringLiteral("A closing parenthesis is missing here."));
    QVERIFY(peakError().startsWith(QLatin1String("Import error occured")));
    QVERIFY(DatachunkTranslations::install(QLocale(QStringLiteral("de"))));
    QCOMPARE(bracketError(), QStringLiteral("Hier fehlt eine schließende Klammer."));
    QVERIFY2(peakError().startsWith(QLatin1String("Fehler beim Import")), qPrintable(peakError()));
}

QTEST_GUILESS_MAIN(TestTranslations)
#include "tst_translations.moc"
