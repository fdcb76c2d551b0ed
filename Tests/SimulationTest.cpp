// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/FieldDecoding.h"
#include "DigitizerGeneric/Digitizer/LectraE92.h"
#include "ReferenceHost/CommandLine/Command.h"
#include "ReferenceHost/Descriptions/DriverLookup.h"
#include "ReferenceHost/Serial/RecordedSession.h"
#include "support/DescriptionBuilder.h"
#include "support/TestHost.h"
#include "tablet-simulator/PieceScript.h"
#include "tablet-simulator/Transmission.h"

#include <QProcess>
#include <QSerialPort>
#include <QtTest>

#include <cmath>
#include <random>

#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

using namespace MavSystem;
using namespace ReferenceHost;
using namespace TabletSimulation;

Q_DECLARE_METATYPE(LineFaults)
Q_DECLARE_METATYPE(Press)

/// The simulated tablet: the reports it makes of points, for every shipped description; the files
/// that it takes; and the program.
class SimulationTest : public QObject
{
    Q_OBJECT

private slots:
    void everyShippedDescriptionIsExpected();
    void descriptionsDecodeAndEncode_data();
    void descriptionsDecodeAndEncode();
    void reportsFollowTheTemplate_data();
    void reportsFollowTheTemplate();
    void theLectraLayoutComesBack_data();
    void theLectraLayoutComesBack();
    void scriptsAreReadOrRefused_data();
    void scriptsAreReadOrRefused();
    void sessionsComeBackAsTheyWereWritten();
    void sessionsAreReadOrRefused_data();
    void sessionsAreReadOrRefused();
    void faultsChangeTheWrites_data();
    void faultsChangeTheWrites();
    void theProgramRefuses_data();
    void theProgramRefuses();
    void theProgramTracesAPiece();
    void aFloodArrivesWhole();
};

namespace {

// The inch that drawings were digitized with.
constexpr double inch = 2.5396825396825;

// What is known of each description from outside the library: a report written by hand with its
// point and button, the step of the last digit in centimetres, and the digits of x and y.
struct Expectation
{
    const char* file;
    const char* report;
    double x;
    double y;
    int button;
    double step;
    int digits;
    bool hasSigns = false;
};

constexpr Expectation expectations[] = {
    {"summagraphics-bitpad2-cr", "0512,1034,1\r", 6.501587302, 13.130158730, 1, inch / 200, 4},
    {"summagraphics-bitpad2-crlf", "0512,1034,8\r\n", 6.501587302, 13.130158730, 4, inch / 200, 4},
    {"genius-newsketch-mm", "1234,0567,1\r\n", 6.267936508, 2.88, 1, inch / 500, 4},
    {"genius-newsketch-mm-1000", "12345,06789,1\r\n", 31.352380952, 17.241904762, 1, inch / 1000,
     5},
    {"genius-newsketch-uiof16", "12345,06789,G\r\n", 31.352380952, 17.241904762, 15, inch / 1000,
     5},
    {"wacom-iis-ascii", "#,01234,00567,01\r\n", 3.133968254, 1.44, 0, inch / 1000, 5},
    {"calcomp-2000-ascii", "12345,06789,3\r\n", 31.352380952, 17.241904762, 2, inch / 1000, 5},
    {"calcomp-2000-ascii-6digit", "123456,789123,3\r\n", 123.440569929, 789.024371953, 2,
     inch / 2540, 6},
    {"calcomp-drawingboard3-preset3", "01234,00567,1\r", 15.66984127, 7.2, 1, inch / 200, 5},
    {"summagraphics-mm2-1201", "1234,0567,1\r\n", 6.267936508, 2.88, 1, inch / 500, 4},
    {"summagraphics-uiof16", "12345,06789,A\r\n", 31.352380952, 17.241904762, 9, inch / 1000, 5},
    {"generic-5-5-1", "07287,07980,1\r\n", 18.506666667, 20.266666667, 1, inch / 1000, 5},
    {"annotated", "+123.45,-067.89,02\r\n", 12.345, -6.789, 2, 0.001, 5, true},
};

QString fileOf(const QString& name)
{
    const char* const folder = name == QLatin1String("annotated") ? "/Examples/descriptions/"
                                                                  : "/Plugins/digitizer/generated/";
    return QStringLiteral(SOURCE_DIRECTORY) + QLatin1String(folder) + name + QLatin1String(".xml");
}

DigitalReport decode(const DigitizerArgument& description, const QByteArray& report)
{
    return FieldDecoding::reportOf(description, ReportLayout(description), report.constData(),
                                   FieldDecoding::decodeButton | FieldDecoding::decodeCoordinate);
}

QString readTag(const QByteArray& content)
{
    return QString::fromLatin1(quotedBytes(content)).left(70);
}

ButtonRoles lectraE92Roles()
{
    return standardButtonRoles({QStringLiteral("Lectra E92"), {}, {}, {}});
}

} // namespace

