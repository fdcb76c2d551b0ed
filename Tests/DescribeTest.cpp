// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/FieldDecoding.h"
#include "DigitizerGeneric/Digitizer/Resolution.h"
#include "ReferenceHost/Describe/DescriptionProposal.h"
#include "ReferenceHost/Describe/PressProtocol.h"
#include "ReferenceHost/Describe/ResolutionEstimate.h"
#include "ReferenceHost/Lint/DescriptionLint.h"
#include "ReferenceHost/Serial/PseudoTerminal.h"
#include "support/TestHost.h"
#include "tablet-simulator/ReportEncoder.h"

#include <QPointF>
#include <QProcess>
#include <QRandomGenerator>
#include <QtTest>

#include <memory>

using namespace MavSystem;
using namespace ReferenceHost;
using namespace TabletSimulation;

/// From the bytes of an unknown tablet to its description.
class DescribeTest : public QObject
{
    Q_OBJECT

private slots:
    void layoutsAreFoundAgain_data();
    void layoutsAreFoundAgain();
    void whatATemplateCannotExpressIsAnError_data();
    void whatATemplateCannotExpressIsAnError();
    void whatIsNotSureIsMarked_data();
    void whatIsNotSureIsMarked();
    void resolutionsAreRecognised_data();
    void resolutionsAreRecognised();
    void pausesPartThePresses();
    void theUserIsGuided();
};

