// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/Resolution.h"
#include "ReferenceHost/Describe/DescriptionProposal.h"
#include "ReferenceHost/Describe/PressProtocol.h"
#include "ReferenceHost/Describe/ResolutionEstimate.h"
#include "support/DescriptionBuilder.h"
#include "support/Descriptions.h"
#include "support/TextRows.h"
#include "tablet-simulator/ReportEncoder.h"

#include <QPointF>
#include <QRandomGenerator>

using namespace MavSystem;
using namespace ReferenceHost;

using Presses = QVector<QByteArray>;

namespace {
/// The presses of the protocol, with a hand's inaccuracy.
Presses simulate(const DigitizerArgument& description, QPointF origin, quint32 seed)
{
    QRandomGenerator random(seed);
    const QPointF middle(5 + random.bounded(20.0), 5 + random.bounded(20.0));
    const Presses::size_type count = Presses::size_type(description.m_buttons.size()) + 3;
    Presses presses;
    while (presses.size() < count) {
        const int press = presses.size();
        const QPointF place = QVector<QPointF>{{0, 0}, {30, 0}, {0, 30}}.value(press, middle);
        const QPointF point =
            origin + place + QPointF(random.bounded(20), random.bounded(20)) / 1000;
        const int button = PressProtocol::buttonOf(press) - (description.m_fourButtons ? 0 : 1);
        presses << *TabletSimulation::encodeReport(description, {{point.x(), point.y()}, button});
    }
    return presses;
}

/// A report with all digits, signs and buttons at random, and sometimes a code that no button has.
QByteArray randomReport(const DigitizerArgument& description, QRandomGenerator& random)
{
    const QByteArray choices[] = {"", "", "0123456789", "0123456789", ",", ".", "+-", "\r", "\n"};
    const auto button = std::size_t(random.bounded(int(description.m_buttons.size()) + 1));
    const ButtonValue code = button < description.m_buttons.size() ? description.m_buttons[button]
                                                                   : ButtonValue{{'~', '~', '~'}};
    std::size_t next = 0;
    QByteArray report;
    for (const ReportFormatValues role : description.m_reportFormat) {
        const QByteArray& choice = choices[role];
        report +=
            role == FORMAT_BUTTON ? code.m_code[next++] : choice.at(random.bounded(choice.size()));
    }
    return report;
}

// The presses of a row: reports, or a template and codes.
Presses pressesOf(const QByteArray& text)
{
    if (text.contains('|'))
        return text.split('|').toVector();
    QByteArrayList codes = text.split(' ');
    DescriptionBuilder description;
    description.report(codes.takeFirst());
    description.buttons(QByteArray::number(codes.size()), codes.first().size(), codes);
    return simulate(Descriptions::parse(description.xml()), {2, 2}, 20261122);
}

// A whole description, or the error.
tl::expected<QByteArray, QString> propose(const Presses& pressed)
{
    const PortSettings line = {BAUD9600, DATA_8, PAR_NONE, STOP_1, FLOW_OFF, 0};
    return splitReports(pressed).and_then([&](const ReportSplit& split) {
        return findLayout(split.reports).map([&](const FoundLayout& layout) {
            return proposeDescription(split, layout, {"found <&> \"again\"", line, true, 30.0});
        });
    });
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
        for (const auto& [name, content] : Descriptions::files())
            QTest::newRow(qPrintable(name)) << content;
        for (const TextRow& row : textRows("described-layouts.txt", 2))
            QTest::newRow(row.name) << DescriptionBuilder()
                                           .resolution(row.fields.at(0).toInt(), row.fields.at(1))
                                           .report(row.name)
                                           .buttons("4", 1, {"1", "2", "4", "8"})
                                           .xml();
    }

    void layoutsAreFoundAgain()
    {
        QFETCH(QByteArray, description);
        const DigitizerArgument original = Descriptions::parse(description);
        const auto signs =
            std::count(original.m_reportFormat.begin(), original.m_reportFormat.end(), FORMAT_SIGN);
        const QPointF origin(signs > 0 ? -15 : 2, signs > 1 ? -15 : 2);
        for (quint32 seed = 20261122; seed < 20261132; ++seed) {
            const auto proposal = propose(simulate(original, origin, seed));
            QVERIFY2(proposal, qPrintable(proposal ? QString() : proposal.error()));
            QCOMPARE(Descriptions::lintOf(*proposal), QString());
            const DigitizerArgument found = Descriptions::parse(*proposal);
            QCOMPARE(found.m_reportLength, original.m_reportLength);
            QRandomGenerator random(seed);
            for (int i = 0; i < 40; ++i) {
                const QByteArray report = randomReport(original, random);
                QVERIFY2(Descriptions::textOf(Descriptions::decode(found, report)) ==
                             Descriptions::textOf(Descriptions::decode(original, report)),
                         "seed " + QByteArray::number(seed) + ": " + report + '\n' + *proposal);
            }
        }
    }

    void whatATemplateCannotExpressIsAnError_data() { addTextRows("described-errors.txt", 2); }

    void whatATemplateCannotExpressIsAnError()
    {
        QFETCH(TextRow, row);
        const auto proposal = propose(pressesOf(row.fields.at(0)));
        QVERIFY2(!proposal, proposal.value_or(QByteArray()));
        QVERIFY2(proposal.error().contains(row.text(1)), qPrintable(proposal.error()));
    }

    void whatIsNotSureIsMarked_data() { addTextRows("described-doubts.txt", 2); }

    void whatIsNotSureIsMarked()
    {
        QFETCH(TextRow, row);
        const auto proposal = propose(pressesOf(row.fields.at(0)));
        QVERIFY2(proposal, qPrintable(proposal ? QString() : proposal.error()));
        QVERIFY2(proposal->contains(row.fields.at(1)), *proposal);
        QVERIFY2(!Descriptions::lintOf(*proposal).contains("error:"), *proposal);
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
};

QTEST_GUILESS_MAIN(DescribeTest)
#include "DescribeTest.moc"
