// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/DigitizerGenericVersion.h"
#include "ReferenceHost/CommandLine/PrivateNames.h"
#include "ReferenceHost/Serial/PortHolders.h"
#include "ReferenceHost/Serial/PseudoTerminal.h"
#include "support/DescriptionBuilder.h"
#include "support/ProgramRun.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QSerialPort>
#include <QtTest>

using namespace ReferenceHost;

/// The commands that get a tablet working: check, beep, ports, doctor, and lint as a command.
class TechnicianTest : public QObject
{
    Q_OBJECT

private slots:
    void checkSaysWhatToDo_data();
    void checkSaysWhatToDo();
    void checkNamesWhoHoldsThePort();
    void beepReachesTheTablet();
    void holdersAreFound();
    void portsAreListed();
    void descriptionsAreInstalled_data();
    void descriptionsAreInstalled();
    void lintEndsWithItsStatus_data();
    void lintEndsWithItsStatus();
    void privateNamesAreTakenOut_data();
    void privateNamesAreTakenOut();
    void doctorTellsFaultsAndNothingPrivate();
};

namespace {

// Beside the shipped descriptions, which each program installs.
void install(TestHost& host, const QString& file, const QByteArray& content)
{
    host.write(QStringLiteral("home/DigitizerGeneric/generated/") + file, content);
}

QByteArray beeping()
{
    return DescriptionBuilder("Beeping")
        .beep("<beepString><character>27</character><character>66</character></beepString>")
        .xml();
}

} // namespace

void TechnicianTest::checkSaysWhatToDo_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("driver");
    QTest::addColumn<QString>("device"); // "PORT" is a pseudo-terminal
    QTest::addColumn<int>("status");
    QTest::addColumn<QStringList>("messages");
    const auto row = [](const char* title, const char* command, const char* driver,
                        const char* device, int status, const QStringList& messages) {
        QTest::newRow(title) << QString::fromLatin1(command) << QString::fromLatin1(driver)
                             << QString::fromLatin1(device) << status << messages;
    };
    const QString absent = QStringLiteral("no driver has the name \"");
    row("usable", "check", "Beeping", "PORT", 0, {});
    row("digital pen", "check", "Beeping", "File:", 0, {});
    row("nearest name", "check", "beping", "PORT", 1,
        {absent, QStringLiteral("did you mean \"Beeping\"?")});
    row("digital pen without a driver", "check", "wacom", "File:", 1,
        {absent, QStringLiteral("\"Wacom II-S ASCII (SD-510C, ArtPad)\"")});
    row("broken template", "check", "Broken", "PORT", 1,
        {QStringLiteral("broken.xml has no usable report template: it is for a pen, or it is "
                        "broken ('digitizer lint'")});
    row("no such port", "check", "Beeping", "/dev/ttyNONE", 1,
        {QStringLiteral("there is no port /dev/ttyNONE; check the name"),
         QStringLiteral("'digitizer ports' lists the ports")});
    row("no serial port", "check", "Beeping", "/dev/null", 1,
        {QStringLiteral("/dev/null is not a serial port")});
    row("no driver given", "check", "", "PORT", 2, {QStringLiteral("--driver is missing")});
    row("no device given", "check", "Beeping", "", 2, {QStringLiteral("--device is missing")});
    row("silent tablet", "beep", "Generic 5-5-1 (ASCII)", "PORT", 1,
        {QStringLiteral("generic-5-5-1.xml defines no beep")});
    row("beep at no port", "beep", "Beeping", "/dev/ttyNONE", 1,
        {QStringLiteral("there is no port /dev/ttyNONE")});
    row("beep of a pen", "beep", "Beeping", "File:", 2, {QStringLiteral("cannot beep")});
}

void TechnicianTest::checkSaysWhatToDo()
{
    QFETCH(QString, command);
    QFETCH(QString, driver);
    QFETCH(QString, device);
    QFETCH(QStringList, messages);
    TestHost host;
    install(host, QStringLiteral("beeping.xml"), beeping());
    install(host, QStringLiteral("broken.xml"), DescriptionBuilder("Broken").report("XxY").xml());
    PseudoTerminal terminal;
    QVERIFY2(terminal.isOpen(), qPrintable(terminal.errorString()));
    device.replace(QLatin1String("PORT"), terminal.path());
    const ProgramRun run = runDigitizer(
        host, {command, QStringLiteral("--driver"), driver, QStringLiteral("--device"), device});
    QTEST(run.exitStatus, "status");
    QCOMPARE(run.errors.count(QLatin1Char('\n')), messages.isEmpty() ? 0 : 1);
    for (const QString& message : messages)
        QVERIFY2(run.errors.contains(message), qPrintable(run.errors));
    QCOMPARE(run.output,
             messages.isEmpty() ? QStringLiteral("No Error has occurred\n") : QString());
}

