// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/FieldDecoding.h"
#include "DigitizerGeneric/Digitizer/Resolution.h"
#include "ReferenceHost/Describe/DescriptionProposal.h"
#include "ReferenceHost/Describe/PressProtocol.h"
#include "ReferenceHost/Describe/ResolutionEstimate.h"
#include "ReferenceHost/Lint/DescriptionLint.h"
#include "ReferenceHost/Serial/PseudoTerminal.h"
#include "support/DescriptionBuilder.h"
#include "support/DigitizerProcess.h"
#include "support/TextRows.h"
#include "tablet-simulator/ReportEncoder.h"

#include <QPointF>
#include <QRandomGenerator>

#include <memory>

using namespace MavSystem;
using namespace ReferenceHost;
using namespace TabletSimulation;

using Presses = QVector<QByteArray>;

namespace {
constexpr quint32 seed = 20261122;

std::unique_ptr<DigitizerArgument> load(const char* name)
{
    return std::unique_ptr<DigitizerArgument>(DigitizerArgument::digitizerArgument(name));
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
Presses presses(const QByteArray& roles, double countsPerCentimetre, const Presses& codes,
                QPointF origin = {2, 2})
{
    Presses result;
    for (const QPointF& point : points(codes.size() + 3, origin, 0))
        result << encode(roles, qRound64(point.x() * countsPerCentimetre),
                         qRound64(point.y() * countsPerCentimetre),
                         codes.at(PressProtocol::buttonOf(result.size()) - 1));
    return result;
}

/// The same by a description, as its tablet sends it.
Presses simulate(const DigitizerArgument& description, QPointF origin, quint32 trial)
{
    Presses result;
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

// A whole description, or the error.
tl::expected<QByteArray, QString> propose(const Presses& pressed)
{
    PortSettings line;
    line.BaudRate = BAUD9600;
    line.DataBits = DATA_8;
    line.Parity = PAR_NONE;
    line.StopBits = STOP_1;
    line.FlowControl = FLOW_OFF;
    return splitReports(pressed).and_then([&](const ReportSplit& split) {
        return findLayout(split.reports).map([&](const FoundLayout& layout) {
            return proposeDescription(split, layout, {"found <&> \"again\"", line, true, 30.0});
        });
    });
}

DigitalReport decode(const DigitizerArgument& description, const QByteArray& text)
{
    return FieldDecoding::reportOf(description, ReportLayout(description), text.constData(), 3);
}

QString faultsOf(const QByteArray& description)
{
    QString faults;
    for (const LintFinding& finding : lintDescription(description))
        faults += textOf("proposal", finding) + '\n';
    return faults;
}

bool same(const DigitalReport& left, const DigitalReport& right)
{
    return left.coordinate().x() == right.coordinate().x() &&
           left.coordinate().y() == right.coordinate().y() &&
           left.m_button_number == right.m_button_number;
}

// The presses of a row: reports, or a template and codes.
Presses pressesOf(const QByteArray& text)
{
    if (text.contains('|'))
        return text.split('|').toVector();
    Presses codes = text.split(' ').toVector();
    const QByteArray roles = codes.takeFirst();
    return presses(roles, 100, codes);
}

void addPresses(const char* name, const Presses& pressed, const char* text)
{
    QTest::newRow(name) << TextRow{name, {pressed.toList().join('|'), text}};
}

} // namespace

/// From the bytes of an unknown tablet to its description.
class DescribeTest : public QObject
{
    Q_OBJECT

private slots:
    void layoutsAreFoundAgain_data()
    {
        QTest::addColumn<QByteArray>("description");
        QFileInfoList files =
            QDir(SOURCE_DIRECTORY "/Plugins/digitizer/generated").entryInfoList(QDir::Files);
        files << QFileInfo(SOURCE_DIRECTORY "/Examples/descriptions/annotated.xml");
        for (const QFileInfo& info : qAsConst(files)) {
            QFile file(info.filePath());
            QVERIFY(file.open(QIODevice::ReadOnly));
            QByteArray content = file.readAll();
            content.replace(content.indexOf(" name=\""), 7, " name=\"original\" was=\"");
            QTest::newRow(qPrintable(info.fileName())) << content;
        }
        const auto row = [](const char* roles, int lines, const char* unit) {
            QTest::newRow(roles) << DescriptionBuilder("original")
                                        .resolution(lines, unit)
                                        .report(roles)
                                        .buttons("4", 1, {"1", "2", "4", "8"})
                                        .xml();
        };
        row("BUYYYYYUXXXXXC", 500, "LPI");
        row("XXXXXYYYYYB", 1000, "LPI");
        row("XXXXYYYYBL", 10, "LPMM");
        row("SXXXXXSYYYYYBCL", 25, "LPMM");
        row("SXXXXXUYYYYYUB", 25, "LPMM");
        row("XXXX.XUYYYY.YUBCL", 1, "LPMM");
        row("XXX.XXYYY.YYBCL", 1, "LPMM");
    }

    void layoutsAreFoundAgain()
    {
        QFETCH(QByteArray, description);
        TestHost host;
        host.writeDescription("original.xml", description);
        const auto original = load("original");
        const int signs = rolesOf(*original).count('S');
        const QPointF origin(signs > 0 ? -15 : 2, signs > 1 ? -15 : 2);
        for (quint32 trial = 0; trial < 10; ++trial) {
            const auto proposal = propose(simulate(*original, origin, trial));
            QVERIFY2(proposal, qPrintable(proposal ? QString() : proposal.error()));
            host.writeDescription("proposal.xml", *proposal);
            QCOMPARE(faultsOf(*proposal), QString());
            const auto found = load("found <&> \"again\"");
            QCOMPARE(found->m_reportLength, original->m_reportLength);
            QRandomGenerator random(seed + trial);
            for (int i = 0; i < 40; ++i) {
                const QByteArray report = randomReport(*original, random);
                QVERIFY2(same(decode(*original, report), decode(*found, report)),
                         "trial " + QByteArray::number(trial) + ": " + report + '\n' + *proposal);
            }
        }
    }

    void whatATemplateCannotExpressIsAnError_data()
    {
        addTextRows("described-errors.txt", 2);
        const Presses good = presses("XXXXXUYYYYYUBC", 100, {"1", "2", "4"});
        const auto changed = [&](int press, const QByteArray& before, const QByteArray& after) {
            Presses result = good;
            result[press].replace(before, after);
            return result;
        };
        addPresses("length", changed(1, ",", ",-"), "have 14 to 16 characters");
        addPresses("truncated", changed(2, "\r", ""), "have 13 to 14 characters");
        addPresses("blanks", changed(0, "00", "  "), "holds a digit in some reports");
        addPresses("high bits", changed(3, "1", "\xb1"), "wrong");
        addPresses("zero byte", changed(3, ",", QByteArray(1, '\0')), "wrong");
        addPresses("one place", Presses(4, good.at(0)) << good.mid(4), "no number follows x");
        addPresses("one button", good.mid(0, 4) << good.at(3),
                   "no character tells the buttons apart");
        addPresses("swapped points", {good.at(0), good.at(3), good.at(3), good.at(3), good.at(4)},
                   "no number follows x");
    }

    void whatATemplateCannotExpressIsAnError()
    {
        QFETCH(TextRow, row);
        const auto proposal = propose(pressesOf(row.fields.at(0)));
        QVERIFY2(!proposal, proposal.value_or(QByteArray()));
        QVERIFY2(proposal.error().contains(row.text(1)), qPrintable(proposal.error()));
    }

    void whatIsNotSureIsMarked_data()
    {
        addTextRows("described-doubts.txt", 2);
        const QByteArray ended = "XXXXXUYYYYYUBC";
        const Presses buttons = {"1", "2", "3", "4", "5"};
        Presses twice = presses(ended, 100, buttons);
        Presses packed = presses("XXXXXYYYYYB", 100, buttons);
        Presses counted = twice;
        Presses marked = twice;
        for (int press = 0; press < twice.size(); ++press) {
            twice[press] += twice.at(press);
            packed[press] += packed.at(press);
            counted[press].prepend(QByteArray::number(37 + press) + ';');
            marked[press].prepend("7;");
        }
        addPresses("two a press", twice, "up to 2 reports came with one press");
        addPresses("two a press, packed", packed, "the bytes repeat");
        addPresses("a constant digit", marked,
                   "position 0 was 7 in every report and is marked as unused");
        addPresses("a counter", counted, "positions 0 to 1 also change");
        addPresses("falls", presses("XXXXUYYYYUBC", 100, {"1", "2"}, {-40, 2}),
                   "x decreases where it should increase");
        addPresses("resolution", presses(ended, 1000 / 2.5396825396825, buttons),
                   "unit=\"LPI\">1000<");
    }

    void whatIsNotSureIsMarked()
    {
        QFETCH(TextRow, row);
        Presses pressed = pressesOf(row.fields.at(0));
        for (QByteArray& press : pressed) {
            if (press.startsWith(",,,"))
                press.replace(0, 3, "---");
        }
        const auto proposal = propose(pressed);
        QVERIFY2(proposal, qPrintable(proposal ? QString() : proposal.error()));
        QVERIFY2(proposal->contains(row.fields.at(1)), *proposal);
        QVERIFY2(!faultsOf(*proposal).contains("error:"), qPrintable(faultsOf(*proposal)));
    }

    void resolutionsAreRecognised_data() { addTextRows("resolutions.txt", 2); }

    void resolutionsAreRecognised()
    {
        QFETCH(TextRow, row);
        const auto estimate = estimateResolution(30 * row.fields.at(0).toDouble(), 30);
        QCOMPARE(Resolution::text(estimate.lines, estimate.unit) +
                     (estimate.isUsual ? " usual" : " unusual"),
                 row.text(1));
    }

    void pausesPartThePresses()
    {
        const QVector<RecordedSession::Chunk> chunks = {
            {1000, "123"}, {1399, "45"}, {1799, "678"}, {1800, "9"}, {9000, "0"}};
        QCOMPARE(PressProtocol::pressesOf(chunks), (Presses{"12345", "6789", "0"}));
    }

    void theUserIsGuided()
    {
        TestHost host;
        PseudoTerminal tablet;
        const QStringList common = {"describe", "--name", "New", "--distance", "30"};
        DigitizerProcess process(host, "digitizer",
                                 common + QStringList{"--device", tablet.path(), "--output",
                                                      "new.xml", "--record", "new.log"});
        const Presses pressed = presses("XXXXUYYYYUBC", 100, {"1", "2", "4"});
        for (int i = 0; i < pressed.size(); ++i) {
            const QString prompt = QString("\n%1. ").arg(i + 1);
            QVERIFY2(process.prints(prompt), qPrintable(process.errors()));
            if (i == 1) { // taken back and pressed again
                QVERIFY(tablet.write("9999,9999,8\r"));
                QVERIFY2(process.prints("\n3. "), qPrintable(process.errors()));
                process.write("r\n");
                QVERIFY2(process.prints(prompt, 2), qPrintable(process.errors()));
            }
            QVERIFY(tablet.write(pressed.at(i).left(5)));
            QVERIFY(tablet.write(pressed.at(i).mid(5)));
            QVERIFY2(process.prints("   12 bytes: ", i + (i > 0 ? 2 : 1)),
                     qPrintable(process.errors()));
        }
        QVERIFY2(process.prints("\n7. "), qPrintable(process.errors()));
        process.write("\n");
        QVERIFY2(process.end() == 0, qPrintable(process.errors()));
        QFile file(host.path("new.xml"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray proposal = file.readAll();
        QVERIFY2(proposal.contains("\"12\">XXXXUYYYYUBC<"), proposal);

        DigitizerProcess again(host, "digitizer", common + QStringList{"--from", "new.log"});
        QCOMPARE(again.end(), 0);
        QCOMPARE(again.output(), QString(proposal));
    }
};

QTEST_GUILESS_MAIN(DescribeTest)
#include "DescribeTest.moc"
