// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "QextSerialPort/qextserialport.h"
#include "ReferenceHost/Describe/LayoutFinder.h"
#include "ReferenceHost/Describe/ReportSplit.h"

#include <QString>

#include <optional>

namespace ReferenceHost {

/// What a tablet's bytes do not show and its user has to say.
struct TabletFacts
{
    QString name;                   ///< the driver name
    PortSettings line;              ///< the settings with which the bytes were read
    bool isLineKnown = true;        ///< otherwise the settings are only the usual ones
    std::optional<double> distance; ///< from the first press to the second, in centimetres
};

/// Returns a description file for the tablet. It is complete and well-formed; all that is not sure
/// stands in it as a comment "Not sure: ..." above the element that it is about. Neither \a split
/// nor \a layout has an error.
QString proposeDescription(const ReportSplit& split, const FoundLayout& layout,
                           const TabletFacts& facts);

} // namespace ReferenceHost
