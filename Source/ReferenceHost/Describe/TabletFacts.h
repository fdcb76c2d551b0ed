// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QextSerialPort/qextserialport.h"

#include <QString>

#include <optional>

namespace ReferenceHost {

/// What the user has to say about a tablet, because its bytes do not show it.
struct TabletFacts
{
    QString name;                   ///< the driver name
    PortSettings line;              ///< the serial settings with which the bytes were read
    bool isLineKnown = true;        ///< otherwise \a line holds the usual settings
    std::optional<double> distance; ///< from the first press to the second, in centimetres
};

} // namespace ReferenceHost