void SimulationTest::everyShippedDescriptionIsExpected()
{
    const QDir shipped(QFileInfo(fileOf(QString())).path());
    QStringList files = shipped.entryList(QDir::Files);
    for (const Expectation& expectation : expectations)
        files.removeAll(QLatin1String(expectation.file) + QLatin1String(".xml"));
    QVERIFY2(files.isEmpty(), qPrintable(files.join(QLatin1Char(' '))));
}

void SimulationTest::descriptionsDecodeAndEncode_data()
{
    QTest::addColumn<int>("index");
    for (const Expectation& expectation : expectations)
        QTest::newRow(expectation.file) << int(&expectation - expectations);
}

void SimulationTest::descriptionsDecodeAndEncode()
{
    QFETCH(int, index);
    const Expectation* const expectation = &expectations[index];
    const DigitizerArgument description =
        DriverLookup::inFile(fileOf(QLatin1String(expectation->file)))->description;
    const DigitalReport byHand = decode(description, expectation->report);
    QCOMPARE(quint64(qstrlen(expectation->report)), quint64(description.m_reportLength));
    QVERIFY(std::abs(byHand.coordinate().x() - expectation->x) < 1e-9);
    QVERIFY(std::abs(byHand.coordinate().y() - expectation->y) < 1e-9);
    QCOMPARE(byHand.m_button_number, expectation->button);

    for (const Press& press : bodiceFront(standardButtonRoles({{}, {}, {}, description})))
        QVERIFY(encodeReport(description, press));

    const unsigned seed = 20260301 + unsigned(index);
    std::mt19937 random(seed);
    const double largest = (std::pow(10.0, expectation->digits) - 1) * expectation->step;
    std::uniform_real_distribution<double> centimetres(expectation->hasSigns ? -largest : 0.0,
                                                       largest);
    double farthest = 0.0;
    for (int count = 0; count < 1000; ++count) {
        Press press;
        press.point = {centimetres(random), centimetres(random)};
        press.button = description.m_fourButtons ? 1 + count % 4 : count % 16;
        const auto report = encodeReport(description, press);
        QVERIFY2(report, qPrintable(report ? QString() : report.error()));
        const DigitalReport delivered = decode(description, *report);
        QCOMPARE(delivered.m_button_number, press.button);
        for (const double difference : {delivered.coordinate().x() - press.point.x(),
                                        delivered.coordinate().y() - press.point.y()})
            farthest = std::max(farthest, std::abs(difference) / expectation->step);
    }
    qInfo("seed %u: largest difference %.6f steps", seed, farthest);
    QVERIFY(farthest <= 0.5 + 1e-6);
}