namespace {

constexpr quint32 seed = 20261122;

std::unique_ptr<DigitizerArgument> load(const char* name)
{
    return std::unique_ptr<DigitizerArgument>(
        DigitizerArgument::digitizerArgument(QString::fromLatin1(name)));
}

/// Fills the positions of \a role with the last digits of \a counts.
void fill(QByteArray& report, const QByteArray& roles, char role, qint64 counts)
{
    for (int i = roles.size() - 1; i >= 0; --i) {
        if (roles.at(i) == role) {
            report[i] = char('0' + counts % 10);
            counts /= 10;
        }
    }
}

/// A report by a template, whether or not the driver could decode it.
QByteArray encode(const QByteArray& roles, qint64 x, qint64 y, QByteArray code)
{
    QByteArray report = roles;
    report.replace('U', ',').replace('C', '\r').replace('L', '\n');
    fill(report, roles, 'X', std::abs(x));
    fill(report, roles, 'Y', std::abs(y));
    for (qint64 value : {x, y}) {
        const int sign = report.indexOf('S');
        if (sign >= 0)
            report[sign] = value < 0 ? '-' : '+';
    }
    for (int button = roles.indexOf('B'), i = 0; button >= 0;
         button = roles.indexOf('B', button + 1))
        report[button] = code.at(i++);
    return report;
}

QByteArray rolesOf(const DigitizerArgument& description)
{
    QByteArray roles;
    for (const ReportFormatValues role : description.m_reportFormat)
        roles += "?BXYU.SCL"[role];
    return roles;
}

/// Points of the protocol in centimetres, with a hand's inaccuracy.
QVector<QPointF> points(int presses, QPointF origin, quint32 trial)
{
    QRandomGenerator random(seed + trial);
    QVector<QPointF> points = {{0, 0}, {30, 0}, {0, 30}};
    points << QPointF(5 + random.bounded(20.0), 5 + random.bounded(20.0));
    while (points.size() < presses)
        points << points.last();
    for (QPointF& point : points)
        point += origin + QPointF(random.bounded(20), random.bounded(20)) / 1000;
    return points;
}

/// A session of the protocol by a template, whether or not the driver could decode it.
QVector<QByteArray> presses(const QByteArray& roles, double countsPerCentimetre,
                            const QVector<QByteArray>& codes, QPointF origin = {2, 2})
{
    QVector<QByteArray> result;
    for (const QPointF& point : points(codes.size() + 3, origin, 0))
        result << encode(roles, qRound64(point.x() * countsPerCentimetre),
                         qRound64(point.y() * countsPerCentimetre),
                         codes.at(PressProtocol::buttonOf(result.size()) - 1));
    return result;
}

/// The same by a description, as its tablet sends it.
QVector<QByteArray> simulate(const DigitizerArgument& description, QPointF origin, quint32 trial)
{
    QVector<QByteArray> result;
    const int firstNumber = description.m_fourButtons ? 1 : 0;
    for (const QPointF& point : points(int(description.m_buttons.size()) + 3, origin, trial)) {
        const int number = PressProtocol::buttonOf(result.size()) - 1 + firstNumber;
        result << *encodeReport(description, {{point.x(), point.y()}, number});
    }
    return result;
}

/// A report with all digits, signs and buttons at random, and sometimes a code that no button has.
QByteArray randomReport(const DigitizerArgument& description, QRandomGenerator& random)
{
    QByteArray report = encode(rolesOf(description), 0, 0, "~~~");
    const int button = random.bounded(int(description.m_buttons.size()) + 1);
    int character = 0;
    for (int i = 0; i < report.size(); ++i) {
        const ReportFormatValues role = description.m_reportFormat[std::size_t(i)];
        if (role == FORMAT_X || role == FORMAT_Y)
            report[i] = char('0' + random.bounded(10));
        else if (role == FORMAT_SIGN)
            report[i] = "+-"[random.bounded(2)];
        else if (role == FORMAT_BUTTON && button < int(description.m_buttons.size()))
            report[i] = description.m_buttons[std::size_t(button)].m_code[std::size_t(character++)];
    }
    return report;
}

QString propose(const QVector<QByteArray>& pressed, QString* error)
{
    const auto split = splitReports(pressed);
    const auto layout = split.and_then([](const ReportSplit& s) { return findLayout(s.reports); });
    *error = layout ? QString() : layout.error();
    PortSettings line;
    line.BaudRate = BAUD9600;
    line.DataBits = DATA_8;
    line.Parity = PAR_NONE;
    line.StopBits = STOP_1;
    line.FlowControl = FLOW_OFF;
    return error->isEmpty()
               ? QString::fromUtf8(proposeDescription(
                     *split, *layout, {QStringLiteral("found <&> \"again\""), line, true, 30.0}))
               : QString();
}

DigitalReport decode(const DigitizerArgument& description, const QByteArray& text)
{
    return FieldDecoding::reportOf(description, ReportLayout(description), text.constData(), 3);
}

QString faultsOf(const QByteArray& description)
{
    QString faults;
    for (const LintFinding& finding : lintDescription(description))
        faults += textOf(QStringLiteral("proposal"), finding) + QLatin1Char('\n');
    return faults;
}

bool same(const DigitalReport& left, const DigitalReport& right)
{
    return left.coordinate().x() == right.coordinate().x() &&
           left.coordinate().y() == right.coordinate().y() &&
           left.m_button_number == right.m_button_number;
}

void start(QProcess& process, const TestHost& host, const QStringList& arguments)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_DATA_HOME"), host.path(QStringLiteral("home")));
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), host.path(QStringLiteral("home")));
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(PROGRAM_DIRECTORY "/digitizer"),
                  QStringList{QStringLiteral("describe")} + arguments);
}

const QByteArray four = R"(<buttons count="4" length="1"><button>1</button><button>2</button>
    <button>4</button><button>8</button></buttons>)";

} // namespace

void DescribeTest::layoutsAreFoundAgain_data()
{
    QTest::addColumn<QByteArray>("description");
    const QDir shipped(QStringLiteral(SOURCE_DIRECTORY "/Plugins/digitizer/generated"));
    QFileInfoList files = shipped.entryInfoList(QDir::Files);
    files << QFileInfo(QStringLiteral(SOURCE_DIRECTORY "/Examples/descriptions/annotated.xml"));
    for (const QFileInfo& file : qAsConst(files)) {
        QFile source(file.filePath());
        QVERIFY(source.open(QIODevice::ReadOnly));
        QByteArray content = source.readAll();
        content.replace(content.indexOf(" name=\""), 7, " name=\"original\" was=\"");
        QTest::newRow(qPrintable(file.fileName())) << content;
    }
    const auto row = [](const char* roles, const char* unit) {
        QTest::newRow(roles) << "<d name=\"original\"><resolution unit=\"" + QByteArray(unit) +
                                    "</resolution><reportFormat length=\"" +
                                    QByteArray::number(int(qstrlen(roles))) + "\">" + roles +
                                    "</reportFormat>" + four + "</d>";
    };
    row("BUYYYYYUXXXXXC", "LPI\">500");
    row("XXXXXYYYYYB", "LPI\">1000");
    row("XXXXYYYYBL", "LPMM\">10");
    row("SXXXXXSYYYYYBCL", "LPMM\">25");
    row("SXXXXXUYYYYYUB", "LPMM\">25");
    row("XXXX.XUYYYY.YUBCL", "LPMM\">1");
    row("XXX.XXYYY.YYBCL", "LPMM\">1");
}

