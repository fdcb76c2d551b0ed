// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/DeviceCheck.h"

#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "ReferenceHost/Command.h"
#include "ReferenceHost/DriverList.h"
#include "ReferenceHost/PortAccess.h"
#include "ReferenceHost/PortHolders.h"

namespace {

// The library finds a description by its name alone, however broken its template is.
QString driverAdvice(const QString& name)
{
    try {
        usableDriver(name);
        return QString();
    } catch (const CommandError& error) {
        return QString::fromUtf8(error.what());
    }
}

// The library's port is also locked against programs that only agree to lock; an open alone does
// not tell of these.
QString portAdvice(const QString& device)
{
    const QString problem = portProblem(device);
    const QString holders = holdersText(portHolders(portPath(device)));
    return problem.isEmpty()
               ? QStringLiteral("another program may use %1; held by: %2").arg(device, holders)
               : problem;
}

} // namespace

DeviceCheck checkDevice(const QString& driver, const QString& device)
{
    MavSystem::Digitizer::instance()->selectDevice(driver, device);
    DeviceCheck check = {MavSystem::Digitizer::deviceExist(), driverAdvice(driver)};
    if (check.advice.isEmpty() && check.answer != QLatin1String("No Error has occurred"))
        check.advice = portAdvice(device);
    return check;
}
