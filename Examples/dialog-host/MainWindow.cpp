// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "MainWindow.h"

#include "DeviceDialog.h"

#include "DigitizerGeneric/Digitizer/InputEvents.h"
#include "DigitizerGeneric/Digitizer/SelectedDevice.h"

#include <QMenuBar>
#include <QStatusBar>
#include <QTextStream>

using namespace MavSystem;

MainWindow::MainWindow()
{
    setCentralWidget(&m_drawing);
    resize(700, 600);
    addMenus();
    const QString problem = DescriptionFolder::prepare();
    showStatus(problem.isEmpty() ? "No digitizer is open." : problem);

    DigitalReport::registerHandle([this](const DigitalReport& report) { take(report); });
    const auto digitizer = Digitizer::instance();
    digitizer->setCheckedReading(true);   // accept only what fits the tablet's template
    digitizer->setPenFileSettleTime(500); // import pen files only when they are complete
    watchInput();
}

MainWindow::~MainWindow()
{
    DigitalReport::unregisterHandle();
    Digitizer::instance()->close();
}

void MainWindow::addMenus()
{
    menuBar()->addMenu("D&rawing")->addAction("&Quit", this, &QWidget::close, Qt::CTRL + Qt::Key_Q);
    QMenu* const menu = menuBar()->addMenu("&Digitizer");
    menu->addAction("&Open...", this, &MainWindow::chooseDigitizer, Qt::CTRL + Qt::Key_O);
    menu->addAction("&Close", this, &MainWindow::closeDigitizer, Qt::CTRL + Qt::Key_W);
}

void MainWindow::watchInput()
{
    const InputEvents* const events = Digitizer::instance()->inputEvents();
    connect(events, &InputEvents::bytesPassedOver, this, [this](const QByteArray& bytes) {
        showStatus(QString("Bytes that are not part of a report: %1. A point may be missing.")
                       .arg(bytes.size()));
    });
    connect(events, &InputEvents::portLost, this, [this](const QString& reason) {
        showStatus("The port is lost: " + reason + ". Open it again when it is back.");
    });
}

void MainWindow::chooseDigitizer()
{
    DeviceDialog dialog(this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    QSettings().setValue("digitizer_file_directory", dialog.penDirectory());
    const QString problem = openDigitizer(dialog.driver(), dialog.port());
    if (!problem.isEmpty())
        m_framework.displayWarning("The digitizer cannot be used.", problem, this);
}

QString MainWindow::openDigitizer(const QString& driver, const QString& port)
{
    closeDigitizer();
    const auto digitizer = Digitizer::instance();
    digitizer->selectDevice(driver, port);
    const QString problem = SelectedDevice::problem();
    if (!problem.isEmpty() || !digitizer->open())
        return problem; // open() has shown a warning itself, or the user did not want to import
    digitizer->readReport();
    digitizer->saveConfig();
    showStatus(driver + " is open at " + port);
    return {};
}

void MainWindow::closeDigitizer()
{
    Digitizer::instance()->close();
    showStatus("No digitizer is open.");
}

void MainWindow::take(const DigitalReport& report)
{
    if (report.isClosing()) // not a point
        return;
    const GeoPoint2D point = report.coordinate();
    m_drawing.addPoint(point.x(), point.y(), report.m_button_number);
    QTextStream(stdout) << QString::number(point.x(), 'f', 4) << " cm, "
                        << QString::number(point.y(), 'f', 4) << " cm, button "
                        << report.m_button_number << Qt::endl;
}

void MainWindow::showStatus(const QString& text)
{
    statusBar()->showMessage(text);
}