void SimulationTest::reportsFollowTheTemplate_data()
{
    QTest::addColumn<QByteArray>("layout");
    QTest::addColumn<QByteArray>("resolution"); // with its unit
    QTest::addColumn<QByteArray>("codes");
    QTest::addColumn<int>("codeLength");
    QTest::addColumn<Press>("press");
    QTest::addColumn<QString>("outcome"); // the report in quotes, or the error
    const auto row = [](const char* name, const char* layout, const char* resolution,
                        const char* codes, int codeLength, const Press& press,
                        const char* outcome) {
        QTest::newRow(name) << QByteArray(layout) << QByteArray(resolution) << QByteArray(codes)
                            << codeLength << press << QString::fromLatin1(outcome);
    };
    row("every role", "SXX.XUSYY.YUBBCL", "1 LPMM", "1 2 3 42", 2, {{1.26, -3.444}, 4},
        "\"+12.6,-34.4,42\\r\\n\"");
    row("points without signs", "XX.XXYY.YB", "1 LPMM", "1 2 3 4", 1, {{9.9996, 0}, 2},
        "the point (9.9996, 0): the template has 4 digits for x, enough for at most 9.999 cm");
    row("a sign for x only", "SXXYYB", "1 LPMM", "1 2 3 4", 1, {{-1, -0.01}, 1}, "\"-10001\"");
    row("no sign for y", "SXXYYB", "1 LPMM", "1 2 3 4", 1, {{-1, -0.1}, 1},
        "the point (-1, -0.1): the template has no sign for y, which must not be below 0 cm");
    row("40 lines per inch", "XXXYYYB", "40 LPI", "1 2 3 4", 1, {{0.0025, 2.4975}, 1},
        "\"0019991\"");
    row("nearest step", "XXXYYYB", "10 LPMM", "1 2 3 4", 1, {{1.2349, 1.2351}, 1}, "\"1231241\"");
    row("too large", "XXYYB", "10 LPMM", "1 2 3 4", 1, {{0.5, 1}, 1},
        "the point (0.5, 1): the template has 2 digits for y, enough for at most 0.99 cm");
    row("not a number", "XXYYB", "10 LPMM", "1 2 3 4", 1, {{qQNaN(), 0}, 1},
        "the point (nan, 0): the template has 2 digits for x, enough for at most 0.99 cm");
    row("more digits than 64 bits", "XXXXXXXXXXXXXXXXXXXXXXYB", "1 LPMM", "1 2 3 4", 1,
        {{1e20, 0}, 1}, "\"100000000000000000000001\"");
    row("button 0 of four", "XYB", "1 LPMM", "1 2 3 4", 1, {{0, 0}, 0},
        "the point (0, 0): there is no button 0; the description has buttons 1 to 4");
    row("button 5 of four", "XYB", "1 LPMM", "1 2 3 4", 1, {{0, 0}, 5},
        "the point (0, 0): there is no button 5; the description has buttons 1 to 4");
    row("button 0 of five", "XYB", "1 LPMM", "1 2 3 4 5", 1, {{0, 0}, 0}, "\"001\"");
    row("button 4 of five", "XYB", "1 LPMM", "1 2 3 4 5", 1, {{0, 0}, 4}, "\"005\"");
    row("no buttons", "XYB", "1 LPMM", "", 1, {{0, 0}, 0},
        "the point (0, 0): the description has no buttons");
    row("a code twice", "XYB", "1 LPMM", "1 2 1 4", 1, {{0, 0}, 3},
        "the point (0, 0): with the codes in the description, button 3 would arrive as button 1");
    row("codes equal as far as compared", "XYBB", "1 LPMM", "01 02 03 04", 1, {{0, 0}, 2},
        "the point (0, 0): with the codes in the description, button 2 would arrive as button 1");
    row("code longer than its places", "XYB", "1 LPMM", "01 02 03 04", 2, {{0, 0}, 2},
        "the point (0, 0): with the codes in the description, button 2 would arrive as button 0");
    row("code shorter than its places", "XYBBBB", "1 LPMM", "a b c d", 3, {{0, 0}, 2},
        "\"00b   \"");
    row("resolution 0", "XYB", "0 LPI", "1 2 3 4", 1, {{0, 0}, 1},
        "the point (0, 0): the resolution in the description is 0, but must be above 0");
}

