// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Serial/DeviceCheck.h"

#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "DigitizerGeneric/Digitizer/PortRights.h"
#include "DigitizerGeneric/Digitizer/SelectedDevice.h"
#include "ReferenceHost/Serial/PortAccess.h"
#include "ReferenceHost/Serial/PortHolders.h"

namespace ReferenceHost {

using namespace MavSystem;

QString deviceProblem(const QString& driver, const QString& device)
{
    Digitizer::instance()->selectDevice(driver, device);
    const QString problem = SelectedDevice::problem();
    if (problem.isEmpty() || device == QLatin1String("File:"))
        return problem;
    const QString moreOnPort = portProblem(device);
    if (!moreOnPort.isEmpty())
        return moreOnPort;
    // The library's port is also locked against programs that only agree to lock; an open alone
    // does not tell of these.
    return QStringLiteral("%1; held by: %2")
        .arg(problem, holdersText(portHolders(portPath(device))));
}

} // namespace ReferenceHost
