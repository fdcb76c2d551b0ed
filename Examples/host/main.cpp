// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
//
// The smallest host: prints each point that is taken from a tablet.
//   example-host DRIVER PORT
#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "MavCore/MavInit.h"

#include <QCoreApplication>
#include <QTextStream>

using namespace MavSystem;

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    MavInit::instance()->runOnce();

    DigitalReport::registerHandle([](const DigitalReport& report) {
        QTextStream(stdout) << report.coordinate().x() << " cm, " << report.coordinate().y()
                            << " cm, button " << report.m_button_number << Qt::endl;
    });
    const auto digitizer = Digitizer::instance();
    digitizer->selectDevice(application.arguments().value(1), application.arguments().value(2));
    if (!digitizer->open())
        return 1; // the user has seen why
    digitizer->readReport();
    return application.exec();
}