void SimulationTest::reportsFollowTheTemplate()
{
    QFETCH(QByteArray, layout);
    QFETCH(QByteArray, resolution);
    QFETCH(QByteArray, codes);
    QFETCH(int, codeLength);
    QFETCH(Press, press);
    TestHost host;
    const QByteArrayList buttons = codes.isEmpty() ? QByteArrayList() : codes.split(' ');
    const QByteArray content =
        DescriptionBuilder()
            .resolution(resolution.split(' ').at(0).toInt(), resolution.split(' ').at(1))
            .report(layout)
            .buttons(QByteArray::number(buttons.size()), codeLength, buttons)
            .xml();
    const DescribedDriver driver =
        *DriverLookup::inFile(host.write(QStringLiteral("a.xml"), content));
    const auto report = encodeReport(driver.description, press);
    QTEST(report ? QString::fromLatin1(quotedBytes(*report)) : report.error(), "outcome");
    if (report)
        QCOMPARE(decode(driver.description, *report).m_button_number, press.button);
}

void SimulationTest::theLectraLayoutComesBack_data()
{
    QTest::addColumn<Press>("press");
    QTest::addColumn<QString>("outcome");
    QTest::newRow("least") << Press{{0.01, 9999.99}, 2} << "\"00000031 0     1 999999\\r\\n\"";
    QTest::newRow("last button") << Press{{12.344, 567.89}, 5}
                                 << "\"00000034 0  1234  56789\\r\\n\"";
    QTest::newRow("zero")
        << Press{{12, 0.004}, 2}
        << "the point (12, 0.004): this tablet rejects coordinates that are not above 0 cm";
    QTest::newRow("too large") << Press{{10000, 1}, 2}
                               << "the point (10000, 1): the template has 6 digits for both "
                                  "coordinates, enough for at most 9999.99 cm";
    QTest::newRow("button")
        << Press{{1, 1}, 1}
        << "the point (1, 1): there is no button 1; this tablet has buttons 2 to 5";
}

void SimulationTest::theLectraLayoutComesBack()
{
    QFETCH(Press, press);
    const auto report = encodeLectraE92Report(press);
    QTEST(report ? QString::fromLatin1(quotedBytes(*report)) : report.error(), "outcome");
    if (!report)
        return;
    const DigitalReport delivered = LectraE92::reportOf(report->constData());
    QCOMPARE(delivered.m_button_number, press.button);
    QVERIFY(std::abs(delivered.coordinate().x() - press.point.x()) <= 0.005 + 1e-9);
    QVERIFY(std::abs(delivered.coordinate().y() - press.point.y()) <= 0.005 + 1e-9);
}

void SimulationTest::scriptsAreReadOrRefused_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("outcome"); // the presses, or the error
    const auto row = [](const char* content, const char* outcome) {
        QTest::newRow(qPrintable(readTag(content)))
            << QByteArray(content) << QString::fromLatin1(outcome);
    };
    row("# a piece\r\n\r\n 1 2.5\t1 # corner\r\n-3.25 +4 15", "1 2.5 1;-3.25 4 15;");
    row("1 2 1\n1 2",
        "line 2: '1 2' must be x and y in centimetres and a button number, such as 12.5 30 1");
    for (const char* line : {"1 2 3 4", "1,5 2 1", "1 2 1.5", "nan 2 1", "1 inf 1", "x"})
        row(line, qPrintable(QStringLiteral("line 1: '%1' must be x and y in centimetres and a "
                                            "button number, such as 12.5 30 1")
                                 .arg(QLatin1String(line))));
}

void SimulationTest::scriptsAreReadOrRefused()
{
    QFETCH(QByteArray, content);
    const auto presses = readScript(content);
    QString outcome = presses ? QString() : presses.error();
    for (const Press& press : presses.value_or(QVector<Press>()))
        outcome +=
            QStringLiteral("%1 %2 %3;").arg(press.point.x()).arg(press.point.y()).arg(press.button);
    QTEST(outcome, "outcome");
}

