// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/Diagnostics.h"
#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "DigitizerGeneric/Digitizer/FieldDecoding.h"
#include "DigitizerGeneric/Digitizer/LectraE92.h"
#include "DigitizerGeneric/Digitizer/ReceiveBuffer.h"
#include "QextSerialPort/PortErrors.h"
#include "QextSerialPort/qextserialport.h"

#include <QCoreApplication>
#include <QFile>
#include <QTimer>
#include <QVarLengthArray>

#include <algorithm>
#include <cstring>

namespace MavSystem {

namespace {

constexpr ParseReportFlags everything = 0x7f;

// What is read whatever it is counts up to its first zero byte.
void storeChunk(const QByteArray& chunk)
{
    const int size = std::min(chunk.size(), receiveBufferCharacters);
    storeReportText(chunk.constData(), qstrnlen(chunk.constData(), uint(size)));
}

void appendToLog(const QByteArray& chunk)
{
    QFile log(QCoreApplication::applicationDirPath() + QLatin1String("/received_data.txt"));
    if (log.open(QIODevice::ReadWrite | QIODevice::Append | QIODevice::Text))
        log.write(chunk + '\n');
}

QVarLengthArray<char, 64> inPositionOrder(const QMap<int, char>& field)
{
    QVarLengthArray<char, 64> characters;
    for (const char character : field)
        characters.append(character);
    return characters;
}

std::string_view textOf(const QVarLengthArray<char, 64>& characters)
{
    return {characters.constData(), std::size_t(characters.size())};
}

} // namespace

char* receiveBuffer()
{
    static char buffer[receiveBufferCharacters + 1] = {};
    return buffer;
}

void storeReportText(const char* characters, std::size_t count)
{
    std::memcpy(receiveBuffer(), characters, count);
    receiveBuffer()[count] = '\0';
}

bool Digitizer::isLectraE92() const
{
    return LectraE92::isName(m_driver);
}

void Digitizer::handleRead()
{
    if (!m_port)
        return; // anybody can invoke a slot by its name
    if (readsChecked()) {
        deliverNext();
        return;
    }
    const bool lectraE92 = isLectraE92();
    const qint64 waiting = m_port->bytesAvailable();
    if (quint64(waiting) != m_argument->m_reportLength && !lectraE92) {
        qCDebug(lcSerial) << waiting << "bytes are waiting where one report has"
                          << m_argument->m_reportLength;
        watchUnread();
        return;
    }
    const QByteArray chunk = m_port->readAll();
    m_port->reset();
    storeChunk(chunk);
    if (lectraE92)
        appendToLog(chunk);
    if (m_unread)
        m_unread->stop();
    handOver();
}

// What the receive buffer holds, to the host.
void Digitizer::handOver()
{
    m_report_text = receiveBuffer();
    DigitalReport report(0.0, 0.0);
    if (readsChecked() || m_port->errorString() == QLatin1String(PortErrors::none))
        report = parseReportText(everything);
    else
        report.m_button_number = closingCode();
    qCDebug(lcSerial) << "report" << QByteArray(m_report_text) << "button" << report.m_button_number
                      << "at" << report.coordinate().x() << report.coordinate().y();
    // The host may close, reopen or select inside its handler: nothing comes after this.
    report.flush();
}

DigitalReport Digitizer::parseReportText(ParseReportFlags flags)
{
    return isLectraE92() ? LectraE92::reportOf(m_report_text)
                         : FieldDecoding::reportOf(*m_argument, *m_layout, m_report_text, flags);
}

GeoPoint2D Digitizer::getCoordinate(QMap<int, char> xDigits, QMap<int, char> yDigits,
                                    QMap<int, char> signs, short xExponent, short yExponent)
{
    const QList<short> axisSigns = getSign(signs);
    return FieldDecoding::coordinateOf(*m_argument, textOf(inPositionOrder(xDigits)),
                                       textOf(inPositionOrder(yDigits)),
                                       {axisSigns.at(0), axisSigns.at(1)}, xExponent, yExponent);
}

QList<short> Digitizer::getSign(QMap<int, char> signs)
{
    const FieldDecoding::Signs axisSigns = FieldDecoding::signsOf(textOf(inPositionOrder(signs)));
    return {axisSigns.x, axisSigns.y};
}

short Digitizer::compareButtonNumber(ButtonValue code)
{
    return FieldDecoding::buttonNumberOf(*m_argument, code);
}

short Digitizer::getUnused(QMap<int, char> /*characters*/)
{
    return 0;
}

short Digitizer::getPoint(QMap<int, char> /*characters*/)
{
    return 0;
}

short Digitizer::getCR(QMap<int, char> /*characters*/)
{
    return 0;
}

short Digitizer::getLineFeed(QMap<int, char> /*characters*/)
{
    return 0;
}

} // namespace MavSystem
