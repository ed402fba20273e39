#include <QCanBusDevice>
#include <QCanBusFactory>
#include <QtEndian>
#include <QThread>
#include <QTimer>
#include <QVariant>

// A CAN bus that needs no hardware. Its first frame tells how the device was configured: whether
// CAN FD is on, then both bitrates in kbit/s; a remote and an error frame follow. Other interfaces:
// "broken" fails in the way that ends a program which deletes the device, "stream" counts and never
// ends, "flaky" is lost after each frame and not there at each second attempt, "full" tells that
// its controller had no room, and "flood" brings 200,000 frames with their numbers.
class TestCanDevice : public QCanBusDevice
{
    Q_OBJECT
public:
    explicit TestCanDevice(const QString &interface) : interface(interface)
    {
        connect(&timer, &QTimer::timeout, this, &TestCanDevice::stream);
    }

    bool writeFrame(const QCanBusFrame &) override { return false; }
    QString interpretErrorFrame(const QCanBusFrame &) override { return {}; }

protected:
    bool open() override
    {
        if (interface == QLatin1String("broken")) {
            thread.start();
            QMetaObject::invokeMethod(this, &TestCanDevice::fail, Qt::QueuedConnection);
            return true;
        }
        if (interface == QLatin1String("flaky") && ++attempts % 2 == 0) {
            setError(QStringLiteral("It is not there."), ConnectionError);
            return false;
        }
        setState(ConnectedState);
        if (interface == QLatin1String("flaky"))
            lose();
        else if (interface == QLatin1String("stream"))
            timer.start(1);
        else if (interface == QLatin1String("full"))
            overflow();
        else if (interface == QLatin1String("flood"))
            flood();
        else
            introduce();
        return true;
    }
    void close() override { setState(UnconnectedState); }

private:
    void introduce()
    {
        QCanBusFrame data(0x123, configuration());
        data.setFlexibleDataRateFormat(configurationParameter(CanFdKey).toBool());
        QCanBusFrame remote(0x124, QByteArray(2, '\0'));
        remote.setFrameType(QCanBusFrame::RemoteRequestFrame);
        QCanBusFrame error(0, QByteArray(1, '\x04'));
        error.setFrameType(QCanBusFrame::ErrorFrame);
        enqueueReceivedFrames({data, remote, error});
    }

    QCanBusFrame counted()
    {
        QByteArray number(4, '\0');
        qToBigEndian(frames++, number.data());
        return QCanBusFrame(0x100, number);
    }

    void stream()
    {
        constexpr int framesAtOnce = 20;
        QVector<QCanBusFrame> block;
        for (int i = 0; i < framesAtOnce; ++i)
            block.append(counted());
        enqueueReceivedFrames(block);
    }

    void lose()
    {
        enqueueReceivedFrames({counted()});
        QTimer::singleShot(1, this, [this] { setState(UnconnectedState); });
    }

    void overflow()
    {
        QCanBusFrame error(0, QByteArray(8, '\1'));
        error.setFrameType(QCanBusFrame::ErrorFrame);
        error.setError(QCanBusFrame::ControllerError);
        enqueueReceivedFrames({counted(), error, counted()});
    }

    void fail()
    {
        setError(QStringLiteral("It is broken."), ConnectionError);
        setState(UnconnectedState);
    }

    void flood()
    {
        constexpr quint32 count = 200000;
        QVector<QCanBusFrame> frames;
        for (quint32 i = 0; i < count; ++i) {
            QByteArray number(4, '\0');
            qToBigEndian(i, number.data());
            frames.append(QCanBusFrame(0x100, number));
        }
        enqueueReceivedFrames(frames);
    }

    QByteArray configuration() const
    {
        QByteArray bytes(5, configurationParameter(CanFdKey).toBool() ? '\1' : '\0');
        const auto kilobits = [this](ConfigurationKey key) {
            return quint16(configurationParameter(key).toUInt() / 1000);
        };
        qToBigEndian(kilobits(BitRateKey), bytes.data() + 1);
        qToBigEndian(kilobits(DataBitRateKey), bytes.data() + 3);
        return bytes;
    }

    const QString interface;
    QThread thread;
    QTimer timer;
    int attempts = 0;
    quint32 frames = 0;
};

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
#define CAN_BUS_FACTORY QCanBusFactoryV2
#else
#define CAN_BUS_FACTORY QCanBusFactory
#endif

class TestCanFactory : public QObject, public CAN_BUS_FACTORY
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QCanBusFactory" FILE "testcan.json")
    Q_INTERFACES(CAN_BUS_FACTORY)
public:
    QCanBusDevice *createDevice(const QString &interface, QString *) const override
    {
        return new TestCanDevice(interface);
    }
    QList<QCanBusDeviceInfo> availableDevices(QString *) const override { return {}; }
};

#include "testcan.moc"
