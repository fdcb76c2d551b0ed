// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/BoundedXmlReader.h"
#include "DigitizerGeneric/Digitizer/DescriptionFiles.h"
#include "DigitizerGeneric/Digitizer/DescriptionFolder.h"
#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "DigitizerGeneric/Digitizer/SelectedDevice.h"
#include "ReferenceHost/Serial/PseudoTerminal.h"
#include "support/DescriptionBuilder.h"
#include "support/StructRows.h"
#include "support/TestHost.h"
#include "support/TextRows.h"

#include <QSettings>
#include <QTextCodec>

#include <csignal>
#include <memory>

#include <sys/resource.h>

using namespace MavSystem;
using namespace ReferenceHost;
using DescriptionFiles::BrokenFile;

namespace {
const QByteArray emptyRecord = "serial 0,0,0,0,0|0 LPMM|report 0 |sixteen 0 |";
const char shippedFile[] = "plugins/digitizer/generated/a.xml";
const char installedFile[] = "data/generated/a.xml";

QByteArray textOf(const DigitizerArgument& record)
{
    const PortSettings& port = record.m_portSettings;
    QByteArray roles;
    for (const ReportFormatValues role : record.m_reportFormat)
        roles += "?BXYU.SCL"[role];
    QByteArray codes;
    for (const ButtonValue& button : record.m_buttons)
        codes += '[' + QByteArray(button.m_code.data(), 3).replace('\0', '@') + ']';
    return QString::asprintf("serial %d,%d,%d,%d,%d|%g %s|report %llu %s|%s %lld ", port.BaudRate,
                             port.DataBits, port.Parity, port.StopBits, port.FlowControl,
                             record.m_resolution, record.m_resolutionUnit == LPI ? "LPI" : "LPMM",
                             qulonglong(record.m_reportLength), roles.constData(),
                             record.m_fourButtons ? "four" : "sixteen",
                             qlonglong(record.m_buttonCodeLength))
               .toLatin1() +
           codes + '|';
}

QByteArray load(const QString& name)
{
    return textOf(*std::unique_ptr<DigitizerArgument>(DigitizerArgument::digitizerArgument(name)));
}

// As on a full disk, for root too.
void limitFileSize(rlim_t bytes)
{
    rlimit limit;
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = bytes;
    setrlimit(RLIMIT_FSIZE, &limit);
}

const struct
{
    const char* name;
    QByteArray installed; // before the update; null: no such file
    QByteArray afterwards;
} updateRows[] = {
    {"as the last release installed it", "old", "new"},
    {"removed", {}, "new"},
    {"changed by the user", "mine", "mine"},
};

} // namespace

/// Description files, good and bad, the records that they become, and the folder that a host has
/// them in.
class DescriptionTest : public QObject
{
    Q_OBJECT

private slots:
    void elementsBecomeTheRecord_data() { addTextRows("descriptions.txt", 2); }

    void elementsBecomeTheRecord()
    {
        QFETCH(TextRow, row);
        const QByteArray xml = row.fields.at(0);
        TestHost host;
        host.writeDescription(
            "a", xml.startsWith("<device") ? xml : DescriptionBuilder().element(xml).xml());
        QVERIFY2(load("A").contains(row.fields.at(1)), load("A"));
        QCOMPARE(load("a"), emptyRecord);
    }

    void faults_data() { addTextRows("faults.txt", 2); }

    void faults()
    {
        QFETCH(TextRow, row);
        const QByteArray xml = expanded(row.fields.at(0));
        BoundedXmlReader reader(xml);
        while (reader.readNext()) {
        }
        QVERIFY(reader.hasProblem() && !reader.problem().isEmpty());
        QCOMPARE(reader.problemOffset(), row.fields.at(1).toInt());
        TestHost host;
        host.writeDescription("broken", xml);
        QVERIFY(!DescriptionFiles::find("A", BrokenFile::Skipped));
        // The search goes on, whichever file the directory lists first.
        host.writeDescription("good", DescriptionBuilder().resolution(7, "LPI").xml());
        QVERIFY2(load("A").contains("|7 LPI|"), load("A"));
    }

    void attributesAreCountedBehindHalfASurrogatePair()
    {
        QString xml = "<d name='A'><e b='" + QString(QChar(0xd800)) + "'/><e";
        for (int number = 0; number < 1001; ++number)
            xml += QStringLiteral(" a%1=''").arg(number);
        const BoundedXmlReader reader(
            QTextCodec::codecForName("UTF-16")->fromUnicode(xml + "/></d>"));
        QVERIFY2(reader.problem().contains("1000 attributes"), qPrintable(reader.problem()));
    }

