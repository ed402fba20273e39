// A CAN bus monitor in one file. It records what a plug-in of QtSerialBus receives, for days if
// need be, and shows all of it in one table, be it in memory or in chunk files by now.
//     cmake -S examples/embed -B build/embed && cmake --build build/embed
//     build/embed/monitor socketcan can0
// The table follows the newest message, the bar beside it goes through the whole recording, and the
// line above takes a filter such as "id==1a0 and b0>80". With a number behind the interface the
// monitor ends after so many messages. The recording goes with it, unless it is exported.

#include <canframe.h>
#include <datachunkhandler.h>
#include <tracetablemodel.h>

#include <QCanBus>
#include <QtWidgets>

static CAN::CanRxMessage toMessage(const QCanBusFrame &frame)
{
    CAN::CanRxMessage message;
    message.seconds = qint32(frame.timeStamp().seconds());
    message.microseconds = qint32(frame.timeStamp().microSeconds());
    message.id =
        frame.frameType() == QCanBusFrame::ErrorFrame ? CAN::errorFrameId : frame.frameId();
    message.extended = frame.hasExtendedFrameFormat();
    message.remote = frame.frameType() == QCanBusFrame::RemoteRequestFrame;
    message.fdFrame = frame.hasFlexibleDataRateFormat();
    const QByteArray payload = frame.payload().left(CAN::maxDataBytes); // a plug-in may have more
    message.length = qint8(payload.size());
    std::copy(payload.begin(), payload.end(), message.data);
    return message;
}

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    QString error;
    const std::unique_ptr<QCanBusDevice> bus(
        QCanBus::instance()->createDevice(arguments.value(1), arguments.value(2), &error));
    if (!bus) {
        qCritical() << error;
        return 1;
    }

    DatachunkHandler store(200000); // a chunk file for each 195000 messages
    store.setMaximumHDDSpace(4000); // MiB; then the oldest chunk files go
    QObject::connect(bus.get(), &QCanBusDevice::framesReceived, &store, [&] {
        for (const QCanBusFrame &frame : bus->readAllFrames())
            store.appendCanMessage(toMessage(frame));
    });
    TraceTableModel model(store.timeline());
    model.setFollowing(true);

    QWidget window;
    QGridLayout layout(&window);
    QLineEdit filter;
    QTableView table;
    QScrollBar bar;
    QLabel problem;
    layout.addWidget(&filter, 0, 0);
    layout.addWidget(&table, 1, 0);
    layout.addWidget(&bar, 1, 1);
    layout.addWidget(&problem, 2, 0);
    table.setModel(&model);
    QObject::connect(&model, &TraceTableModel::totalChanged, &table, [&](quint64 total) {
        bar.setMaximum(model.scrollRange());
        if (model.isFollowing()) {
            bar.setValue(bar.maximum());
            table.scrollToBottom();
        }
        if (arguments.size() > 3 && total >= arguments.at(3).toULongLong()) {
            const QModelIndex first = model.showRow(0).siblingAtColumn(TraceTableModel::DataColumn);
            qInfo() << total << "messages, the first with" << first.data().toString();
            QApplication::quit();
        }
    });
    QObject::connect(&bar, &QScrollBar::sliderMoved, &table, [&](int step) {
        table.scrollTo(model.showRow(model.rowAtScroll(step)), QTableView::PositionAtTop);
        model.setFollowing(step == bar.maximum());
    });
    QObject::connect(&filter, &QLineEdit::returnPressed, &model, [&] {
        TraceExpression::Error wrong;
        if (const auto expression = TraceExpression::parse(filter.text(), &wrong))
            model.setFilter(expression);
        problem.setText(wrong.text);
    });
    QObject::connect(&store, &DatachunkHandler::newErrorMessage, &problem, &QLabel::setText);
    window.show();
    if (bus->connectDevice())
        return QApplication::exec();
    qCritical() << bus->errorString();
    return 1;
}
