// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "support/DescriptionBuilder.h"
#include "support/TestHost.h"

#include <QSettings>
#include <QtTest>

#include <functional>

/// An open road from a pen directory, with real files and a real watcher, to recorded reports.
struct PenRoad
{
    PenRoad()
    {
        host.writeDescription(QStringLiteral("a.xml"),
                              DescriptionBuilder().resolution(1, "LPMM").xml());
        host.writeDescription(QStringLiteral("b.xml"),
                              DescriptionBuilder("B").resolution(10, "LPMM").xml());
        QDir().mkpath(folder);
        QSettings().setValue(QStringLiteral("digitizer_file_directory"), folder);
        digitizer->selectDevice(QStringLiteral("A"), QStringLiteral("File:"));
        digitizer->setExtended4Buttons(false);
        digitizer->setPenFileSettleTime(0);
        digitizer->m_host_mode = 0;
        host.answer = 0;
        MavSystem::DigitalReport::registerHandle([this](const MavSystem::DigitalReport& report) {
            // In the pen's own units, which is what the description "A" gives tenfold.
            const MavSystem::GeoPoint2D point = report.coordinate();
            reports << QStringLiteral("%1:%2,%3")
                           .arg(report.m_button_number)
                           .arg(point.x() * 10)
                           .arg(point.y() * 10);
            atReport(reports.size());
        });
    }
    ~PenRoad()
    {
        MavSystem::DigitalReport::unregisterHandle();
        digitizer->close();
    }

    /// Makes "name=content" a file, where | is a line feed and @ a zero byte; "name/" a folder;
    /// "name->target" a link.
    void put(const QString& entry)
    {
        if (entry.endsWith(QLatin1Char('/'))) {
            QVERIFY(QDir(folder).mkdir(entry.chopped(1)));
        } else if (entry.contains(QLatin1String("->"))) {
            QVERIFY(QFile::link(entry.section(QLatin1String("->"), 1),
                                pathOf(entry.section(QLatin1String("->"), 0, 0))));
        } else {
            const QString name = entry.section(QLatin1Char('='), 0, 0);
            QByteArray content = entry.section(QLatin1Char('='), 1).toLatin1();
            content.replace('|', '\n').replace('@', '\0');
            // Complete files only, as pen software has to deliver them.
            host.write(QStringLiteral("outside/") + name, content);
            QVERIFY(QFile::rename(host.path(QStringLiteral("outside/") + name), pathOf(name)));
        }
    }

    QString pathOf(const QString& name) const { return folder + QLatin1Char('/') + name; }

    QString names() const
    {
        return QDir(folder)
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot)
            .join(QLatin1Char(' '));
    }

    QString delivered() const { return reports.join(QLatin1Char(' ')); }

    TestHost host;
    QString folder = host.path(QStringLiteral("pen"));
    boost::shared_ptr<MavSystem::Digitizer> digitizer = MavSystem::Digitizer::instance();
    QStringList reports; ///< "button:x,y"
    std::function<void(int number)> atReport = [](int /*number*/) {};
};