    void limits_data() { addTextRows("limits.txt", 2); }

    void limits()
    {
        QFETCH(TextRow, row);
        const int largest = row.fields.at(1).toInt();
        for (const int count : {largest, largest + 1}) {
            QByteArray xml = row.fields.at(0);
            xml.replace("*N}", '*' + QByteArray::number(count) + '}');
            TestHost host;
            host.writeDescription("a", expanded(xml));
            QCOMPARE(DescriptionFiles::find("A", BrokenFile::Skipped).has_value(),
                     count == largest);
        }
    }

    void theSearchAgreesWithParsingEveryFile_data() { addTextRows("search.txt", 2); }

    void theSearchAgreesWithParsingEveryFile()
    {
        QFETCH(TextRow, row);
        const QByteArray xml = expanded(row.fields.at(0));
        QDomDocument whole;
        const bool expected = whole.setContent(xml, false) &&
                              whole.documentElement().attribute("name") == row.text(1);
        TestHost host;
        host.writeDescription("a", xml);
        const auto found = DescriptionFiles::find(row.text(1), BrokenFile::Skipped);
        QCOMPARE(found.has_value(), expected);
        if (found)
            QCOMPARE(found->document.toByteArray(), whole.toByteArray());
    }

    void onlyPlainVisibleFilesCount()
    {
        TestHost host;
        QCOMPARE(load("A"), emptyRecord); // no folder
        const QByteArray good = DescriptionBuilder().xml();
        host.writeDescription(".hidden.xml", good);
        host.writeDescription("folder.xml/a.xml", good);
        QCOMPARE(load("A"), emptyRecord);
        host.writeDescription("any name at all", good);
        QVERIFY(load("A") != emptyRecord);
    }

    void ofTwoFilesTheFirstListedCounts()
    {
        TestHost host;
        for (int number = 1; number <= 8; ++number)
            host.writeDescription(QString::number(number),
                                  DescriptionBuilder().resolution(number, "LPI").xml());
        const QDir folder(DescriptionFolder::path());
        const QString first = folder.entryList(QDir::Files, QDir::Unsorted).at(0);
        QVERIFY2(load("A").contains("|" + first.toLatin1() + " LPI|"), load("A"));
    }

    void theConstructorWidensWithSign()
    {
        const DigitizerArgument record(true, PortSettings(), -5, LPI, -1, {FORMAT_X}, -2,
                                       {ButtonValue()});
        QCOMPARE(
            textOf(record),
            QByteArray("serial 0,0,0,0,0|-5 LPI|report 18446744073709551615 X|four -2 [   ]|"));
    }

    void aFirstStartHasTheShippedDrivers()
    {
        const TestHost host;
        QCOMPARE(DescriptionFolder::prepare(), QString());
        const QDir shipped(SOURCE_DIRECTORY "/Plugins/digitizer/generated");
        const QStringList files = shipped.entryList(QDir::Files);
        QCOMPARE(DescriptionFolder::drivers().size(), files.size());
        for (const QString& file : files)
            QCOMPARE(bytesOf(DescriptionFolder::path() + '/' + file),
                     bytesOf(shipped.filePath(file)));
        const auto driver = DescriptionFolder::find("Generic 5-5-1 (ASCII)");
        QVERIFY(driver && driver->takesReports());
        QCOMPARE(driver->file, host.path("data/generated/generic-5-5-1.xml"));
        QCOMPARE(driver->buttonCount(), 4);
        QCOMPARE(driver->resolutionText(), "1000 LPI");
        QCOMPARE(driver->support, "untested");
    }

    void shippedDescriptionsAreKeptUpToDate_data() { addRows(updateRows); }

    void shippedDescriptionsAreKeptUpToDate()
    {
        const auto& row = currentRow(updateRows);
        TestHost host;
        host.write(shippedFile, "old");
        QCOMPARE(DescriptionFolder::prepare(), QString());
        host.write("data/generated/own.xml", "own");

        QVERIFY(QFile::remove(host.path(installedFile)));
        if (!row.installed.isNull())
            host.write(installedFile, row.installed);
        host.write(shippedFile, "new");
        QCOMPARE(DescriptionFolder::prepare(), QString());
        QCOMPARE(bytesOf(host.path(installedFile)), row.afterwards);
        const QStringList files = QDir(host.path("data")).entryList(QDir::Files) +
                                  QDir(DescriptionFolder::path()).entryList(QDir::Files);
        QCOMPARE(files, QStringList({"shipped-descriptions.ini", "a.xml", "own.xml"}));
    }

