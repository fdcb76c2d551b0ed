// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/DigitizerGenericExport.h"
#include "MavGeo/GeoPoint2D.h"

#include <QMetaType>

#include <boost/function.hpp>

namespace MavSystem {

/// One report: a point in centimetres and a button number.
///
/// Reports reach the host through one handler, synchronously, on the thread of its event loop.
/// Inside the handler a host may call any operation of Digitizer, show a modal dialog or throw.
/// Setting the handler is not thread-safe.
class DIGITIZERGENERIC_EXPORT DigitalReport
{
public:
    /// \a point is in centimetres. The button number is 0 until m_button_number is set.
    DigitalReport(const GeoPoint2D& point = GeoPoint2D());
    DigitalReport(double x, double y);

    GeoPoint2D coordinate() const;
    void setCoordinate(GeoPoint2D& point);

    /// Returns whether this is the report that Digitizer::close() sends, which is not a point. Both
    /// of its coordinates are the smallest positive normal double, which no tablet can send.
    bool isClosing() const;

    /// Calls the installed handler with this report and returns when it returns. Without a handler
    /// the report is dropped. Exceptions of the handler are passed on.
    void flush();

    /// Installs a copy of \a handler in place of the previous one.
    static void registerHandle(boost::function<void(const DigitalReport&)> handler);

    /// Removes the handler; reports are dropped from then on.
    static void unregisterHandle();

private:
    GeoPoint2D m_coordinate;

public:
    /// The button that was pressed: 1 to 4 for a cursor with four buttons, 0 to 15 for one with
    /// sixteen, 0 when no button matched. 5 (four buttons) or 14 (otherwise) on closing and on a
    /// port error. -1 for a rejected "Lectra E92" report.
    int m_button_number = 0;
};

} // namespace MavSystem

Q_DECLARE_METATYPE(MavSystem::DigitalReport)
