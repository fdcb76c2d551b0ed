// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
//
// A minimal host: prints each point from a tablet, and other events.
//   example-host DRIVER PORT
// Without arguments it lists the drivers.
#include "DigitizerGeneric/Digitizer/DescriptionFolder.h"
#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "DigitizerGeneric/Digitizer/InputEvents.h"
#include "DigitizerGeneric/Digitizer/SelectedDevice.h"
#include "MavCore/MavInit.h"

#include <QCoreApplication>
#include <QTextStream>

using namespace MavSystem;

static int fail(const QString& problem)
{
    QTextStream(stderr) << problem << Qt::endl;
    return 1;
}

static void printUsage()
{
    QTextStream out(stdout);
    out << "usage: example-host DRIVER PORT\n\nThe drivers in " << DescriptionFolder::path()
        << ":\n";
    for (const DescribedDriver& driver : DescriptionFolder::drivers())
        out << "  " << driver.name << '\n';
}

static void printReport(const DigitalReport& report)
{
    if (report.isClosing()) // not a point
        return;
    const GeoPoint2D point = report.coordinate();
    QTextStream(stdout) << QString::number(point.x(), 'f', 4) << " cm, "
                        << QString::number(point.y(), 'f', 4) << " cm, button "
                        << report.m_button_number << Qt::endl;
}

static void watchInput()
{
    const InputEvents* const events = Digitizer::instance()->inputEvents();
    QObject::connect(events, &InputEvents::bytesPassedOver, [](const QByteArray& bytes) {
        QTextStream(stderr) << "not a report: " << bytes.toPercentEncoding() << Qt::endl;
    });
    QObject::connect(events, &InputEvents::portLost, [](const QString& reason) {
        QCoreApplication::exit(fail("the port is lost: " + reason));
    });
}

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setOrganizationName("Examples"); // these two name the folders of the host
    QCoreApplication::setApplicationName("example-host");
    MavInit::instance()->runOnce();
    const QString unprepared = DescriptionFolder::prepare();
    if (!unprepared.isEmpty())
        return fail(unprepared);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3) {
        printUsage();
        return arguments.size() == 1 ? 0 : 1;
    }

    const auto digitizer = Digitizer::instance();
    digitizer->setCheckedReading(true); // take what fits the tablet's template, pass over the rest
    digitizer->selectDevice(arguments.at(1), arguments.at(2));
    const QString problem = SelectedDevice::problem();
    if (!problem.isEmpty())
        return fail(problem);
    DigitalReport::registerHandle(printReport);
    watchInput();
    if (!digitizer->open())
        return 1; // the user has seen a warning
    digitizer->readReport();
    const int status = QCoreApplication::exec();
    digitizer->close();
    return status;
}
