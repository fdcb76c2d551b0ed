// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "QextSerialPort/qextserialport.h"
#include "ReferenceHost/Serial/PseudoTerminal.h"
#include "support/RecordedMessages.h"
#include "support/StructRows.h"
#include "support/Unprivileged.h"

#include <QSerialPort>
#include <QSocketNotifier>
#include <QTemporaryDir>

#include <memory>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace ReferenceHost;

namespace {
const char noError[] = "No Error has occurred";

bool openAt(QextSerialPort& port, const PseudoTerminal& tablet)
{
    port.setPortName(tablet.path());
    return port.open(QIODevice::ReadWrite | QIODevice::Unbuffered);
}

// What the event loop does that was told of bytes. The errno decides which
// error the inner port reports if there are none.
void activate(const QextSerialPort& port, int staleErrno = 0)
{
    QEvent activation(QEvent::SockAct);
    errno = staleErrno;
    for (QSocketNotifier* const notifier : port.findChildren<QSocketNotifier*>()) {
        if (notifier->type() == QSocketNotifier::Read)
            QCoreApplication::sendEvent(notifier, &activation);
    }
}

const struct
{
    const char* name;
    const char* error;
} openRows[] = {
    {"missing", "The /nowhere/port file doesn't exists"},
    {"forbidden", "Permission denied"},
    {"locked", "Device is already locked"},
    {"file", "The file opened by the port is not a valid device"},
};

const struct
{
    const char* name;
    int staleErrno;
    int times;
} readerRows[] = {
    {"once", 0, 1},
    {"once, with the errno of a port without bytes", EAGAIN, 1},
    {"again and again", 0, 5},
    {"again and again, with that errno", EAGAIN, 5},
};

constexpr auto eventDriven = QextSerialPort::EventDriven;

const struct
{
    const char* name;
    QextSerialPort::QueryMode mode;
    QString atBytes; // what the receiver does, and so below
    QString atEnd;
    QString announced;
} hangUpRows[] = {
    {"behind the bytes", eventDriven, "", "", "bytes end"},
    {"by a port that is polled", QextSerialPort::Polling, "", "", "end"},
    {"to a receiver that closes", eventDriven, "", "close", "bytes end"},
    {"to a receiver that opens again", eventDriven, "", "reopen", "bytes end"},
    {"to a receiver that deletes", eventDriven, "", "delete", "bytes end"},
    {"not when closed at the bytes", eventDriven, "close", "", "bytes"},
    {"not when opened again at the bytes", eventDriven, "reopen", "", "bytes"},
    {"not when deleted at the bytes", eventDriven, "delete", "", "bytes"},
};

} // namespace

