// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/DigitizerGenericVersion.h"

namespace MavSystem {

QString versionText()
{
    return QStringLiteral(DIGITIZERGENERIC_VERSION_TEXT);
}

} // namespace MavSystem
