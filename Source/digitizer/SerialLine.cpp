// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "digitizer/SerialLine.h"

#include "QextSerialPort/SerialTiming.h"
#include "ReferenceHost/Command.h"

#include <iterator>

namespace {

// In the order of the enumerators of PortSettings.
constexpr QSerialPort::Parity parities[] = {QSerialPort::NoParity, QSerialPort::OddParity,
                                            QSerialPort::EvenParity, QSerialPort::MarkParity,
                                            QSerialPort::SpaceParity};
constexpr QSerialPort::StopBits stopBits[] = {QSerialPort::OneStop, QSerialPort::OneAndHalfStop,
                                              QSerialPort::TwoStop};
constexpr QSerialPort::FlowControl flowControls[] = {
    QSerialPort::NoFlowControl, QSerialPort::HardwareControl, QSerialPort::SoftwareControl};
static_assert(std::size(flowControls) == FLOW_XONXOFF + 1, "one for each FlowType");

} // namespace

SerialLine::SerialLine()
{
    connect(&m_port, &QSerialPort::readyRead, this, [this] { emit received(m_port.readAll()); });
    connect(&m_port, &QSerialPort::errorOccurred, this, [this](QSerialPort::SerialPortError error) {
        // Queued, since the port does not bear to be closed inside its own signal.
        if (error == QSerialPort::ReadError || error == QSerialPort::ResourceError)
            QMetaObject::invokeMethod(this, &SerialLine::end, Qt::QueuedConnection);
    });
}

void SerialLine::open(const QString& path, const PortSettings& settings)
{
    m_port.setPortName(path);
    // Before the open: pseudo-terminals refuse seven data bits and parity afterwards.
    m_port.setBaudRate(SerialTiming::bitsPerSecond(settings.BaudRate));
    m_port.setDataBits(QSerialPort::DataBits(settings.DataBits + 5));
    m_port.setParity(parities[settings.Parity]);
    m_port.setStopBits(stopBits[settings.StopBits]);
    m_port.setFlowControl(flowControls[settings.FlowControl]);
    if (!m_port.open(QIODevice::ReadOnly))
        throw CommandError(QStringLiteral("cannot open %1: %2").arg(path, m_port.errorString()));
    m_port.clear(QSerialPort::Input);
    m_clock.start();
}

void SerialLine::end()
{
    if (!m_port.isOpen())
        return;
    m_port.close();
    emit ended();
}
