// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/DigitizerArgument.h"
#include "DigitizerGeneric/DigitizerGenericExport.h"

#include <QString>

namespace MavSystem {

/// A driver as a description file defines it: one kind of tablet, or the pen.
///
/// A plain record. It does not follow later changes to the file.
class DIGITIZERGENERIC_EXPORT DescribedDriver
{
public:
    QString name;    ///< what Digitizer::selectDevice() takes
    QString file;    ///< absolute path
    QString support; ///< "verified", "documented" or "untested"; empty when the file does not say
    DigitizerArgument description;

    /// Returns the number of buttons in the description.
    int buttonCount() const;

    /// Returns the resolution as text: "1000 LPI" or "40 LPMM".
    QString resolutionText() const;

    /// Returns whether a tablet's reports can be read with it. Without a report template they
    /// cannot; the description of a pen has none. The "Lectra E92" needs none.
    bool takesReports() const;

    /// Returns whether the reports have the built-in layout of the "Lectra E92" instead of a
    /// template.
    bool isLectraE92() const;
};

} // namespace MavSystem
