// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Serial/DeviceCheck.h"
#include "DigitizerGeneric/File_Digital/PenFilePaths.h"

#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "DigitizerGeneric/Digitizer/PortRights.h"
#include "DigitizerGeneric/Digitizer/SelectedDevice.h"
#include "ReferenceHost/Serial/PortAccess.h"
#include "ReferenceHost/Serial/PortHolders.h"

namespace ReferenceHost {

using namespace MavSystem;

QString deviceProblem(const DescribedDriver& driver, const QString& device)
{
    Digitizer::instance()->selectDriver(driver, device);
    const QString problem = SelectedDevice::problem();
    if (problem.isEmpty() || device == penDevice())
        return problem;
    const QString moreOnPort = portProblem(device);
    if (!moreOnPort.isEmpty())
        return moreOnPort;
    // Some programs only lock the port. The library notices that, an open alone does not.
    return QStringLiteral("%1; in use by: %2")
        .arg(problem, holdersText(portHolders(portPath(device))));
}

} // namespace ReferenceHost
