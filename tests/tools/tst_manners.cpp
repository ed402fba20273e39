#include "program.h"

#include <QRegularExpression>
#include <QtTest>

/// What the program says of itself, and how it speaks to a terminal.
class TestManners : public FolderTest
{
    Q_OBJECT
private slots:
    void examplesAreNoWrongUsage();
    void completionKnowsTheOptions_data();
    void completionKnowsTheOptions();
    void coloursAreForTerminals_data();
    void coloursAreForTerminals();
    void quietTellsFailuresOnly();
    void controlCharactersNeverArrive();
};

namespace {

// What a shell prints, to which the program is "$0".
QByteArray printed(const QString &commands)
{
    return run({}, {}, commands + QLatin1String("; exit;")).output;
}

} // namespace

void TestManners::examplesAreNoWrongUsage()
{
    const QString page = QString::fromUtf8(outputOf("--man"));
    static const QRegularExpression example(QStringLiteral("\\\\fBdatachunk (.*)\\\\fR\n"));
    auto found = example.globalMatch(page);
    int count = 0;
    while (found.hasNext()) {
        QString line = found.next().captured(1).remove(QLatin1String("\\&"));
        line.replace(QLatin1String("\\-"), QLatin1String("-"));
        if (line.startsWith(QLatin1String("\\f")))
            continue;
        ++count;
        const ProgramResult result = run(line.section(QLatin1String(" |"), 0, 0));
        QVERIFY2(result.status == 0 || result.status == 1,
                 qPrintable(line + QLatin1Char('\n') + QString::fromUtf8(result.errors)));
    }
    QVERIFY(count >= 24);
}

void TestManners::completionKnowsTheOptions_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QByteArray>("words");
    QTest::newRow("a command") << "unp" << QByteArray("unpack");
    QTest::newRow("an option") << "find --bef" << QByteArray("--before");
    QTest::newRow("a value") << "info --type PeakTrc2" << QByteArray("PeakTrc20 PeakTrc21");
    QTest::newRow("behind an option without value") << "find --count my" << QByteArray("my file");
    QTest::newRow("a folder") << "import x --into my" << QByteArray("my folder");
}

void TestManners::completionKnowsTheOptions()
{
    QFETCH(QString, typed);
    QFETCH(QByteArray, words);
    writeFile("script", outputOf("--completion"));
    writeFile("my file", {});
    QVERIFY(typed.contains(QLatin1String("--into"))
                ? QDir().mkdir("my folder") && QFile::remove("my file")
                : true);
    writeFile("ask",
              "source ./script; compopt() { :; }; COMP_WORDS=(datachunk $1)\n"
              "COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _datachunk; echo \"${COMPREPLY[*]}\"\n");
    QCOMPARE(printed(QStringLiteral("bash ask '%1'").arg(typed)), words + '\n');
}

void TestManners::coloursAreForTerminals_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<bool>("isColoured");
    QTest::newRow("on a terminal") << "TERM=xterm" << true;
    QTest::newRow("unwanted") << "TERM=xterm NO_COLOR=1" << false;
    QTest::newRow("on one without") << "TERM=dumb" << false;
}

void TestManners::coloursAreForTerminals()
{
    QFETCH(QString, before);
    QFETCH(bool, isColoured);
    const QByteArray seen =
        printed(QStringLiteral("%1 script -qec \"'$0' info gone.log\" /dev/null").arg(before));
    QVERIFY2(seen.contains("gone.log"), seen);
    QCOMPARE(seen.contains("\033[1;31m"), isColoured);
}

void TestManners::quietTellsFailuresOnly()
{
    writeFile("a.log", "(1.000000) can0 123#11\n");
    QVERIFY(run("info a.log").errors.contains("nothing was lost"));
    QCOMPARE(run("info --quiet a.log").errors, QByteArray());
    QVERIFY(run("info -q gone.log").errors.contains("gone.log"));
}

// A terminal acts on C1 characters as well as on an escape.
void TestManners::controlCharactersNeverArrive()
{
    const QByteArray bad = "\033[2J\302\233"
                           "31m\177";
    writeFile("a.log", "(1.000000) can0 123#11\n");
    writeFile(QFile::decodeName("b" + bad + ".log"), "(1.000000) can0 123#11\n" + bad + "\n");
    QVERIFY(run("import a.log --into chunks").status == 0);
    for (const char *command : {"info b*.log", "detect --explain b*", "info --report json b*",
                                "dump --json --type SocketCanDump b*"}) {
        const ProgramResult result = run(QLatin1String(command));
        const QByteArray all = result.output + result.errors;
        QVERIFY2(!all.contains('\033') && !all.contains("\302\233") && !all.contains('\177'),
                 command);
    }
}

QTEST_GUILESS_MAIN(TestManners)
#include "tst_manners.moc"
