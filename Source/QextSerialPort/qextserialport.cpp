// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "QextSerialPort/qextserialport.h"

#include "QextSerialPort/PortErrors.h"
#include "QextSerialPort/SerialTiming.h"

#include <QMetaObject>
#include <QSerialPort>

#include <algorithm>
#include <cstring>
#include <utility>

namespace {

constexpr QSerialPort::DataBits dataBitsOf[] = {QSerialPort::Data5, QSerialPort::Data6,
                                                QSerialPort::Data7, QSerialPort::Data8};
constexpr QSerialPort::Parity parityOf[] = {QSerialPort::NoParity, QSerialPort::OddParity,
                                            QSerialPort::EvenParity, QSerialPort::MarkParity,
                                            QSerialPort::SpaceParity};
constexpr QSerialPort::StopBits stopBitsOf[] = {QSerialPort::OneStop, QSerialPort::OneAndHalfStop,
                                                QSerialPort::TwoStop};
constexpr QSerialPort::FlowControl flowControlOf[] = {
    QSerialPort::NoFlowControl, QSerialPort::HardwareControl, QSerialPort::SoftwareControl};

// The library that this one stands for words its errors by kind, not by what the system said.
QString errorText(QSerialPort::SerialPortError error, const QString& innerText,
                  const QString& portName)
{
    switch (error) {
    case QSerialPort::NoError:
        return QLatin1String(PortErrors::none);
    case QSerialPort::DeviceNotFoundError:
        return QStringLiteral("The %1 file doesn't exists").arg(portName);
    case QSerialPort::PermissionError:
        // Qt SerialPort reports a lock as a matter of rights and tells it only in the text.
        return innerText == QSerialPort::tr("Permission error while locking the device")
                   ? QLatin1String(PortErrors::locked)
                   : QLatin1String(PortErrors::denied);
    case QSerialPort::WriteError:
        return QStringLiteral("General write operation failure");
    case QSerialPort::ReadError:
        return QStringLiteral("General read operation failure");
    case QSerialPort::ResourceError:
        return QStringLiteral("There was an I/O error while communicating with the port");
    case QSerialPort::OpenError:
    case QSerialPort::UnsupportedOperationError:
        return QStringLiteral("The file opened by the port is not a valid device");
    case QSerialPort::TimeoutError:
        return QStringLiteral("Operation timed out (POSIX)");
    case QSerialPort::NotOpenError:
        return QStringLiteral("Invalid file descriptor (port was not opened correctly)");
    default:
        return QStringLiteral("Unknown error: %1").arg(int(error));
    }
}

} // namespace

QextSerialPort::QextSerialPort(QueryMode mode, QObject* parent)
    : QIODevice(parent),
      m_port(new QSerialPort(this)),
      m_mode(mode),
      m_error(QLatin1String(PortErrors::none))
{
    connect(m_port, &QSerialPort::readyRead, this, &QextSerialPort::receive);
    connect(m_port, &QSerialPort::errorOccurred, this, [this](QSerialPort::SerialPortError error) {
        if (isOpen() && (error == QSerialPort::ReadError || error == QSerialPort::ResourceError))
            doubtLine();
    });
}

QextSerialPort::~QextSerialPort()
{
    // Errors that the inner port reports while it is destroyed must not reach this object.
    m_port->disconnect(this);
}

QString QextSerialPort::portName() const
{
    return m_portName;
}

void QextSerialPort::setPortName(const QString& name)
{
    m_portName = name;
    m_port->setPortName(name);
}

QextSerialPort::QueryMode QextSerialPort::queryMode() const
{
    return m_mode;
}

void QextSerialPort::setBaudRate(BaudRateType baudRate)
{
    m_port->setBaudRate(SerialTiming::bitsPerSecond(baudRate));
}

void QextSerialPort::setDataBits(DataBitsType dataBits)
{
    m_port->setDataBits(dataBitsOf[dataBits]);
}

void QextSerialPort::setParity(ParityType parity)
{
    m_port->setParity(parityOf[parity]);
}

