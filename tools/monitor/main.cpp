#include "mainwindow.h"

#include <QApplication>

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("datachunk"));
    QApplication::setApplicationName(QStringLiteral("datachunk-monitor"));
    QApplication::setApplicationVersion(QStringLiteral(DATACHUNK_VERSION));
    MainWindow window;
    window.show();
    window.open(QApplication::arguments().mid(1));
    return QApplication::exec();
}