void SimulationTest::sessionsComeBackAsTheyWereWritten()
{
    const TestHost host;
    const QString path = host.path(QStringLiteral("a.log"));
    RecordedSession session;
    session.tablet = QString::fromUtf8("Täbli \"7\"\nsecond: line");
    session.driver = QStringLiteral("Bit Pad: (CR)");
    session.date = QDateTime(QDate(2026, 3, 1), QTime(14, 2, 11), Qt::UTC);
    QByteArray everyByte;
    for (int byte = 0; byte < 256; ++byte)
        everyByte += char(byte);
    session.chunks.append({0, everyByte});
    SessionWriter writer(path, session);
    QVERIFY2(writer.append({17, "0512,1034,1\r"}), qPrintable(writer.errorString()));

    // While the writer is still there: nothing may wait in a buffer.
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const auto read = readSession(file.readAll());
    QVERIFY2(read, qPrintable(read ? QString() : read.error()));
    QCOMPARE(read->tablet, session.tablet.simplified());
    QCOMPARE(read->driver, session.driver);
    QCOMPARE(read->settings, QString());
    QCOMPARE(read->date, session.date);
    QCOMPARE(read->chunks.size(), 2);
    QCOMPARE(read->chunks.at(0).bytes, everyByte);
    QCOMPARE(read->chunks.at(1).milliseconds, 17);
    QCOMPARE(read->chunks.at(1).bytes, QByteArray("0512,1034,1\r"));
    QVERIFY(!SessionWriter(path, session).errorString().isEmpty()); // never over another
}

void SimulationTest::sessionsAreReadOrRefused_data()
{
    QTest::addColumn<QByteArray>("lines"); // after the first
    QTest::addColumn<QString>("problem");
    const auto row = [](const QByteArray& lines, const QString& problem) {
        QTest::newRow(qPrintable(readTag(lines))) << lines << problem;
    };
    row("# any remark\r\n\r\n0 \"\"\r\n0  \"a\\x00\"  ", {});
    row("# date: yesterday",
        QStringLiteral("line 2: the date 'yesterday' does not have the form 2026-03-01T14:02:11Z"));
    row("9 \"a\"\n8 \"a\"\n7 \"a\"",
        QStringLiteral("line 3: the time 8 is earlier than that of the previous chunk"));
    for (const char* chunk :
         {"12", "-1 \"a\"", "1.5 \"a\"", "1 abc", "1 \"", "1 \"a\"b\"", "1 \"\\\"", "1 \"\\q\"",
          "1 \"\\x1\"", "1 \"\\x\"", "1 \"\\x+1\"", "1 \"\xc3\xa4\"", "1 \"a\tb\""})
        row(chunk, QStringLiteral(
                       "line 2: '%1' is not a time in milliseconds, a blank and bytes in double "
                       "quotes, such as 120 \"0512\\r\"")
                       .arg(QString::fromUtf8(chunk)));
}

void SimulationTest::sessionsAreReadOrRefused()
{
    QFETCH(QByteArray, lines);
    const auto read = readSession("# digitizer session 1\n" + lines);
    QTEST(read ? QString() : read.error(), "problem");
    QCOMPARE(
        readSession(lines).error(),
        QStringLiteral("line 1: a recorded session must begin with \"# digitizer session 1\""));
}