void QextSerialPort::setStopBits(StopBitsType stopBits)
{
    m_port->setStopBits(stopBitsOf[stopBits]);
}

void QextSerialPort::setFlowControl(FlowType flowControl)
{
    m_port->setFlowControl(flowControlOf[flowControl]);
}

bool QextSerialPort::open(OpenMode mode)
{
    m_received.clear();
    m_ended = false;
    m_inDoubt = false;
    m_error = QLatin1String(PortErrors::none);
    if (!m_port->open(mode & ~OpenMode(Unbuffered))) {
        m_error = errorText(m_port->error(), m_port->errorString(), m_portName);
        return false;
    }
    // Bytes that arrived before the open are still in the system's buffer and would follow later. A
    // port that is only opened to see whether it opens leaves them to the program they are for.
    if ((mode & ReadWrite) == ReadWrite)
        m_port->clear(QSerialPort::Input);
    return QIODevice::open(mode | Unbuffered);
}

void QextSerialPort::close()
{
    if (!isOpen())
        return;
    QIODevice::close();
    if (m_port->isOpen())
        m_port->close();
    m_received.clear();
    m_ended = false;
}

bool QextSerialPort::isSequential() const
{
    return true;
}

qint64 QextSerialPort::bytesAvailable() const
{
    return QIODevice::bytesAvailable() + m_received.size();
}

bool QextSerialPort::reset()
{
    return true;
}

QString QextSerialPort::errorString() const
{
    return m_error;
}

qint64 QextSerialPort::readData(char* data, qint64 maxSize)
{
    const auto size = int(std::min<qint64>(maxSize, m_received.size()));
    std::memcpy(data, m_received.constData(), size_t(size));
    m_received.remove(0, size);
    return size;
}

qint64 QextSerialPort::writeData(const char* data, qint64 size)
{
    if (!m_port->isOpen())
        return -1; // hung up; the inner port would print a warning
    const qint64 written = m_port->write(data, size);
    m_port->flush();
    return written;
}

void QextSerialPort::receive()
{
    // Always everything: a read of the inner port is what switches its notifier on again after
    // a zero-length read that it took for an error.
    const QByteArray bytes = m_port->readAll();
    if (bytes.isEmpty())
        return;
    m_received += bytes;
    m_inDoubt = false;
    scheduleAnnouncement();
}

void QextSerialPort::scheduleAnnouncement()
{
    if (m_mode != EventDriven || m_announcementPending)
        return;
    m_announcementPending = true;
    QMetaObject::invokeMethod(this, &QextSerialPort::announce, Qt::QueuedConnection);
}

void QextSerialPort::announce()
{
    m_announcementPending = false;
    // A receiver may have deleted this object when the signal returns: nothing comes after it.
    if (bytesAvailable() > 0)
        emit readyRead();
}

void QextSerialPort::doubtLine()
{
    if (m_inDoubt)
        return endAfterError();
    receive();
    m_inDoubt = true;
    QMetaObject::invokeMethod(this, &QextSerialPort::checkLine, Qt::QueuedConnection);
}

void QextSerialPort::checkLine()
{
    // Another program may have taken the bytes that were announced: a read then returns nothing,
    // and the inner port takes that for an error. After a hang-up the next read fails too.
    if (m_inDoubt && m_port->isOpen() && !m_port->waitForReadyRead(0))
        m_inDoubt = m_port->error() != QSerialPort::TimeoutError;
}

void QextSerialPort::endAfterError()
{
    // After a hang-up the inner port reports the same error endlessly and keeps a core busy, so it
    // is closed here.
    const QString text = errorText(m_port->error(), m_port->errorString(), m_portName);
    m_received += m_port->readAll();
    m_port->close();
    m_error = text;
    scheduleAnnouncement();
    // Queued by itself: a receiver of the announcement may delete this object.
    m_ended = true;
    QMetaObject::invokeMethod(this, &QextSerialPort::announceEnd, Qt::QueuedConnection);
}

void QextSerialPort::announceEnd()
{
    if (std::exchange(m_ended, false))
        emit readChannelFinished();
}
