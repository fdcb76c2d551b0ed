// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QextSerialPort/QextSerialPortExport.h"

#include <QByteArray>
#include <QIODevice>
#include <QString>

class QSerialPort;

/// Baud rates in bits per second, numbered in sequence.
enum BaudRateType {
    BAUD50,
    BAUD75,
    BAUD110,
    BAUD134,
    BAUD150,
    BAUD200,
    BAUD300,
    BAUD600,
    BAUD1200,
    BAUD1800,
    BAUD2400,
    BAUD4800,
    BAUD9600,
    BAUD14400,
    BAUD19200,
    BAUD38400,
    BAUD56000,
    BAUD57600,
    BAUD76800,
    BAUD115200,
    BAUD128000,
    BAUD256000,
};

enum DataBitsType { DATA_5, DATA_6, DATA_7, DATA_8 };
enum ParityType { PAR_NONE, PAR_ODD, PAR_EVEN, PAR_MARK, PAR_SPACE };
enum StopBitsType { STOP_1, STOP_1_5, STOP_2 };
enum FlowType { FLOW_OFF, FLOW_HARDWARE, FLOW_XONXOFF };

/// The serial settings of a port. Timeout_Millisec is in milliseconds; hosts may set it, but
/// nothing uses it.
struct PortSettings
{
    BaudRateType BaudRate = BAUD50;
    DataBitsType DataBits = DATA_5;
    ParityType Parity = PAR_NONE;
    StopBitsType StopBits = STOP_1;
    FlowType FlowControl = FLOW_OFF;
    long Timeout_Millisec = 0;
};

/// A serial port with the interface of the QextSerialPort library, over Qt SerialPort.
///
/// Settings take effect at open(). Received bytes are announced by readyRead() from the event loop,
/// never inside a signal of the inner port, so a receiver may run a nested event loop, close or
/// delete the port, or throw.
///
/// A read that returns nothing because another program took the bytes changes nothing. Only if the
/// next one fails as well has the port hung up. A hang-up (the adapter was unplugged) is announced
/// once by readChannelFinished(), in both query modes: from the event loop, and after the
/// readyRead() for the bytes received before it. A receiver of either signal may close or delete
/// the port. A hang-up is not announced after close(), even if the port is opened again. After a
/// hang-up the port stays open until close(): errorString() returns the error, bytes received
/// before can still be read, and nothing more is announced.
///
/// Thread: the thread that owns the object.
class QEXTSERIALPORT_EXPORT QextSerialPort : public QIODevice
{
    Q_OBJECT

public:
    enum QueryMode {
        Polling,     ///< readyRead() is never emitted
        EventDriven, ///< readyRead() announces received bytes
    };

    explicit QextSerialPort(QueryMode mode = EventDriven, QObject* parent = nullptr);
    ~QextSerialPort() override;

    /// The name as it was given: a path, or a name without its directory.
    QString portName() const;
    void setPortName(const QString& name);
    QueryMode queryMode() const;
    void setBaudRate(BaudRateType baudRate);
    void setDataBits(DataBitsType dataBits);
    void setParity(ParityType parity);
    void setStopBits(StopBitsType stopBits);
    void setFlowControl(FlowType flowControl);

    /// Opens the port with the settings given so far. If it is opened for reading and writing,
    /// input that arrived before is discarded. If it is opened for reading only, that input is kept
    /// for whoever reads it, here or in another program. close() does not discard input that was
    /// not yet read from the device. \a mode may contain Unbuffered; QIODevice buffers in neither
    /// case. Returns false on failure; errorString() then says why.
    bool open(OpenMode mode) override;
    void close() override;
    bool isSequential() const override;
    qint64 bytesAvailable() const override;

    /// Does nothing and returns true, because a serial port has no position. Prints no warning,
    /// unlike QIODevice::reset().
    bool reset() override;

    /// Returns "No Error has occurred" or the text of the last error since open().
    QString errorString() const;

protected:
    qint64 readData(char* data, qint64 maxSize) override;

    /// Writes the bytes to the device before it returns, because buffered bytes would be lost with
    /// the port. Returns -1 after a hang-up.
    qint64 writeData(const char* data, qint64 size) override;

private:
    Q_DECL_HIDDEN void receive();
    Q_DECL_HIDDEN void scheduleAnnouncement();
    Q_DECL_HIDDEN void announce();
    Q_DECL_HIDDEN void doubtLine();
    Q_DECL_HIDDEN void checkLine();
    Q_DECL_HIDDEN void endAfterError();
    Q_DECL_HIDDEN void announceEnd();

    QSerialPort* m_port; // a child object
    QString m_portName;
    QueryMode m_mode;
    QByteArray m_received;
    QString m_error;
    bool m_announcementPending = false;
    bool m_inDoubt =
        false; // a read has failed, and neither a byte nor a check has cleared that since
    bool m_ended = false; // by a hang-up that is still to be announced
};
