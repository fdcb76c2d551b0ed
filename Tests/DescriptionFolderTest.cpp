// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/DescriptionFolder.h"
#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "DigitizerGeneric/Digitizer/SelectedDevice.h"
#include "ReferenceHost/Serial/PseudoTerminal.h"
#include "support/DescriptionBuilder.h"
#include "support/TestHost.h"

#include <QSettings>
#include <QtTest>

using namespace MavSystem;
using namespace ReferenceHost;

/// What a host needs before it selects a device: the folder with the descriptions, the list of
/// drivers, installing one more, and why a selected device cannot be used.
class DescriptionFolderTest : public QObject
{
    Q_OBJECT

private slots:
    void aFirstStartHasTheShippedDrivers();
    void shippedDescriptionsAreKeptUpToDate_data();
    void shippedDescriptionsAreKeptUpToDate();
    void aRecordThatCannotBeKeptIsTold();
    void driversAreThoseThatCanBeSelected();
    void oneMoreFileIsInstalled_data();
    void oneMoreFileIsInstalled();
    void theSelectedDeviceIsAskedAbout_data();
    void theSelectedDeviceIsAskedAbout();
};

namespace {

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

void DescriptionFolderTest::aFirstStartHasTheShippedDrivers()
{
    const TestHost host;
    QCOMPARE(DescriptionFolder::prepare(), QString());
    const QDir shipped(QStringLiteral(SOURCE_DIRECTORY "/Plugins/digitizer/generated"));
    const QStringList files = shipped.entryList(QDir::Files);
    QCOMPARE(DescriptionFolder::drivers().size(), files.size());
    for (const QString& file : files)
        QCOMPARE(contentOf(DescriptionFolder::path() + QLatin1Char('/') + file),
                 contentOf(shipped.filePath(file)));
    const auto driver = DescriptionFolder::find(QStringLiteral("Generic 5-5-1 (ASCII)"));
    QVERIFY(driver && driver->takesReports());
    QCOMPARE(driver->file, host.path(QStringLiteral("data/generated/generic-5-5-1.xml")));
    QCOMPARE(driver->buttonCount(), 4);
    QCOMPARE(driver->resolutionText(), QStringLiteral("1000 LPI"));
    QCOMPARE(driver->support, QStringLiteral("untested"));
}

void DescriptionFolderTest::shippedDescriptionsAreKeptUpToDate_data()
{
    QTest::addColumn<QByteArray>("installed"); // null: no such file
    QTest::addColumn<QByteArray>("afterwards");
    QTest::newRow("as the last release installed it") << QByteArray("old") << QByteArray("new");
    QTest::newRow("removed") << QByteArray() << QByteArray("new");
    QTest::newRow("changed by the user") << QByteArray("mine") << QByteArray("mine");
}

void DescriptionFolderTest::shippedDescriptionsAreKeptUpToDate()
{
    QFETCH(QByteArray, installed);
    TestHost host;
    const QString file = QStringLiteral("data/generated/a.xml");
    host.write(QStringLiteral("plugins/digitizer/generated/a.xml"), "old");
    QCOMPARE(DescriptionFolder::prepare(), QString());
    host.write(QStringLiteral("data/generated/own.xml"), "own");

    QVERIFY(QFile::remove(host.path(file)));
    if (!installed.isNull())
        host.write(file, installed);
    host.write(QStringLiteral("plugins/digitizer/generated/a.xml"), "new");
    QCOMPARE(DescriptionFolder::prepare(), QString());
    QTEST(contentOf(host.path(file)), "afterwards");
    const QDir data(host.path(QStringLiteral("data")));
    QCOMPARE(data.entryList(QDir::Files) + QDir(DescriptionFolder::path()).entryList(QDir::Files),
             QStringList({QStringLiteral("shipped-descriptions.ini"), QStringLiteral("a.xml"),
                          QStringLiteral("own.xml")}));
}

void DescriptionFolderTest::aRecordThatCannotBeKeptIsTold()
{
    TestHost host;
    host.write(QStringLiteral("data/shipped-descriptions.ini/in-the-way"), "");
    const QString problem = DescriptionFolder::prepare();
    QVERIFY2(problem.startsWith(QLatin1String("cannot write the record")), qPrintable(problem));
    QVERIFY(DescriptionFolder::find(QStringLiteral("Generic 5-5-1 (ASCII)")));
}

void DescriptionFolderTest::driversAreThoseThatCanBeSelected()
{
    TestHost host;
    QVERIFY(DescriptionFolder::drivers().isEmpty());
    host.writeDescription(QStringLiteral("1"), DescriptionBuilder("B").xml());
    host.writeDescription(QStringLiteral("2"), DescriptionBuilder("A").report("XxY").xml());
    host.writeDescription(QStringLiteral("3"), DescriptionBuilder("").xml());
    host.writeDescription(QStringLiteral("4"), "<device name='C'>");
    host.writeDescription(QStringLiteral("5"), DescriptionBuilder("B").xml());
    host.writeDescription(QStringLiteral("6"), DescriptionBuilder("lectra e92").report("").xml());
    QStringList found;
    for (const DescribedDriver& driver : DescriptionFolder::drivers())
        found << driver.name + QLatin1String(driver.takesReports() ? "+" : "-");
    QCOMPARE(found, QStringList({QStringLiteral("A-"), QStringLiteral("B+"),
                                 QStringLiteral("lectra e92+")}));
    for (const char* unknown : {"", "C", "b"})
        QVERIFY(!DescriptionFolder::find(QLatin1String(unknown)));
}

void DescriptionFolderTest::oneMoreFileIsInstalled_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("replaces");
    QTest::addColumn<QString>("problem"); // a part of it
    const auto row = [](const char* title, const char* name, const QByteArray& content,
                        bool replaces, const char* problem) {
        QTest::newRow(title) << QString::fromLatin1(name) << content << replaces
                             << QString::fromLatin1(problem);
    };
    row("a new one", "new.xml", DescriptionBuilder("New").xml(), false, "");
    row("a pen's", "pen.xml", DescriptionBuilder("Pen").reportFormat("").xml(), false, "");
    row("the installed one again", "there.xml", DescriptionBuilder("There").xml(), false, "");
    row("another of the same name", "there.xml", DescriptionBuilder("New").xml(), false,
        "already exists and differs from");
    row("to replace it", "there.xml", DescriptionBuilder("New").xml(), true, "");
    row("a driver that another file has", "new.xml", DescriptionBuilder("There").xml(), true,
        "/there.xml already does");
    row("malformed", "new.xml", "<device name='New'>", true, "is not well-formed");
    row("without a name", "new.xml", "<device/>", true, "names no driver");
    row("broken template", "new.xml", DescriptionBuilder("New").report("XxY").xml(), true,
        "template");
    row("hidden", ".new.xml", DescriptionBuilder("New").xml(), true, "hidden");
    row("not there", "", "", true, "cannot be read: No such file");
}

