// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/DescriptionFiles.h"
#include "DigitizerGeneric/Digitizer/Diagnostics.h"
#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "DigitizerGeneric/Digitizer/RegularFile.h"
#include "DigitizerGeneric/File_Digital/PenFilePaths.h"
#include "QextSerialPort/PortErrors.h"
#include "QextSerialPort/qextserialport.h"

namespace MavSystem {

namespace {

void copyDescriptionsOfHost(const QDir& installed)
{
    for (const QFileInfo& file : DescriptionFiles::candidates(DescriptionFiles::folderOfHost())) {
        const QString target = installed.absolutePath() + QLatin1Char('/') + file.fileName();
        if (!copyRegularFile(file.absoluteFilePath(), target))
            qCDebug(lcDescriptions).noquote()
                << target << "is not installed: the shipped file could not be copied";
    }
}

bool driverIsDescribed(const QString& driver)
{
    const std::optional<QDir> installed = DescriptionFiles::installedFolder();
    if (!installed)
        return false;
    if (DescriptionFiles::candidates(*installed).isEmpty())
        copyDescriptionsOfHost(*installed);
    return DescriptionFiles::find(driver, DescriptionFiles::BrokenFile::Unnamed).has_value();
}

QString probePort(const QString& name)
{
    QextSerialPort port(QextSerialPort::EventDriven);
    port.setPortName(name);
    if (port.open(QIODevice::ReadOnly))
        port.close();
    return port.errorString();
}

} // namespace

QString Digitizer::deviceExist()
{
    const boost::shared_ptr<Digitizer> digitizer = instance();
    if (!digitizer->m_given && !driverIsDescribed(digitizer->driver()))
        return tr("Digitizer Not Present...");
    if (digitizer->device() == penDevice())
        return QLatin1String(PortErrors::none);
    return probePort(digitizer->device());
}

} // namespace MavSystem
