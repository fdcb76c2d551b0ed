// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace ReferenceHost {

/// An open question about a tablet, and the part of the description that it concerns.
struct Doubt
{
    enum class About { Line, Resolution, Template, Buttons };
    About about;
    QString text;
};

} // namespace ReferenceHost
