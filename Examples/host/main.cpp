// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
//
// The smallest host: prints each point that is taken from a tablet, and what else happens.
//   example-host DRIVER PORT
#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "DigitizerGeneric/Digitizer/InputEvents.h"
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
    digitizer->setCheckedReading(true);
    const InputEvents* const events = digitizer->inputEvents();
    QObject::connect(events, &InputEvents::bytesPassedOver, [](const QByteArray& bytes) {
        QTextStream(stderr) << "no report: " << bytes.toPercentEncoding() << Qt::endl;
    });
    QObject::connect(events, &InputEvents::inputUnread, [](qint64 bytes) {
        QTextStream(stderr) << bytes << " bytes stay unread" << Qt::endl;
    });
    QObject::connect(events, &InputEvents::portLost, &application, [](const QString& reason) {
        QTextStream(stderr) << "the port is lost: " << reason << Qt::endl;
        QCoreApplication::exit(1);
    });
    digitizer->selectDevice(application.arguments().value(1), application.arguments().value(2));
    if (!digitizer->open())
        return 1; // the user has seen why
    digitizer->readReport();
    return application.exec();
}
