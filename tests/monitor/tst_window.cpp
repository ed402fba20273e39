#include "mainwindow.h"
#include "temporarysettings.h"

#include <QTest>

class TestWindow : public QObject
{
    Q_OBJECT
private:
    const TemporarySettings settings;

private slots:
    void opens();
};

void TestWindow::opens()
{
    MainWindow window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
}

QTEST_MAIN(TestWindow)
#include "tst_window.moc"
