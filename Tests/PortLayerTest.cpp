// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "QextSerialPort/qextserialport.h"
#include "ReferenceHost/Serial/PseudoTerminal.h"
#include "support/RecordedMessages.h"
#include "support/Unprivileged.h"

#include <QSerialPort>
#include <QSocketNotifier>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace ReferenceHost;

/// The serial port layer by itself.
class PortLayerTest : public QObject
{
    Q_OBJECT

private slots:
    void settingsReachTheInnerPort();
    void errorsHaveTheirTexts_data();
    void errorsHaveTheirTexts();
    void aQuietPortSaysNothing();
    void bytesAreAnnouncedReadAndWritten();
    void aReceiverMayDeleteThePort();
    void writingAfterAHangUpFailsSilently();
    void anotherReaderMayTakeTheBytes_data();
    void anotherReaderMayTakeTheBytes();
    void aHangUpIsAnnouncedOnce_data();
    void aHangUpIsAnnouncedOnce();
};

void PortLayerTest::settingsReachTheInnerPort()
{
    QextSerialPort port;
    const auto* const inner = port.findChild<QSerialPort*>();
    QVERIFY(inner);
    const QList<int> speeds = {50,    75,    110,   134,    150,    200,   300,   600,
                               1200,  1800,  2400,  4800,   9600,   14400, 19200, 38400,
                               56000, 57600, 76800, 115200, 128000, 256000};
    for (int speed = BAUD50; speed <= BAUD256000; ++speed) {
        port.setBaudRate(BaudRateType(speed));
        QCOMPARE(inner->baudRate(), speeds.at(speed));
    }
    for (int bits = DATA_5; bits <= DATA_8; ++bits) {
        port.setDataBits(DataBitsType(bits));
        QCOMPARE(int(inner->dataBits()), 5 + bits);
    }
    const QList<QSerialPort::Parity> parities = {QSerialPort::NoParity, QSerialPort::OddParity,
                                                 QSerialPort::EvenParity, QSerialPort::MarkParity,
                                                 QSerialPort::SpaceParity};
    for (int parity = PAR_NONE; parity <= PAR_SPACE; ++parity) {
        port.setParity(ParityType(parity));
        QCOMPARE(inner->parity(), parities.at(parity));
    }
    const QList<QSerialPort::StopBits> stopBits = {
        QSerialPort::OneStop, QSerialPort::OneAndHalfStop, QSerialPort::TwoStop};
    for (int bits = STOP_1; bits <= STOP_2; ++bits) {
        port.setStopBits(StopBitsType(bits));
        QCOMPARE(inner->stopBits(), stopBits.at(bits));
    }
    const QList<QSerialPort::FlowControl> flows = {
        QSerialPort::NoFlowControl, QSerialPort::HardwareControl, QSerialPort::SoftwareControl};
    for (int flow = FLOW_OFF; flow <= FLOW_XONXOFF; ++flow) {
        port.setFlowControl(FlowType(flow));
        QCOMPARE(inner->flowControl(), flows.at(flow));
    }
    port.setPortName(QStringLiteral("/dev/a"));
    QCOMPARE(inner->portName(), QStringLiteral("a"));
    QCOMPARE(port.portName(), QStringLiteral("/dev/a"));
}

void PortLayerTest::errorsHaveTheirTexts_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("text");
    QTest::newRow("no such device") << "missing"
                                    << "The /nowhere/port file doesn't exists";
    QTest::newRow("no rights") << "forbidden"
                               << "Permission denied";
    QTest::newRow("already open") << "locked"
                                  << "Device is already locked";
    QTest::newRow("no terminal") << "file"
                                 << "The file opened by the port is not a valid device";
}