void TechnicianTest::checkNamesWhoHoldsThePort()
{
    TestHost host;
    install(host, QStringLiteral("beeping.xml"), beeping());
    const PseudoTerminal terminal;
    QSerialPort holder(terminal.path());
    QVERIFY2(holder.open(QIODevice::ReadWrite), qPrintable(holder.errorString()));
    const ProgramRun run = runDigitizer(host, {QStringLiteral("check"), QStringLiteral("--driver"),
                                               QStringLiteral("Beeping"),
                                               QStringLiteral("--device"), terminal.path()});
    QCOMPARE(run.exitStatus, 1);
    const QString self = QStringLiteral("(%1)").arg(QCoreApplication::applicationPid());
    QVERIFY2(run.errors.contains(self), qPrintable(run.errors));
}

void TechnicianTest::beepReachesTheTablet()
{
    TestHost host;
    install(host, QStringLiteral("beeping.xml"), beeping());
    PseudoTerminal terminal;
    const ProgramRun run = runDigitizer(host, {QStringLiteral("beep"), QStringLiteral("--driver"),
                                               QStringLiteral("Beeping"),
                                               QStringLiteral("--device"), terminal.path()});
    QCOMPARE(run.exitStatus, 0);
    QCOMPARE(terminal.read(5000), QByteArray("\x1b\x42"));
}

void TechnicianTest::holdersAreFound()
{
    TestHost host;
    const QString port = host.write(QStringLiteral("dev/ttyUSB0"), {});
    host.write(QStringLiteral("proc/12/comm"), "minicom\n");
    QDir processes(host.path(QStringLiteral("proc")));
    QVERIFY(processes.mkpath(QStringLiteral("12/fd")) &&
            processes.mkpath(QStringLiteral("13/fd")) &&
            processes.mkpath(QStringLiteral("sys/fd")));
    QCOMPARE(holdersText(portHolders(port, processes)), QStringLiteral("nobody"));
    for (const char* link : {"12/fd/4", "sys/fd/3"})
        QVERIFY(QFile::link(port, processes.filePath(QLatin1String(link))));
    const QString alias = host.path(QStringLiteral("dev/tablet"));
    QVERIFY(QFile::link(port, alias));
    for (const QString& path : {port, alias})
        QCOMPARE(holdersText(portHolders(path, processes)), QStringLiteral("minicom (12)"));

    // Root may look everywhere, so what cannot be looked at is tested on the text alone.
    QVERIFY(holdersText({}).startsWith(QLatin1String("unknown")));
    QVERIFY(holdersText({{QStringLiteral("a (1)")}, false})
                .startsWith(QLatin1String("a (1), and perhaps")));
    QVERIFY(!portHolders(port, QDir(host.path(QStringLiteral("nowhere")))).complete);
}

void TechnicianTest::portsAreListed()
{
    const TestHost host;
    const ProgramRun run = runDigitizer(
        host, {QStringLiteral("ports"), QStringLiteral("--format"), QStringLiteral("json")});
    QVERIFY2((run.exitStatus == 0) == run.errors.isEmpty(), qPrintable(run.errors));
    for (const QString& line : run.output.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        const QJsonObject port = QJsonDocument::fromJson(line.toUtf8()).object();
        QVERIFY2(QFile::exists(port.value(QLatin1String("port")).toString()), qPrintable(line));
        QCOMPARE(port.size(), 8);
    }
}

void TechnicianTest::descriptionsAreInstalled_data()
{
    QTest::addColumn<QString>("arguments"); // "@" is the folder of the files
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("message"); // a part of what is said
    const auto row = [](const char* arguments, int status, const char* message) {
        QTest::newRow(arguments) << QString::fromLatin1(arguments) << status
                                 << QString::fromLatin1(message);
    };
    row("install|@new.xml", 0, "\"New\" is installed: @home/DigitizerGeneric/generated/new.xml\n");
    row("install|" SOURCE_DIRECTORY "/Examples/pen/example-pen.xml", 0, "\"Example Pen\" is");
    row("install|@beeping.xml", 1, "beeping.xml already exists and differs from");
    row("install|--force|@beeping.xml", 0, "\"Beeping\" is installed");
    row("install|@broken.xml|@new.xml", 1,
        "broken.xml was not installed; correct the errors above");
    row("install|@none.xml", 1, "none.xml: No such file");
    row("install", 2, "FILE... is missing");
    row("check|--device|PORT|--description|@new.xml", 0, "No Error has occurred");
    row("check|--device|PORT|--description|@broken.xml", 1,
        "character 2 of the report template is \"x\", but must be");
    row("check|--device|PORT|--description|@new.xml|--driver|New", 2, "cannot be combined");
}

