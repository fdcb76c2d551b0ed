// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "Fuzzing/FuzzTarget.h"
#include "Fuzzing/ReentrantHost.h"

// A host that calls the driver from inside its own calls.
void fuzz(const QByteArray& input)
{
    const QStringList faults = ReentrantHost::run(input);
    require(faults.isEmpty(), qPrintable(faults.join(QLatin1Char('\n'))));
}
