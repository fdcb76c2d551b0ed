// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
//
// A window with a drawing that uses the digitizer. It also prints each point.
//   dialog-host [DRIVER PORT]
#include "MainWindow.h"

#include "MavCore/MavInit.h"

#include <QApplication>
#include <QTextStream>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QCoreApplication::setOrganizationName("Examples"); // these two name the folders of the host
    QCoreApplication::setApplicationName("dialog-host");
    MavSystem::MavInit::instance()->runOnce();

    MainWindow window;
    window.show();
    const QStringList arguments = QCoreApplication::arguments();
    const QString problem =
        arguments.size() == 3 ? window.openDigitizer(arguments.at(1), arguments.at(2)) : QString();
    if (problem.isEmpty())
        return QCoreApplication::exec();
    QTextStream(stderr) << problem << Qt::endl;
    return 1;
}
