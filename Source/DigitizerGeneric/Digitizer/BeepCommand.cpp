// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/DescriptionFiles.h"
#include "DigitizerGeneric/Digitizer/DescriptionParsing.h"
#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "QextSerialPort/qextserialport.h"

#include <QDebug>

namespace MavSystem {

void Digitizer::digitBeep()
{
    const auto found =
        m_given ? DescriptionFiles::load(m_given->file)
                : DescriptionFiles::find(m_driver, DescriptionFiles::BrokenFile::Unnamed);
    if (!found)
        return;
    const QString command = beepCommandOf(found->document.documentElement());
    if (command.isEmpty() || !m_port)
        return;
    if (m_port->isOpen()) // it stays, unopened, after a failed open(), and a write would warn
        m_port->write(command.toLatin1());
    qDebug() << "Test for digitizer beep string:" << command;
}

} // namespace MavSystem
