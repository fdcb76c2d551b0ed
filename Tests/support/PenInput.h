// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "support/DescriptionBuilder.h"
#include "support/TestHost.h"

#include <QSettings>
#include <QtTest>

#include <functional>

/// A pen directory with real files and a real watcher, and the reports that come from it. Of its
/// two drivers "A", which is selected, gives the pen's own units tenfold, and "B" a tenth of that.
struct PenInput
{
    PenInput()
    {
        for (const char* name : {"A", "B"})
            host.writeDescription(
                QLatin1String(name),
                DescriptionBuilder(name).resolution(*name == 'A' ? 1 : 10, "LPMM").xml());
        QDir().mkpath(folder);
        setDirectory(folder);
        digitizer->selectDevice("A", "File:");
        digitizer->setExtended4Buttons(false);
        digitizer->setPenFileSettleTime(0);
        digitizer->m_host_mode = 0;
        host.answer = 0;
        host.duringDialog = [this] {
            runHooks("question", host.questions.size());
            runHooks("error", host.errors.size());
        };
        MavSystem::DigitalReport::registerHandle([this](const MavSystem::DigitalReport& report) {
            const MavSystem::GeoPoint2D point = report.coordinate();
            reports << QByteArray::number(report.m_button_number) + ':' +
                           QByteArray::number(point.x() * 10) + ',' +
                           QByteArray::number(point.y() * 10);
            runHooks("report", reports.size());
        });
    }
    ~PenInput()
    {
        MavSystem::DigitalReport::unregisterHandle();
        digitizer->close();
    }

    static void setDirectory(const QString& directory)
    {
        QSettings().setValue("digitizer_file_directory", directory);
    }

    /// Makes each of \a entries, which are separated by "|": "name=content" a file, "name/" a
    /// folder, "name->target" a link.
    void put(const QByteArray& entries)
    {
        for (const QByteArray& entry : entries.split('|')) {
            const QString text = QString::fromLatin1(entry);
            const QString name = text.section(QRegularExpression("=|->|/"), 0, 0);
            if (entry.endsWith('/'))
                QVERIFY(QDir(folder).mkdir(name));
            else if (entry.contains("->"))
                QVERIFY(QFile::link(text.section("->", 1), pathOf(name)));
            else if (!entry.isEmpty())
                putFile(name, entry.mid(entry.indexOf('=') + 1));
        }
    }

    // Complete files only, as pen software has to deliver them.
    void putFile(const QString& name, const QByteArray& content)
    {
        const QString outside = host.write(QStringLiteral("outside/") + name, content);
        QVERIFY(QFile::rename(outside, pathOf(name)));
    }

    QString pathOf(const QString& name) const { return folder + '/' + name; }
    QByteArray encodedPathOf(const char* name) const
    {
        return QFile::encodeName(folder) + '/' + name;
    }

    QByteArray names() const
    {
        return QDir(folder)
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot)
            .join(' ')
            .toUtf8();
    }

    QByteArray delivered() const { return reports.join(' '); }

    // Once: the next box shows neither the same question nor the same error.
    void runHooks(const char* event, int number)
    {
        for (const auto& action : hooks.take(event + (' ' + QByteArray::number(number))))
            action();
    }

    TestHost host;
    QString folder = host.path("pen");
    boost::shared_ptr<MavSystem::Digitizer> digitizer = MavSystem::Digitizer::instance();
    QByteArrayList reports; ///< "button:x,y"
    /// What is done inside "report 1", "question 1", "error 1" and so on.
    QHash<QByteArray, QVector<std::function<void()>>> hooks;
};