void DescribeTest::layoutsAreFoundAgain()
{
    QFETCH(QByteArray, description);
    TestHost host;
    host.writeDescription(QStringLiteral("original.xml"), description);
    const auto original = load("original");
    const int signs = rolesOf(*original).count('S');
    const QPointF origin(signs > 0 ? -15 : 2, signs > 1 ? -15 : 2);
    for (quint32 trial = 0; trial < 10; ++trial) {
        QString error;
        const QByteArray proposal = propose(simulate(*original, origin, trial), &error).toUtf8();
        QCOMPARE(error, QString());
        host.writeDescription(QStringLiteral("proposal.xml"), proposal);
        QCOMPARE(faultsOf(proposal), QString());
        const auto found = load("found <&> \"again\"");
        QCOMPARE(found->m_reportLength, original->m_reportLength);
        QRandomGenerator random(seed + trial);
        for (int i = 0; i < 40; ++i) {
            const QByteArray report = randomReport(*original, random);
            QVERIFY2(
                same(decode(*original, report), decode(*found, report)),
                qPrintable(
                    QStringLiteral("trial %1: %2\n").arg(trial).arg(QString::fromLatin1(report)) +
                    QString::fromUtf8(proposal)));
        }
    }
}

void DescribeTest::whatATemplateCannotExpressIsAnError_data()
{
    QTest::addColumn<QVector<QByteArray>>("pressed");
    QTest::addColumn<QString>("message");
    const auto row = [](const char* name, const QVector<QByteArray>& pressed, const char* message) {
        QTest::newRow(name) << pressed << QString::fromLatin1(message);
    };
    const QVector<QByteArray> good = presses("XXXXXUYYYYYUBC", 100, {"1", "2", "4"});
    const auto changed = [&](int press, const QByteArray& before, const QByteArray& after) {
        QVector<QByteArray> result = good;
        result[press].replace(before, after);
        return result;
    };
    row("length", changed(1, ",", ",-"), "have 14 to 16 characters");
    row("short", {"12\r", "92\r", "19\r", "55\r", "56\r"}, "3 characters is too short");
    row("truncated", changed(2, "\r", ""), "have 13 to 14 characters");
    row("blanks", changed(0, "00", "  "), "holds a digit in some reports");
    row("high bits", changed(3, "1", "\xb1"), "wrong");
    row("zero byte", changed(3, ",", QByteArray(1, '\0')), "wrong");
    row("one place", QVector<QByteArray>(4, good.at(0)) << good.mid(4), "no number follows x");
    row("one button", good.mid(0, 4) << good.at(3), "no character tells the buttons apart");
    row("swapped points", {good.at(0), good.at(3), good.at(3), good.at(3), good.at(4)},
        "no number follows x");
    row("point of y only", presses("XXXXXUYYYY.YUBC", 100, {"1", "2"}), "point in y");
    row("points, y first", presses("YYYY.YUXXXX.XUBC", 100, {"1", "2"}), "point");
    row("point of x, y first", presses("YYYYYUXXXX.XUBC", 100, {"1", "2"}), "point in x");
}

void DescribeTest::whatATemplateCannotExpressIsAnError()
{
    QFETCH(QVector<QByteArray>, pressed);
    QFETCH(QString, message);
    QString error;
    propose(pressed, &error);
    QVERIFY2(error.contains(message), qPrintable(error));
}

