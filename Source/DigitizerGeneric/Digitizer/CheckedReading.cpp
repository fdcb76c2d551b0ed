// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/CheckedInput.h"
#include "DigitizerGeneric/Digitizer/Diagnostics.h"
#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "DigitizerGeneric/Digitizer/InputEvents.h"
#include "DigitizerGeneric/Digitizer/ReceiveBuffer.h"
#include "QextSerialPort/qextserialport.h"

#include <QTimer>

namespace MavSystem {

namespace {

// A report that is still arriving is complete by then on the slowest of lines.
constexpr int unreadMilliseconds = 1000;

} // namespace

bool Digitizer::checkedReading() const
{
    return m_checked_reading;
}

void Digitizer::setCheckedReading(bool on)
{
    m_checked_reading = on;
}

InputEvents* Digitizer::inputEvents()
{
    if (!m_events) {
        m_events.reset(new InputEvents);
        m_unread.reset(new QTimer);
        m_unread->setSingleShot(true);
        m_unread->setInterval(unreadMilliseconds);
        connect(m_unread.get(), &QTimer::timeout, this, [this] {
            if (m_port)
                Q_EMIT m_events->inputUnread(m_port->bytesAvailable());
        });
    }
    return m_events.get();
}

void Digitizer::watchUnread()
{
    if (m_unread)
        m_unread->start();
}

bool Digitizer::readsChecked() const
{
    return m_checked && m_checked->stream().canCheck() && !isLectraE92();
}

void Digitizer::forgetInput()
{
    m_checked.reset();
    if (m_unread)
        m_unread->stop();
}

void Digitizer::startCheckedInput()
{
    m_checked.reset(new CheckedInput(*m_port, *m_argument, [this] {
        QMetaObject::invokeMethod(this, &Digitizer::deliverNext, Qt::QueuedConnection);
    }));
}

// The host may do anything with an item, so nothing comes after it has it.
void Digitizer::deliverNext()
{
    if (!m_checked)
        return;
    const std::optional<StreamItem> item = readsChecked() ? m_checked->next() : std::nullopt;
    if (item && item->isReport) {
        storeReportText(item->bytes.constData(), std::size_t(item->bytes.size()));
        handOver();
    } else if (item) {
        passOver(item->bytes);
    } else if (m_checked->takeEnd()) {
        tellPortLost();
    }
}

void Digitizer::passOver(const QByteArray& bytes)
{
    qCDebug(lcSerial) << "no report:" << bytes;
    if (m_events)
        Q_EMIT m_events->bytesPassedOver(bytes);
}

void Digitizer::handlePortEnd()
{
    if (readsChecked())
        m_checked->end();
    else
        tellPortLost();
}

void Digitizer::tellPortLost()
{
    const QString reason = m_port->errorString();
    qCDebug(lcSerial).noquote() << "the port is lost:" << reason;
    if (m_events)
        Q_EMIT m_events->portLost(reason);
}

} // namespace MavSystem