void SimulationTest::faultsChangeTheWrites_data()
{
    QTest::addColumn<LineFaults>("faults");
    QTest::addColumn<QString>("writes");
    const auto row = [](const char* name, const char* writes, auto change) {
        LineFaults faults;
        change(faults);
        QTest::newRow(name) << faults << QString::fromLatin1(writes);
    };
    row("none", "10 abc 20 def 30 ghi", [](LineFaults&) {});
    row("split", "10 a 5000 bc 20 d 5000 ef 30 g 5000 hi",
        [](LineFaults& faults) { faults.splitOffset = 1; });
    row("split behind the end", "10 abc 20 def 30 ghi",
        [](LineFaults& faults) { faults.splitOffset = 3; });
    row("merge", "30 abcdef 30 ghi", [](LineFaults& faults) { faults.mergedReports = 2; });
    row("hang up", "10 abc 20 def", [](LineFaults& faults) { faults.hangUpAfter = 2; });
    row("hang up at once", "", [](LineFaults& faults) { faults.hangUpAfter = 0; });
    row("merge, split and hang up", "30 abcd 5000 ef", [](LineFaults& faults) {
        faults.mergedReports = 3;
        faults.splitOffset = 4;
        faults.hangUpAfter = 2;
    });
}

void SimulationTest::faultsChangeTheWrites()
{
    QFETCH(LineFaults, faults);
    const QVector<Transmission> reports = {{10, "abc"}, {20, "def"}, {30, "ghi"}};
    QStringList texts;
    for (const Transmission& write : withFaults(reports, faults))
        texts << QString::number(write.pauseMicroseconds) << QString::fromLatin1(write.bytes);
    QTEST(texts.join(QLatin1Char(' ')), "writes");

    faults.garbage = true;
    const auto bytesOf = [&](unsigned seed) {
        faults.seed = seed;
        QByteArray bytes;
        for (const Transmission& write : withFaults(reports, faults))
            bytes += write.bytes;
        return bytes;
    };
    QCOMPARE(bytesOf(1), bytesOf(1));
    QCOMPARE(bytesOf(1) == bytesOf(2), faults.hangUpAfter == 0);
}

namespace {

// The program in a home of its own.
void prepare(QProcess& process, const TestHost& host, const QStringList& arguments)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_DATA_HOME"), host.path(QStringLiteral("home")));
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), host.path(QStringLiteral("home")));
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(PROGRAM_DIRECTORY "/tablet-simulator"), arguments);
}

} // namespace

void SimulationTest::theProgramRefuses_data()
{
    QTest::addColumn<QString>("arguments"); // "|" between them, "@" for the folder of files
    QTest::addColumn<QString>("message");
    QTest::addColumn<int>("exitStatus");
    const auto row = [](const char* arguments, const char* message, int exitStatus) {
        QTest::newRow(arguments) << QString::fromLatin1(arguments) << QString::fromLatin1(message)
                                 << exitStatus;
    };
    row("", "--driver is missing; 'digitizer drivers' lists the names", ExitUsage);
    row("--driver|Lectra E92|--fast|--rate|9", "--fast and --rate cannot be combined", ExitUsage);
    row("--driver|Lectra E92|--fast|--flood", "--fast and --flood cannot be combined", ExitUsage);
    row("--driver|Lectra E92|--split|25",
        "--split is 25, but must be less than 25, the length of the longest write", ExitUsage);
    row("--driver|Lectra E92|--script|@/none", "cannot read @/none: No such file or directory",
        ExitFailure);
    row("--driver|Lectra E92|--script|@/empty", "nothing to send", ExitFailure);
    row("--driver|Lectra E92|--script|@/one",
        "the point (1, 2): there is no button 1; this tablet has buttons 2 to 5", ExitFailure);
    row("--replay|@/one",
        "@/one: line 1: a recorded session must begin with \"# digitizer session 1\"", ExitFailure);
    row("--driver|Lectra E92|--link|@/one", "@/one exists and is not a symbolic link", ExitFailure);
}

void SimulationTest::theProgramRefuses()
{
    QFETCH(QString, arguments);
    QFETCH(QString, message);
    QFETCH(int, exitStatus);
    TestHost host;
    host.write(QStringLiteral("empty"), "# nothing\n");
    const QString folder = QFileInfo(host.write(QStringLiteral("one"), "1 2 1\n")).path();
    QProcess process;
    prepare(
        process, host,
        arguments.replace(QLatin1Char('@'), folder).split(QLatin1Char('|'), Qt::SkipEmptyParts));
    QVERIFY(process.waitForFinished(20000));
    QCOMPARE(
        QString::fromUtf8(process.readAllStandardError()),
        QStringLiteral("tablet-simulator: %1\n").arg(message.replace(QLatin1Char('@'), folder)));
    QCOMPARE(process.exitCode(), exitStatus);
    QVERIFY(QFile::exists(folder + QLatin1String("/one")));
}