void TechnicianTest::descriptionsAreInstalled()
{
    QFETCH(QString, arguments);
    QFETCH(QString, message);
    TestHost host;
    install(host, QStringLiteral("beeping.xml"), beeping());
    host.write(QStringLiteral("beeping.xml"), DescriptionBuilder("Beeping").xml());
    host.write(QStringLiteral("new.xml"), DescriptionBuilder("New").xml());
    host.write(QStringLiteral("broken.xml"), DescriptionBuilder("Broken").report("XxY").xml());
    const PseudoTerminal terminal;
    arguments.replace(QLatin1String("PORT"), terminal.path());
    for (QString* text : {&arguments, &message})
        text->replace(QLatin1Char('@'), host.path(QString()) + QLatin1Char('/'));
    const ProgramRun run = runDigitizer(host, arguments.split(QLatin1Char('|')));
    QTEST(run.exitStatus, "status");
    const QString said = run.output + run.errors;
    QVERIFY2(said.contains(message), qPrintable(said));
    const bool installs = run.output.contains(QLatin1String("\"New\" is installed"));
    QCOMPARE(
        runDigitizer(host, {QStringLiteral("drivers")}).output.contains(QStringLiteral("\nNew\n")),
        installs);
}

void TechnicianTest::lintEndsWithItsStatus_data()
{
    QTest::addColumn<QStringList>("files"); // of the corpus
    QTest::addColumn<int>("status");
    QTest::addColumn<int>("lines");
    QTest::newRow("only a warning") << QStringList{QStringLiteral("unit-unknown")} << 0 << 1;
    QTest::newRow("an error") << QStringList{QStringLiteral("codes-equal")} << 1 << 1;
    QTest::newRow("two of one name")
        << QStringList{QStringLiteral("unit-unknown"), QStringLiteral("codes-equal")} << 1 << 4;
    QTest::newRow("one cannot be read")
        << QStringList{QStringLiteral("nothing"), QStringLiteral("unit-unknown")} << 1 << 1;
    QTest::newRow("no file") << QStringList() << 2 << 0;
}

void TechnicianTest::lintEndsWithItsStatus()
{
    QFETCH(QStringList, files);
    for (QString& file : files)
        file = QStringLiteral(SOURCE_DIRECTORY "/Tests/Lint/%1.xml").arg(file);
    const TestHost host;
    const ProgramRun text = runDigitizer(host, QStringList{QStringLiteral("lint")} + files);
    QTEST(text.exitStatus, "status");
    QTEST(text.output.count(QLatin1Char('\n')), "lines");
    const ProgramRun json =
        runDigitizer(host, QStringList{QStringLiteral("lint"), QStringLiteral("--format"),
                                       QStringLiteral("json")} +
                               files);
    QTEST(json.exitStatus, "status");
    QTEST(json.output.count(QLatin1String("\"severity\":")), "lines");
}

void TechnicianTest::privateNamesAreTakenOut_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* title, const char* text, const char* expected) {
        QTest::newRow(title) << QString::fromLatin1(text) << QString::fromLatin1(expected);
    };
    row("home", "in /home/ann/pen,", "in ~/pen,");
    row("home of another", "/home/anna/pen", "/home/anna/pen");
    row("user", "ann may not: usermod -aG dialout ann", "USER may not: usermod -aG dialout USER");
    row("part of a word", "planning annotated", "planning annotated");
    row("machine", "at box.lan", "at HOST.lan");
}

void TechnicianTest::privateNamesAreTakenOut()
{
    QFETCH(QString, text);
    QTEST(withoutPrivateNames(
              text, {QStringLiteral("/home/ann"), QStringLiteral("ann"), QStringLiteral("box")}),
          "expected");
    QCOMPARE(withoutPrivateNames(text, {}), text);
}

void TechnicianTest::doctorTellsFaultsAndNothingPrivate()
{
    TestHost host;
    install(host, QStringLiteral("broken.xml"), DescriptionBuilder("Broken").report("XxY").xml());
    const QByteArray pen = QDir::homePath().toUtf8() + "/pen";
    host.write(QStringLiteral("home/DigitizerGeneric/digitizer.conf"),
               "[General]\ndevice=File:\ndigitizer_file_directory=" + pen +
                   "\nsecret=none of yours\n");
    qputenv("DIGITIZER_TEST_SECRET", "from the environment");
    const ProgramRun run = runDigitizer(host, {QStringLiteral("doctor")});
    QCOMPARE(run.exitStatus, 0);
    for (const char* told : {"DigitizerGeneric  " DIGITIZERGENERIC_VERSION_TEXT, qVersion(),
                             "generic-5-5-1.xml: no fault",
                             "    broken.xml:1:", "device            File:", "directory  ~/pen"})
        QVERIFY2(run.output.contains(QLatin1String(told)), told);
    for (const QString& untold :
         {QDir::homePath(), QStringLiteral("secret"), QStringLiteral("from the environment"),
          QSysInfo::machineHostName()})
        QVERIFY2(!run.output.contains(untold), qPrintable(untold + run.output));
}

QTEST_GUILESS_MAIN(TechnicianTest)
#include "TechnicianTest.moc"