    void anUpdateThatFailedIsRepeated()
    {
        TestHost host;
        host.write(shippedFile, "old");
        QCOMPARE(DescriptionFolder::prepare(), QString());
        const QByteArray large(8192, 'n');
        host.write(shippedFile, large);
        std::signal(SIGXFSZ, SIG_IGN);
        limitFileSize(4096);
        const QString problem = DescriptionFolder::prepare();
        limitFileSize(RLIM_INFINITY);
        QVERIFY2(problem.startsWith("cannot write the description"), qPrintable(problem));
        QCOMPARE(bytesOf(host.path(installedFile)), QByteArray("old"));
        QCOMPARE(DescriptionFolder::prepare(), QString());
        QCOMPARE(bytesOf(host.path(installedFile)), large);
    }

    void aRecordThatCannotBeKeptIsTold()
    {
        TestHost host;
        host.write("data/shipped-descriptions.ini/in-the-way", "");
        const QString problem = DescriptionFolder::prepare();
        QVERIFY2(problem.startsWith("cannot write to "), qPrintable(problem));
        QVERIFY(DescriptionFolder::find("Generic 5-5-1 (ASCII)"));
    }

    void driversAreThoseThatCanBeSelected()
    {
        TestHost host;
        QVERIFY(DescriptionFolder::drivers().isEmpty());
        const QByteArray files[] = {
            DescriptionBuilder("B").xml(), DescriptionBuilder("A").report("XxY").xml(),
            DescriptionBuilder("").xml(),  "<device name='C'>",
            DescriptionBuilder("B").xml(), DescriptionBuilder("lectra e92").report("").xml()};
        for (const QByteArray& file : files)
            host.writeDescription(QString::number(&file - files), file);
        QStringList found;
        for (const DescribedDriver& driver : DescriptionFolder::drivers())
            found << driver.name + (driver.takesReports() ? "+" : "-");
        QCOMPARE(found, QStringList({"A-", "B+", "lectra e92+"}));
        for (const char* unknown : {"", "C", "b"})
            QVERIFY(!DescriptionFolder::find(unknown));
    }

    void oneMoreFileIsInstalled_data() { addTextRows("installs.txt", 4); }

    void oneMoreFileIsInstalled()
    {
        QFETCH(TextRow, row);
        const QByteArray content = row.fields.at(1);
        const bool replaces = row.fields.at(2) == "replaced";
        const QString expected = row.text(3);
        TestHost host;
        const QString there = host.write("old/there.xml", "<device name='There'/>");
        QCOMPARE(DescriptionFolder::install(there).problem, QString());
        const QString file =
            content.isEmpty() ? host.path("none.xml") : host.write("new/" + row.text(0), content);
        const DescriptionFolder::Result result =
            DescriptionFolder::install(file, replaces ? DescriptionFolder::ExistingFile::Replaced
                                                      : DescriptionFolder::ExistingFile::Kept);
        QVERIFY2(expected.isEmpty() == result.problem.isEmpty() &&
                     result.problem.contains(expected),
                 qPrintable(result.problem));
        QCOMPARE(bool(DescriptionFolder::find("There")), row.text(0) != "there.xml" || !replaces);
        if (!expected.isEmpty())
            return;
        QCOMPARE(result.driver.file, host.path("data/generated/" + row.text(0)));
        QCOMPARE(bytesOf(result.driver.file), content);
        QVERIFY(DescriptionFolder::find(result.driver.name));
    }

    void theSelectedDeviceIsAskedAbout_data() { addTextRows("selections.txt", 3); }

    void theSelectedDeviceIsAskedAbout()
    {
        QFETCH(TextRow, row);
        TestHost host;
        const PseudoTerminal tablet;
        host.writeDescription("a", DescriptionBuilder().xml());
        host.writeDescription("broken", DescriptionBuilder("Broken").report("x").xml());
        QString device = row.text(1);
        QString problem = row.text(2);
        for (QString* value : {&device, &problem})
            value->replace("PORT", tablet.path()).replace("HOST", host.path(""));
        QSettings().setValue("digitizer_file_directory",
                             problem.isEmpty() ? host.path("") : QString("/no/pen"));
        Digitizer::instance()->selectDevice(row.text(0), device);
        QCOMPARE(SelectedDevice::problem(), problem);
    }
};

QTEST_GUILESS_MAIN(DescriptionTest)
#include "DescriptionTest.moc"
