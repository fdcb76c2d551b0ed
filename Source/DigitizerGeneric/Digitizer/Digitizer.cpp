// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/Digitizer.h"

#include "DigitizerGeneric/Digitizer/CheckedInput.h"
#include "DigitizerGeneric/Digitizer/ClosingPoint.h"
#include "DigitizerGeneric/Digitizer/DescriptionFolder.h"
#include "DigitizerGeneric/Digitizer/Diagnostics.h"
#include "DigitizerGeneric/Digitizer/InputEvents.h"
#include "DigitizerGeneric/Digitizer/ReceiveBuffer.h"
#include "DigitizerGeneric/Digitizer/ReportLayout.h"
#include "DigitizerGeneric/Digitizer/SettingKeys.h"
#include "DigitizerGeneric/File_Digital/DigipenFileDigitalization.h"
#include "DigitizerGeneric/File_Digital/PenFilePaths.h"
#include "MavCore/MavApplication.h"
#include "QextSerialPort/ApplySettings.h"

#include <QSettings>
#include <QTimer>

#include <boost/make_shared.hpp>

#include <algorithm>

namespace MavSystem {

namespace {

// A text that is no truth value counts as absent.
bool isOn(const QSettings& settings, const char* key)
{
    const QString text = settings.value(QLatin1String(key), false).toString();
    return text.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0 ||
           text == QLatin1String("1");
}

} // namespace

void Digitizer::ReleaseImporter::operator()(DigipenFileDigitalization* importer) const
{
    importer->release();
}

boost::shared_ptr<Digitizer> Digitizer::instance()
{
    static const boost::shared_ptr<Digitizer> digitizer = boost::make_shared<Digitizer>();
    return digitizer;
}

Digitizer::Digitizer() : m_report_text(receiveBuffer())
{
    const QSettings settings;
    m_extended_4_buttons = isOn(settings, SettingKeys::extended4Buttons);
    m_digitize_pieces_view = isOn(settings, SettingKeys::digitizePiecesView);
    m_view_digitized_points = isOn(settings, SettingKeys::viewDigizedPoints);
    m_high_precision = isOn(settings, SettingKeys::highPrecision);
    selectDevice(settings.value(QLatin1String(SettingKeys::driver)).toString(),
                 settings.value(QLatin1String(SettingKeys::device)).toString());
}

Digitizer::~Digitizer() = default;

void Digitizer::selectDevice(const QString& driver, const QString& device)
{
    m_given.reset();
    useDescription(DigitizerArgument::digitizerArgument(driver));
    m_driver = driver;
    m_device = device;
}

void Digitizer::selectDriver(const DescribedDriver& driver, const QString& device)
{
    m_given.reset(new DescribedDriver(driver));
    useDescription(new DigitizerArgument(driver.description));
    m_driver = driver.name;
    m_device = device;
}

void Digitizer::useDescription(DigitizerArgument* description)
{
    m_argument.reset(description);
    m_layout.reset(new ReportLayout(*m_argument));
    if (m_checked)
        m_checked->setTemplate(*m_argument);
}

void Digitizer::saveConfig()
{
    QSettings settings;
    settings.setValue(QLatin1String(SettingKeys::driver), m_driver);
    settings.setValue(QLatin1String(SettingKeys::device), m_device);
    settings.setValue(QLatin1String(SettingKeys::extended4Buttons), m_extended_4_buttons);
    settings.setValue(QLatin1String(SettingKeys::digitizePiecesView), m_digitize_pieces_view);
    settings.setValue(QLatin1String(SettingKeys::viewDigizedPoints), m_view_digitized_points);
    settings.setValue(QLatin1String(SettingKeys::highPrecision), m_high_precision);
}

QString Digitizer::driver() const
{
    return m_driver;
}

QString Digitizer::device() const
{
    return m_device;
}

std::optional<DescribedDriver> Digitizer::describedDriver() const
{
    return m_given ? *m_given : DescriptionFolder::find(m_driver);
}

bool Digitizer::extended4Buttons() const
{
    return m_extended_4_buttons;
}

void Digitizer::setExtended4Buttons(bool on)
{
    m_extended_4_buttons = on;
}

void Digitizer::setPenFileSettleTime(int milliseconds)
{
    m_pen_file_settle_time = std::max(milliseconds, 0);
}

int Digitizer::penFileSettleTime() const
{
    return m_pen_file_settle_time;
}

int Digitizer::unsettledPenFiles() const
{
    return m_pen_file ? m_pen_file->unsettledFiles() : 0;
}

bool Digitizer::dgitizePiecesView() const
{
    return m_digitize_pieces_view;
}

void Digitizer::setDgitizePiecesView(bool on)
{
    m_digitize_pieces_view = on;
}

bool Digitizer::viewDigizedPoints() const
{
    return m_view_digitized_points;
}

void Digitizer::setViewDigizedPoints(bool on)
{
    m_view_digitized_points = on;
}

bool Digitizer::highPrecision() const
{
    return m_high_precision;
}

void Digitizer::setHighPrecision(bool on)
{
    m_high_precision = on;
}

bool Digitizer::open()
{
    return m_device == penDevice() ? openPenFiles() : openSerialPort();
}

bool Digitizer::openPenFiles()
{
    auto* const importer = new DigipenFileDigitalization(this, m_extended_4_buttons);
    m_pen_file.reset(importer);
    // It may be replaced meanwhile, by a host that opens again from inside its handler, and is
    // then kept alive by itself.
    const bool watching = importer->open();
    m_pen_mode = true;
    return watching;
}

bool Digitizer::openSerialPort()
{
    forgetInput();
    m_port.reset(new QextSerialPort(QextSerialPort::EventDriven));
    connect(m_port.get(), &QIODevice::readChannelFinished, this, &Digitizer::handlePortEnd);
    m_port->setPortName(m_device);
    applySettings(m_argument->m_portSettings, *m_port);
    if (!m_port->open(QIODevice::ReadWrite | QIODevice::Unbuffered)) {
        qCDebug(lcSerial).noquote() << m_device << "does not open:" << m_port->errorString();
        MavApplication::instance()->displayWarning(
            tr("Cannot open digitizer, please check the connection."), QString(), nullptr);
        return false;
    }
    m_port->readAll();
    m_port->reset();
    m_port_open = true;
    if (m_checked_reading)
        startCheckedInput();
    return true;
}

void Digitizer::readReport()
{
    if (m_pen_mode || !m_port)
        return;
    connect(m_port.get(), &QextSerialPort::readyRead, this, &Digitizer::handleRead);
    if (m_checked)
        m_checked->start();
}

bool Digitizer::close()
{
    if (m_pen_mode) {
        if (m_pen_file)
            m_pen_file->close();
        m_pen_mode = false;
        return false;
    }
    if (!m_port)
        return false;
    forgetInput();
    if (m_port->isOpen())
        m_port->readAll();
    m_port->close();
    disconnect(m_port.get(), &QextSerialPort::readyRead, nullptr, nullptr);
    m_port.reset();
    m_port_open = false;

    DigitalReport report(closingPoint());
    report.m_button_number = closingCode();
    report.flush();
    return true;
}

bool Digitizer::active() const
{
    if (m_pen_mode)
        return m_pen_file && m_pen_file->active();
    return m_port && m_port_open;
}

short Digitizer::closingCode() const
{
    return m_argument->m_fourButtons ? 5 : 14;
}

} // namespace MavSystem
