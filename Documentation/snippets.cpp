// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
//
// Code in the pages that is not in an example host. It is compiled with the tests, as a host is.
class Drawing
{
public:
    void addPoint(double x, double y, int button);
};

#include "DigitizerGeneric/Digitizer/DescriptionFolder.h"
#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "DigitizerGeneric/Digitizer/SelectedDevice.h"
#include "MavCore/MavInit.h"

using namespace MavSystem;

// Returns why the device cannot be used, or an empty text.
QString startDigitizing(Drawing* drawing, const QString& driver, const QString& port)
{
    MavInit::instance()->runOnce(); // once in the process
    const QString unprepared = DescriptionFolder::prepare();
    if (!unprepared.isEmpty())
        return unprepared;

    DigitalReport::registerHandle([drawing](const DigitalReport& report) {
        if (report.isClosing()) // not a point
            return;
        const GeoPoint2D point = report.coordinate(); // centimetres
        drawing->addPoint(point.x(), point.y(), report.m_button_number);
    });

    const auto digitizer = Digitizer::instance();
    digitizer->setCheckedReading(true); // take what fits the tablet's template, pass over the rest
    digitizer->selectDevice(driver, port);
    const QString problem = SelectedDevice::problem();
    if (problem.isEmpty() && digitizer->open()) // a failed open() has shown a warning
        digitizer->readReport();
    return problem;
}

// Installs a description that comes with the application or that its user has chosen.
QString addTablet(const QString& file)
{
    const DescriptionFolder::Result installed = DescriptionFolder::install(file);
    if (installed.problem.isEmpty())
        Digitizer::instance()->selectDevice(installed.driver.name, "/dev/ttyUSB0");
    return installed.problem;
}