/// The serial port layer by itself.
class PortLayerTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_tablet = std::make_unique<PseudoTerminal>();
        m_port = std::make_unique<QextSerialPort>();
        QCOMPARE(m_port->errorString(), noError);
        QVERIFY(openAt(*m_port, *m_tablet));
    }

    void cleanup() { m_port.reset(); }

    void errorsHaveTheirTexts_data() { addRows(openRows); }

    void errorsHaveTheirTexts()
    {
        const auto& row = currentRow(openRows);
        const QByteArray kind = row.name;
        const PseudoTerminal tablet;
        const QTemporaryDir directory;
        QFile file(directory.filePath("file"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QextSerialPort first;
        QVERIFY(kind != "locked" || openAt(first, tablet));
        QCOMPARE(chmod(qPrintable(tablet.path()), kind == "forbidden" ? 0 : 0600), 0);
        QextSerialPort port;
        port.setPortName(kind == "missing" ? "/nowhere/port"
                         : kind == "file"  ? file.fileName()
                                           : tablet.path());
        {
            // A lock file of that user has a place: the directory of lock files is everybody's or
            // there is none.
            const Unprivileged user(kind == "forbidden");
            QVERIFY(!port.open(QIODevice::ReadOnly));
        }
        QVERIFY(!port.isOpen());
        QCOMPARE(port.errorString(), row.error);
        const PseudoTerminal other;
        QVERIFY(openAt(port, other));
        QCOMPARE(port.errorString(), noError);
    }

    void aQuietPortSaysNothing()
    {
        const RecordedMessages messages;
        m_port->close();
        QVERIFY(!m_port->isOpen());
        QVERIFY(openAt(*m_port, *m_tablet));
        QCOMPARE(m_port->readAll(), QByteArray());
        QVERIFY(m_port->reset());
        m_port->close();
        m_port->close();
        QCOMPARE(m_port->errorString(), noError);
        QCOMPARE(RecordedMessages::texts(), QStringList());
    }

    void bytesAreAnnouncedReadAndWritten()
    {
        PseudoTerminal tablet;
        for (const auto mode : {QextSerialPort::EventDriven, QextSerialPort::Polling}) {
            QextSerialPort port(mode);
            QSignalSpy announced(&port, &QIODevice::readyRead);
            QVERIFY(openAt(port, tablet));
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

    void bytesOfTwoReadsAreAnnouncedOnce()
    {
        QSignalSpy announced(m_port.get(), &QIODevice::readyRead);
        for (const char* bytes : {"ab", "c"}) {
            QVERIFY(m_tablet->write(bytes));
            const QDeadlineTimer patience(5000);
            while (!m_tablet->taken() && !patience.hasExpired())
                activate(*m_port);
        }
        QCOMPARE(m_port->bytesAvailable(), qint64(3));
        QCOMPARE(announced.size(), 0); // not inside a signal of the inner port
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
        QCOMPARE(announced.size(), 1);
    }

    void writingAfterAHangUpFailsSilently()
    {
        m_tablet->hangUp();
        QTRY_VERIFY(m_port->errorString() != noError);
        const QString error = m_port->errorString();
        const RecordedMessages messages;
        QCOMPARE(m_port->write("x"), qint64(-1));
        QCOMPARE(m_port->readAll(), QByteArray());
        QCOMPARE(m_port->errorString(), error);
        QCOMPARE(RecordedMessages::texts(), QStringList());
    }

    void anotherReaderMayTakeTheBytes_data() { addRows(readerRows); }

    void anotherReaderMayTakeTheBytes()
    {
        const auto& row = currentRow(readerRows);
        PseudoTerminal tablet;
        QextSerialPort port;
        QSignalSpy ended(&port, &QIODevice::readChannelFinished);
        // First, since an open serial port lets nobody but root open it again.
        const int other = open(qPrintable(tablet.path()), O_RDONLY | O_NOCTTY | O_CLOEXEC);
        QVERIFY(openAt(port, tablet));
        QVERIFY(tablet.write("12"));
        QTRY_COMPARE(port.bytesAvailable(), qint64(2));
        for (int taken = 0; taken < row.times; ++taken) {
            QVERIFY(tablet.write("stolen"));
            char bytes[16];
            QCOMPARE(read(other, bytes, sizeof bytes), ssize_t(6));
            activate(port, row.staleErrno);
            QCoreApplication::processEvents();
        }
        close(other);
        QVERIFY(tablet.write("3456782"));
        QTRY_COMPARE(port.bytesAvailable(), qint64(9));
        QCOMPARE(port.readAll(), QByteArray("123456782"));
        QCOMPARE(port.errorString(), noError);
        tablet.hangUp();
        QTRY_COMPARE(ended.size(), 1);
    }

    void aHangUpIsAnnouncedOnce_data() { addRows(hangUpRows); }

    void aHangUpIsAnnouncedOnce()
    {
        const auto& row = currentRow(hangUpRows);
        const PseudoTerminal other;
        m_port = std::make_unique<QextSerialPort>(row.mode);
        QVERIFY(openAt(*m_port, *m_tablet));
        m_port->close(); // a close that is asked for is no hang-up
        QVERIFY(openAt(*m_port, *m_tablet));
        QVERIFY(m_tablet->write("abc"));
        QTRY_COMPARE(m_port->bytesAvailable(), qint64(3));
        QCoreApplication::sendPostedEvents();

        QStringList seen;
        const auto receiver = [&](const char* name, const QString& action) {
            return [this, &seen, &other, name, action] {
                seen << name;
                if (action == "delete")
                    return m_port.reset();
                if (!action.isEmpty())
                    m_port->close();
                if (action == "reopen")
                    QVERIFY(openAt(*m_port, other));
            };
        };
        connect(m_port.get(), &QIODevice::readyRead, this, receiver("bytes", row.atBytes));
        connect(m_port.get(), &QIODevice::readChannelFinished, this, receiver("end", row.atEnd));
        m_tablet->hangUp();
        QTRY_COMPARE(seen.join(' '), row.announced);
        QCoreApplication::processEvents(); // what else is queued
        QCOMPARE(seen.join(' '), row.announced);
    }

private:
    std::unique_ptr<PseudoTerminal> m_tablet;
    std::unique_ptr<QextSerialPort> m_port; // open
};

QTEST_GUILESS_MAIN(PortLayerTest)
#include "PortLayerTest.moc"
