// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/SelectedDevice.h"

#include "DigitizerGeneric/Digitizer/DescriptionFolder.h"
#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "DigitizerGeneric/Digitizer/PortRights.h"
#include "DigitizerGeneric/Digitizer/SettingKeys.h"
#include "DigitizerGeneric/File_Digital/PenFilePaths.h"
#include "QextSerialPort/PortErrors.h"

#include <QFileInfo>

namespace MavSystem {

namespace {

QString penProblem()
{
    const QString directory = penDirectory();
    return QFileInfo(directory).isDir()
               ? QString()
               : QStringLiteral("there is no directory \"%1\" for pen files; check the setting %2")
                     .arg(directory, QLatin1String(SettingKeys::penDirectory));
}

QString tabletProblem(const DescribedDriver& driver, const QString& device)
{
    if (!driver.takesReports())
        return QStringLiteral("%1 has no usable report template: it is for a pen, or it is broken")
            .arg(driver.file);
    const QString problem = rightsProblem(device);
    if (!problem.isEmpty())
        return problem;
    const QString answer = Digitizer::deviceExist();
    return answer == QLatin1String(PortErrors::none) ? QString() : openProblem(device, answer);
}

} // namespace

QString SelectedDevice::problem()
{
    const auto digitizer = Digitizer::instance();
    const auto driver = digitizer->describedDriver();
    if (!driver)
        return QStringLiteral("no description in %1 has the name \"%2\"")
            .arg(DescriptionFolder::path(), digitizer->driver());
    return digitizer->device() == penDevice() ? penProblem()
                                              : tabletProblem(*driver, digitizer->device());
}

} // namespace MavSystem
