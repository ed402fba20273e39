#include <QCanBusDevice>
#include <QCanBusFactory>
#include <QtEndian>
#include <QThread>
#include <QVariant>

// A CAN bus that needs no hardware. Its first frame tells how the device was configured: whether
// CAN FD is on, then both bitrates in kbit/s; a remote and an error frame follow. The interface
// "broken" fails in the way that ends a program which deletes the device.
class TestCanDevice : public QCanBusDevice
{
    Q_OBJECT
public:
    explicit TestCanDevice(const QString &interface)
        : isBroken(interface == QLatin1String("broken"))
    {
    }

    bool writeFrame(const QCanBusFrame &) override { return false; }
    QString interpretErrorFrame(const QCanBusFrame &) override { return {}; }

protected:
    bool open() override
    {
        if (isBroken) {
            thread.start();
            QMetaObject::invokeMethod(this, &TestCanDevice::fail, Qt::QueuedConnection);
            return true;
        }
        setState(ConnectedState);
        QCanBusFrame data(0x123, configuration());
        data.setFlexibleDataRateFormat(configurationParameter(CanFdKey).toBool());
        QCanBusFrame remote(0x124, QByteArray(2, '\0'));
        remote.setFrameType(QCanBusFrame::RemoteRequestFrame);
        QCanBusFrame error(0, QByteArray(1, '\x04'));
        error.setFrameType(QCanBusFrame::ErrorFrame);
        enqueueReceivedFrames({data, remote, error});
        return true;
    }
    void close() override { setState(UnconnectedState); }

private:
    void fail()
    {
        setError(QStringLiteral("It is broken."), ConnectionError);
        setState(UnconnectedState);
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

    const bool isBroken;
    QThread thread;
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
