// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/DigitizerArgument.h"

#include <QDomElement>

#include <optional>

namespace MavSystem {

/// Returns the description below the root element \a root of its file, or nothing when its report
/// template is broken or its button count beyond reason.
std::optional<DigitizerArgument> parseDescription(const QDomElement& root);

} // namespace MavSystem
