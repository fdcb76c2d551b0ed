// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/DigitalReport.h"

#include "DigitizerGeneric/Digitizer/ClosingPoint.h"
#include "MavCore/MavInit.h"

#include <boost/smart_ptr/local_shared_ptr.hpp>
#include <boost/smart_ptr/make_local_shared.hpp>

#include <limits>
#include <utility>

namespace MavSystem {

namespace {

using Handler = boost::function<void(const DigitalReport&)>;

// Shared with a running flush(), so that a handler may replace or remove itself while it runs;
// among owners of one thread, whose counting costs nothing.
boost::local_shared_ptr<Handler>& installedHandler()
{
    static boost::local_shared_ptr<Handler> handler;
    return handler;
}

void registerMetaType()
{
    qRegisterMetaType<DigitalReport>("MavSystem::DigitalReport");
}

// Runs when the library is loaded, before any QCoreApplication exists.
const bool s_registered = [] {
    MavInit::instance()->registerRunOnce(registerMetaType, MavInit::RunStage(0), 0);
    return true;
}();

} // namespace

const GeoPoint2D& closingPoint()
{
    constexpr double smallest = std::numeric_limits<double>::min();
    static const GeoPoint2D point(smallest, smallest);
    return point;
}

DigitalReport::DigitalReport(const GeoPoint2D& point) : m_coordinate(point) {}

DigitalReport::DigitalReport(double x, double y) : m_coordinate(x, y) {}

GeoPoint2D DigitalReport::coordinate() const
{
    return m_coordinate;
}

void DigitalReport::setCoordinate(GeoPoint2D& point)
{
    m_coordinate = point;
}

bool DigitalReport::isClosing() const
{
    return m_coordinate.x() == closingPoint().x() && m_coordinate.y() == closingPoint().y();
}

void DigitalReport::flush()
{
    const boost::local_shared_ptr<Handler> handler = installedHandler();
    if (handler)
        (*handler)(*this);
}

void DigitalReport::registerHandle(boost::function<void(const DigitalReport&)> handler)
{
    installedHandler() = handler ? boost::make_local_shared<Handler>(std::move(handler)) : nullptr;
}

void DigitalReport::unregisterHandle()
{
    installedHandler().reset();
}

} // namespace MavSystem