void DescribeTest::whatIsNotSureIsMarked_data()
{
    QTest::addColumn<QVector<QByteArray>>("pressed");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, const QVector<QByteArray>& pressed, const char* text) {
        QTest::newRow(name) << pressed << QString::fromLatin1(text);
    };
    const auto twice = [](QVector<QByteArray> pressed) {
        for (QByteArray& press : pressed)
            press += press;
        return pressed;
    };
    const QByteArray packed = "XXXXXYYYYYB";
    const QByteArray ended = "XXXXXUYYYYYUBC";
    const QVector<QByteArray> buttons = {"1", "2", "3", "4", "5"};
    row("line end", presses(ended, 100, buttons), "length=\"14\">XXXXXUYYYYYUBC<");
    row("two a press", twice(presses(ended, 100, buttons)), "up to 2 reports came with one press");
    row("two a press, packed", twice(presses(packed, 100, buttons)), "the bytes repeat");
    row("packed", presses(packed, 100, buttons), "split at position 5.");
    row("a digit of y as if it were of the button",
        {"00501,005071\r", "03502,005071\r", "00503,035071\r", "02004,019071\r", "02004,019082\r",
         "02004,019074\r", "02005,019098\r"},
        ">XXXXXUYYYYYBC<");
    row("a digit of x as if it were the button",
        {"100501,00507\r", "100502,03507\r", "103503,00507\r", "101904,02007\r", "201904,02008\r",
         "401904,02007\r", "801905,02009\r"},
        ">BYYYYYUXXXXXC<");
    row("no line end", presses(packed, 100, buttons), "everything sent for one press");
    row("two buttons", presses(ended, 100, {"1", "2"}),
        "the codes of these buttons are not known: 3, 4.");
    row("placeholders", presses(ended, 100, {"!", "2"}),
        "<button>!</button>\n    <button>2</button>\n    <button>&quot;</button>\n    <button>#<");
    row("equal codes", presses(ended, 100, {"1", "2", "2", "8"}), "buttons 2 and 3 send the same");
    row("five buttons", presses(ended, 100, buttons), "5 buttons were pressed");
    row("half a code", presses("XXXXUYYYYUBBC", 100, {"01", "02"}), "XXXXUYYYYUBBC");
    QVector<QByteArray> counted = presses(ended, 100, buttons);
    for (int press = 0; press < counted.size(); ++press)
        counted[press].prepend(QByteArray::number(37 + press) + ';');
    QVector<QByteArray> marked = presses(ended, 100, buttons);
    for (QByteArray& press : marked)
        press.prepend("7;");
    row("a constant digit", marked, "position 0 was 7 in every report and is marked as unused");
    row("a counter", counted, "positions 0 to 1 also change");
    row("sign of y only", presses("XXXXUSYYYYUBC", 100, {"1", "2"}), "cannot express a sign of y");
    row("never negative", presses("SXXXXSYYYYUBC", 100, {"1", "2"}),
        "position 0 was never a minus");
    row("falls", presses("XXXXUYYYYUBC", 100, {"1", "2"}, {-40, 2}),
        "x decreases where it should increase");
    row("leading zero", presses(ended, 100, buttons), "position 0 was 0 in every report");
    row("resolution", presses(ended, 1000 / 2.5396825396825, buttons), "unit=\"LPI\">1000<");
    row("dashes", presses("UUUXXXXSYYYYUBC", 100, {"1", "2"}), "-\\-\\-");
}

void DescribeTest::whatIsNotSureIsMarked()
{
    QFETCH(QVector<QByteArray>, pressed);
    QFETCH(QString, text);
    for (QByteArray& press : pressed) {
        if (press.startsWith(",,,"))
            press.replace(0, 3, "---");
    }
    QString error;
    const QString proposal = propose(pressed, &error);
    QCOMPARE(error, QString());
    QVERIFY2(proposal.contains(text), qPrintable(proposal));
    const QString faults = faultsOf(proposal.toUtf8());
    QVERIFY2(!faults.contains(QLatin1String("error:")), qPrintable(faults));
}