void PortLayerTest::errorsHaveTheirTexts()
{
    QFETCH(QString, kind);
    QFETCH(QString, text);
    PseudoTerminal tablet;
    QTemporaryDir directory;
    QextSerialPort first;
    first.setPortName(tablet.path());
    QextSerialPort port;
    port.setPortName(tablet.path());
    std::unique_ptr<Unprivileged> user;
    if (kind == QLatin1String("missing"))
        port.setPortName(QStringLiteral("/nowhere/port"));
    if (kind == QLatin1String("locked"))
        QVERIFY(first.open(QIODevice::ReadWrite));
    if (kind == QLatin1String("forbidden")) {
        QCOMPARE(chmod(qPrintable(tablet.path()), 0), 0);
        // A lock file of that user has a place: the directory of lock files is everybody's or there
        // is none.
        user = std::make_unique<Unprivileged>();
    }
    if (kind == QLatin1String("file")) {
        QFile file(directory.filePath(QStringLiteral("file")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        port.setPortName(file.fileName());
    }
    QVERIFY(!port.open(QIODevice::ReadOnly));
    QVERIFY(!port.isOpen());
    QCOMPARE(port.errorString(), text);

    user.reset();
    first.close();
    PseudoTerminal other;
    port.setPortName(other.path());
    QVERIFY(port.open(QIODevice::ReadOnly));
    QCOMPARE(port.errorString(), QStringLiteral("No Error has occurred"));
}

void PortLayerTest::aQuietPortSaysNothing()
{
    PseudoTerminal tablet;
    const RecordedMessages messages;
    QextSerialPort port(QextSerialPort::EventDriven);
    QCOMPARE(port.errorString(), QStringLiteral("No Error has occurred"));
    port.setPortName(tablet.path());
    QVERIFY(port.open(QIODevice::ReadWrite | QIODevice::Unbuffered));
    QCOMPARE(port.readAll(), QByteArray());
    QVERIFY(port.reset());
    port.close();
    port.close();
    QCOMPARE(port.errorString(), QStringLiteral("No Error has occurred"));
    QCOMPARE(RecordedMessages::texts(), QStringList());
}

void PortLayerTest::bytesAreAnnouncedReadAndWritten()
{
    PseudoTerminal tablet;
    for (const auto mode : {QextSerialPort::EventDriven, QextSerialPort::Polling}) {
        QextSerialPort port(mode);
        QSignalSpy announced(&port, &QIODevice::readyRead);
        port.setPortName(tablet.path());
        QVERIFY(port.open(QIODevice::ReadWrite | QIODevice::Unbuffered));
        QVERIFY(tablet.write("abc"));
        QTRY_COMPARE(port.bytesAvailable(), qint64(3));
        QTRY_COMPARE(announced.size(), mode == QextSerialPort::EventDriven ? 1 : 0);
        QCOMPARE(port.read(2), QByteArray("ab"));
        QCOMPARE(port.bytesAvailable(), qint64(1));
        QCOMPARE(port.readAll(), QByteArray("c"));
        QCOMPARE(port.write("xyz"), qint64(3));
        QCOMPARE(tablet.read(5000), QByteArray("xyz")); // without an event loop in between
    }
}

void PortLayerTest::aReceiverMayDeleteThePort()
{
    PseudoTerminal tablet;
    auto port = std::make_unique<QextSerialPort>();
    port->setPortName(tablet.path());
    QVERIFY(port->open(QIODevice::ReadWrite));
    int calls = 0;
    connect(port.get(), &QIODevice::readyRead, this, [&] {
        ++calls;
        port.reset();
    });
    QVERIFY(tablet.write("abc"));
    QTRY_COMPARE(calls, 1);
    QVERIFY(!port);
}

void PortLayerTest::writingAfterAHangUpFailsSilently()
{
    PseudoTerminal tablet;
    QextSerialPort port;
    port.setPortName(tablet.path());
    QVERIFY(port.open(QIODevice::ReadWrite | QIODevice::Unbuffered));
    tablet.hangUp();
    QTRY_VERIFY(port.errorString() != QLatin1String("No Error has occurred"));
    const QString error = port.errorString();
    const RecordedMessages messages;
    QCOMPARE(port.write("x"), qint64(-1));
    QCOMPARE(port.readAll(), QByteArray());
    QCOMPARE(port.errorString(), error);
    QCOMPARE(RecordedMessages::texts(), QStringList());
}

void PortLayerTest::anotherReaderMayTakeTheBytes_data()
{
    QTest::addColumn<int>("staleErrno"); // decides which error the inner port reports
    QTest::addColumn<int>("times");
    QTest::newRow("once") << 0 << 1;
    QTest::newRow("once, with the errno of a port without bytes") << EAGAIN << 1;
    QTest::newRow("again and again") << 0 << 5;
    QTest::newRow("again and again, with that errno") << EAGAIN << 5;
}

void PortLayerTest::anotherReaderMayTakeTheBytes()
{
    QFETCH(int, staleErrno);
    QFETCH(int, times);
    PseudoTerminal tablet;
    QextSerialPort port;
    QSignalSpy ended(&port, &QIODevice::readChannelFinished);
    // First, since an open serial port lets nobody but root open it again.
    const int other = open(qPrintable(tablet.path()), O_RDONLY | O_NOCTTY | O_CLOEXEC);
    port.setPortName(tablet.path());
    QVERIFY(port.open(QIODevice::ReadWrite | QIODevice::Unbuffered));
    for (int taken = 0; taken < times; ++taken) {
        QVERIFY(tablet.write("stolen"));
        char bytes[16];
        QCOMPARE(read(other, bytes, sizeof bytes), ssize_t(6));
        // What the event loop does that was told of the bytes before the other program read them.
        QEvent activation(QEvent::SockAct);
        errno = staleErrno;
        for (QSocketNotifier* const notifier : port.findChildren<QSocketNotifier*>()) {
            if (notifier->type() == QSocketNotifier::Read)
                QCoreApplication::sendEvent(notifier, &activation);
        }
        QCoreApplication::processEvents();
    }
    close(other);
    QVERIFY(tablet.write("123456782"));
    QTRY_COMPARE(port.bytesAvailable(), qint64(9));
    QCOMPARE(port.readAll(), QByteArray("123456782"));
    QCOMPARE(port.errorString(), QStringLiteral("No Error has occurred"));
    tablet.hangUp();
    QTRY_COMPARE(ended.size(), 1);
}

void PortLayerTest::aHangUpIsAnnouncedOnce_data()
{
    QTest::addColumn<bool>("polling");
    QTest::addColumn<QString>("atBytes"); // what the receiver does, and so below
    QTest::addColumn<QString>("atEnd");
    QTest::addColumn<QString>("signalNames");

    const auto row = [](const char* name, bool polling, const char* atBytes, const char* atEnd,
                        const char* signalNames) {
        QTest::newRow(name) << polling << QString::fromLatin1(atBytes) << QString::fromLatin1(atEnd)
                            << QString::fromLatin1(signalNames);
    };
    row("behind the bytes", false, "", "", "bytes end");
    row("by a port that is polled", true, "", "", "end");
    row("to a receiver that closes", false, "", "close", "bytes end");
    row("to a receiver that opens again", false, "", "reopen", "bytes end");
    row("to a receiver that deletes", false, "", "delete", "bytes end");
    row("not when closed at the bytes", false, "close", "", "bytes");
    row("not when opened again at the bytes", false, "reopen", "", "bytes");
    row("not when deleted at the bytes", false, "delete", "", "bytes");
}

void PortLayerTest::aHangUpIsAnnouncedOnce()
{
    QFETCH(bool, polling);
    QFETCH(QString, atBytes);
    QFETCH(QString, atEnd);
    QFETCH(QString, signalNames);
    PseudoTerminal tablet;
    PseudoTerminal other;
    auto port = std::make_unique<QextSerialPort>(polling ? QextSerialPort::Polling
                                                         : QextSerialPort::EventDriven);
    port->setPortName(tablet.path());
    QVERIFY(port->open(QIODevice::ReadWrite));
    port->close(); // a close that is asked for is no hang-up
    QVERIFY(port->open(QIODevice::ReadWrite));
    QVERIFY(tablet.write("abc"));
    QTRY_COMPARE(port->bytesAvailable(), qint64(3));
    QCoreApplication::sendPostedEvents();

    QStringList seen;
    const auto receiver = [&](const char* name, const QString& action) {
        return [&seen, &port, &other, name, action] {
            seen << QLatin1String(name);
            if (action == QLatin1String("delete"))
                return port.reset();
            if (!action.isEmpty())
                port->close();
            port->setPortName(other.path());
            if (action == QLatin1String("reopen"))
                QVERIFY(port->open(QIODevice::ReadWrite));
        };
    };
    connect(port.get(), &QIODevice::readyRead, this, receiver("bytes", atBytes));
    connect(port.get(), &QIODevice::readChannelFinished, this, receiver("end", atEnd));
    tablet.hangUp();
    QTRY_COMPARE(seen.join(QLatin1Char(' ')), signalNames);
    QCoreApplication::processEvents(); // what else is queued
    QCOMPARE(seen.join(QLatin1Char(' ')), signalNames);
}

QTEST_GUILESS_MAIN(PortLayerTest)
#include "PortLayerTest.moc"