void DescriptionFolderTest::oneMoreFileIsInstalled()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    QFETCH(bool, replaces);
    QFETCH(QString, problem);
    TestHost host;
    QCOMPARE(host.write(QStringLiteral("old/there.xml"), DescriptionBuilder("There").xml()),
             host.path(QStringLiteral("old/there.xml")));
    QVERIFY(
        DescriptionFolder::install(host.path(QStringLiteral("old/there.xml"))).problem.isEmpty());
    const QString file = name.isEmpty() ? host.path(QStringLiteral("none.xml"))
                                        : host.write(QStringLiteral("new/") + name, content);
    const DescriptionFolder::Result result =
        DescriptionFolder::install(file, replaces ? DescriptionFolder::ExistingFile::Replaced
                                                  : DescriptionFolder::ExistingFile::Kept);
    QVERIFY2(problem.isEmpty() == result.problem.isEmpty() && result.problem.contains(problem),
             qPrintable(result.problem));
    const auto known = DescriptionFolder::find(QStringLiteral("There"));
    QCOMPARE(bool(known), name != QLatin1String("there.xml") || !replaces);
    if (!problem.isEmpty())
        return;
    QCOMPARE(result.driver.file, host.path(QStringLiteral("data/generated/") + name));
    QCOMPARE(contentOf(result.driver.file), content);
    QVERIFY(DescriptionFolder::find(result.driver.name));
}

void DescriptionFolderTest::theSelectedDeviceIsAskedAbout_data()
{
    QTest::addColumn<QString>("driver");
    QTest::addColumn<QString>("device");
    QTest::addColumn<QString>("problem");
    const auto row = [](const char* driver, const char* device, const char* problem) {
        QTest::newRow(qPrintable(
            QStringLiteral("%1 at %2").arg(QLatin1String(driver), QLatin1String(device))))
            << QString::fromLatin1(driver) << QString::fromLatin1(device)
            << QString::fromLatin1(problem);
    };
    row("A", "PORT", "");
    row("B", "PORT", "no description in HOST/data/generated has the name \"B\"");
    row("Broken", "PORT",
        "HOST/data/generated/broken has no usable report template: it is for a pen, or it is "
        "broken");
    row("A", "/no/port",
        "there is no port /no/port; check the name, and whether the cable is plugged in");
    row("A", "nowhere",
        "there is no port /dev/nowhere; check the name, and whether the cable is plugged in");
    row("A", "HOST", "HOST is not a serial port");
    row("A", "/dev/null",
        "cannot open /dev/null: The file opened by the port is not a valid device");
    row("Broken", "File:", "");
    row("B", "File:", "no description in HOST/data/generated has the name \"B\"");
    row("A", "File: without a directory",
        "there is no directory \"/no/pen\" for pen files; check the setting "
        "digitizer_file_directory");
}

void DescriptionFolderTest::theSelectedDeviceIsAskedAbout()
{
    QFETCH(QString, driver);
    QFETCH(QString, device);
    QFETCH(QString, problem);
    TestHost host;
    const PseudoTerminal tablet;
    host.writeDescription(QStringLiteral("a"), DescriptionBuilder().xml());
    host.writeDescription(QStringLiteral("broken"), DescriptionBuilder("Broken").report("x").xml());
    device.replace(QLatin1String("PORT"), tablet.path());
    for (QString* text : {&device, &problem})
        text->replace(QLatin1String("HOST"), host.path(QString()));
    const bool isPen = device.startsWith(QLatin1String("File:"));
    QSettings().setValue(QStringLiteral("digitizer_file_directory"),
                         problem.isEmpty() ? host.path(QString()) : QStringLiteral("/no/pen"));
    Digitizer::instance()->selectDevice(driver, isPen ? QStringLiteral("File:") : device);
    QCOMPARE(SelectedDevice::problem(), problem);
}

QTEST_GUILESS_MAIN(DescriptionFolderTest)
#include "DescriptionFolderTest.moc"