void SimulationTest::theProgramTracesAPiece()
{
    const TestHost host;
    const QString link = host.path(QStringLiteral("tablet"));
    QProcess process;
    prepare(process, host,
            {QStringLiteral("--driver"), QStringLiteral("Lectra E92"), QStringLiteral("--link"),
             link, QStringLiteral("--fast"), QStringLiteral("--stay")});
    QTRY_VERIFY(process.bytesAvailable() > 0);
    QCOMPARE(QString::fromUtf8(process.readAllStandardOutput()), link + QLatin1Char('\n'));

    // As a slow host does: a look whether it is there, then the real opening, which discards. The
    // pauses lie on both sides of the simulator's delay of 300 ms.
    QSerialPort port(link);
    QVERIFY(port.open(QIODevice::ReadWrite));
    port.close();
    QTest::qWait(400);
    QVERIFY(port.open(QIODevice::ReadWrite));
    QTest::qWait(50);
    port.clear(QSerialPort::Input);
    // Without the event loop, in which the port object would take what arrives.
    for (const Press& press : bodiceFront(lectraE92Roles())) {
        pollfd state = {port.handle(), POLLIN, 0};
        QVERIFY(poll(&state, 1, 5000) > 0);
        QThread::msleep(5); // no second report may follow while this one waits
        char bytes[4096];
        const ssize_t size = read(port.handle(), bytes, sizeof bytes);
        QCOMPARE(QByteArray(bytes, int(size)), *encodeLectraE92Report(press));
    }
    port.write("\x1b  beep");
    QByteArray printed;
    QTRY_COMPARE((printed += process.readAllStandardError()),
                 QByteArray("received \"\\x1b  beep\"\n"));

    process.terminate();
    QVERIFY(process.waitForFinished(20000));
    QCOMPARE(process.exitCode(), 0);
    QVERIFY(!QFileInfo(link).isSymLink());
}

void SimulationTest::aFloodArrivesWhole()
{
    constexpr int rounds = 400; // far more than the system keeps for a program that does not read
    const TestHost host;
    QProcess process;
    prepare(process, host,
            {QStringLiteral("--driver"), QStringLiteral("Lectra E92"), QStringLiteral("--flood"),
             QStringLiteral("--repeat"), QString::number(rounds)});
    QTRY_VERIFY(process.bytesAvailable() > 0);
    QSerialPort port(QString::fromUtf8(process.readAllStandardOutput()).trimmed());
    port.setReadBufferSize(1); // the rest stays at the system
    QVERIFY(port.open(QIODevice::ReadWrite));
    const auto waiting = [&] {
        int bytes = 0;
        return ioctl(port.handle(), FIONREAD, &bytes) == 0 ? bytes : -1;
    };
    QTRY_VERIFY2(waiting() > 4000, qPrintable(QString::number(waiting())));
    port.setReadBufferSize(0);
    QByteArray sent;
    for (const Press& press : bodiceFront(lectraE92Roles()))
        sent += *encodeLectraE92Report(press);
    sent = sent.repeated(rounds);
    QByteArray arrived;
    QTRY_VERIFY2_WITH_TIMEOUT((arrived += port.readAll()).size() >= sent.size(),
                              qPrintable(QString::number(arrived.size())), 20000);
    QVERIFY(arrived == sent);
    QVERIFY(process.waitForFinished(20000));
    QCOMPARE(process.exitCode(), 0);
}

QTEST_GUILESS_MAIN(SimulationTest)
#include "SimulationTest.moc"