void DescribeTest::resolutionsAreRecognised_data()
{
    QTest::addColumn<double>("countsPerCentimetre");
    QTest::addColumn<QString>("expected");
    const auto row = [](double counts, const char* expected) {
        QTest::addRow("%g", counts) << counts << QString::fromLatin1(expected);
    };
    row(1000 / 2.5396825396825, "1000 LPI usual");
    row(1003 / 2.54, "1000 LPI usual");
    row(1008 / 2.5396825396825, "1008 LPI unusual");
    row(100, "10 LPMM usual");
    row(1000.2, "2540 LPI usual");
    row(300, "762 LPI unusual");
    row(200.01, "508 LPI usual");
    row(10, "1 LPMM usual");
    row(40 / 2.5396825396825, "0 LPI unusual");
    row(0.1, "0 LPI unusual");
    row(32768 / 2.5396825396825, "0 LPI unusual");
}

void DescribeTest::resolutionsAreRecognised()
{
    QFETCH(double, countsPerCentimetre);
    const auto estimate = estimateResolution(30 * countsPerCentimetre, 30);
    QTEST(Resolution::text(estimate.lines, estimate.unit) +
              QLatin1String(estimate.isUsual ? " usual" : " unusual"),
          "expected");
}

void DescribeTest::pausesPartThePresses()
{
    const QVector<RecordedSession::Chunk> chunks = {
        {1000, "123"}, {1399, "45"}, {1799, "678"}, {1800, "9"}, {9000, "0"}};
    QCOMPARE(PressProtocol::pressesOf(chunks), (QVector<QByteArray>{"12345", "6789", "0"}));
}

void DescribeTest::theUserIsGuided()
{
    TestHost host;
    PseudoTerminal tablet;
    QProcess process;
    QByteArray dialog;
    connect(&process, &QProcess::readyReadStandardError, this,
            [&] { dialog += process.readAllStandardError(); });
    const QString description = host.path(QStringLiteral("new.xml"));
    const QString recording = host.path(QStringLiteral("new.log"));
    const QStringList common = {QStringLiteral("--name"), QStringLiteral("New"),
                                QStringLiteral("--distance"), QStringLiteral("30")};
    start(process, host,
          common + QStringList{QStringLiteral("--device"), tablet.path(),
                               QStringLiteral("--output"), description, QStringLiteral("--record"),
                               recording});
    const auto pressed = presses("XXXXUYYYYUBC", 100, {"1", "2", "4"});
    for (int i = 0; i < pressed.size(); ++i) {
        const QByteArray prompt = QByteArray::number(i + 1) + ". ";
        QTRY_VERIFY2(dialog.contains('\n' + prompt), dialog.constData());
        if (i == 1) { // taken back and pressed again
            QVERIFY(tablet.write("9999,9999,8\r"));
            QTRY_VERIFY2(dialog.contains("\n3. "), dialog.constData());
            dialog.clear();
            process.write("r\n");
            QTRY_VERIFY2(dialog.contains(prompt), dialog.constData());
        }
        QVERIFY(tablet.write(pressed.at(i).left(5)));
        QVERIFY(tablet.write(pressed.at(i).mid(5)));
    }
    QTRY_VERIFY2(dialog.contains("\n7. "), dialog.constData());
    process.write("\n");
    QVERIFY2(process.waitForFinished(), dialog.constData());
    QVERIFY2(process.exitCode() == 0, dialog.constData());
    QFile file(description);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray proposal = file.readAll();
    QVERIFY2(proposal.contains("\"12\">XXXXUYYYYUBC<"), proposal.constData());

    start(process, host, common + QStringList{QStringLiteral("--from"), recording});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.readAllStandardOutput(), proposal);
    start(process, host,
          common + QStringList{QStringLiteral("--from"), recording, QStringLiteral("--output"),
                               description});
    QVERIFY(process.waitForFinished());
    QTRY_VERIFY2(dialog.contains("already exists and is not overwritten"), dialog.constData());
}

QTEST_GUILESS_MAIN(DescribeTest)
#include "DescribeTest.moc"
