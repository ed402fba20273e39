#include "appearance.h"
#include "mainwindow.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QIcon>

#include <algorithm>

namespace {

void describe(QCommandLineParser &parser)
{
    parser.setApplicationDescription(QApplication::translate(
        "MainWindow", "Records from CAN buses, and shows traces of many CAN tools."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(
        QStringLiteral("traces"),
        QApplication::translate("MainWindow", "Files, folders and archives to open."),
        QStringLiteral("[traces...]"));
}

// What is printed needs no display.
bool isForTerminal(int argc, char *argv[])
{
    return std::any_of(argv + 1, argv + argc, [](const char *argument) {
        const QByteArray text(argument);
        return text == "--help" || text == "-h" || text == "--version" || text == "-v";
    });
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication::setOrganizationName(QStringLiteral("datachunk"));
    QCoreApplication::setApplicationName(QStringLiteral("datachunk-monitor"));
    QCoreApplication::setApplicationVersion(QStringLiteral(DATACHUNK_VERSION));
    QCommandLineParser parser;
    if (isForTerminal(argc, argv)) {
        const QCoreApplication application(argc, argv);
        Appearance::installLanguage();
        describe(parser);
        parser.process(application);
        return 0;
    }
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
#endif
    const QApplication application(argc, argv);
    Appearance::install();
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/monitor/datachunk-monitor.svg")));
    QApplication::setDesktopFileName(QStringLiteral("datachunk-monitor"));
    describe(parser);
    parser.process(application);
    MainWindow window;
    window.show();
    window.open(parser.positionalArguments());
    return QApplication::exec();
}
