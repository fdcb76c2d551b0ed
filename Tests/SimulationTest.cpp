// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/DescribedDriver.h"
#include "DigitizerGeneric/Digitizer/LectraE92.h"
#include "ReferenceHost/Serial/RecordedSession.h"
#include "support/DescriptionBuilder.h"
#include "support/Descriptions.h"
#include "support/TestHost.h"
#include "support/TextRows.h"
#include "tablet-simulator/PieceScript.h"
#include "tablet-simulator/ReportEncoder.h"
#include "tablet-simulator/Transmission.h"

#include <cmath>
#include <numeric>
#include <random>

using namespace MavSystem;
using namespace ReferenceHost;
using namespace TabletSimulation;

namespace {
// "x y button"
Press pressOf(const QByteArray& text)
{
    const QByteArrayList numbers = text.split(' ');
    return {{numbers.at(0).toDouble(), numbers.at(1).toDouble()}, numbers.at(2).toInt()};
}

QString outcomeOf(const tl::expected<QByteArray, QString>& report)
{
    return report ? QString(quotedBytes(*report)) : report.error();
}

} // namespace

/// The simulated tablet: the reports it makes of points, for every shipped description, and the
/// files that it takes. The program is in its transcript.
class SimulationTest : public QObject
{
    Q_OBJECT

private slots:
    void everyDescriptionIsExpected()
    {
        QByteArrayList files;
        for (const auto& [name, content] : Descriptions::files())
            files << name.chopped(4).toUtf8();
        for (const TextRow& row : textRows("tablets.txt", 5))
            files.removeAll(row.name);
        QCOMPARE(files.join(' '), QByteArray());
    }

    void descriptionsDecodeAndEncode_data() { addTextRows("tablets.txt", 5); }

    void descriptionsDecodeAndEncode()
    {
        QFETCH(TextRow, row);
        const QByteArray written = row.fields.at(0);
        const DigitizerArgument description =
            Descriptions::parse(Descriptions::files().at(row.name + ".xml"));
        QCOMPARE(quint64(written.size()), quint64(description.m_reportLength));
        QCOMPARE(Descriptions::textOf(Descriptions::decode(description, written)), row.text(1));

        for (const Press& press : bodiceFront(standardButtonRoles({{}, {}, {}, description})))
            QVERIFY(encodeReport(description, press));

        const QByteArrayList lines = row.fields.at(2).split(' ');
        const double step =
            (lines.at(1) == "inch" ? 2.5396825396825 : 1.0) / lines.at(0).toDouble();
        const double largest = (std::pow(10.0, row.fields.at(3).toInt()) - 1) * step;
        const unsigned seed = 20260301;
        std::mt19937 random(seed);
        std::uniform_real_distribution<double> centimetres(
            row.fields.at(4) == "signed" ? -largest : 0.0, largest);
        double farthest = 0.0;
        for (int count = 0; count < 1000; ++count) {
            const Press press = {{centimetres(random), centimetres(random)},
                                 description.m_fourButtons ? 1 + count % 4 : count % 16};
            const auto report = encodeReport(description, press);
            QVERIFY2(report, qPrintable(outcomeOf(report)));
            const DigitalReport delivered = Descriptions::decode(description, *report);
            QCOMPARE(delivered.m_button_number, press.button);
            for (const double difference : {delivered.coordinate().x() - press.point.x(),
                                            delivered.coordinate().y() - press.point.y()})
                farthest = std::max(farthest, std::abs(difference) / step);
        }
        qInfo("seed %u: largest difference %.6f steps", seed, farthest);
        QVERIFY(farthest <= 0.5 + 1e-6);
    }

    void reportsFollowTheTemplate_data() { addTextRows("simulated-reports.txt", 6); }

    void reportsFollowTheTemplate()
    {
        QFETCH(TextRow, row);
        const QByteArrayList resolution = row.fields.at(1).split(' ');
        const QByteArrayList codes =
            row.fields.at(2).isEmpty() ? QByteArrayList() : row.fields.at(2).split(' ');
        const Press press = pressOf(row.fields.at(4));
        const DigitizerArgument description = Descriptions::parse(
            DescriptionBuilder()
                .resolution(resolution.at(0).toInt(), resolution.at(1))
                .report(row.fields.at(0))
                .buttons(QByteArray::number(codes.size()), row.fields.at(3).toInt(), codes)
                .xml());
        const auto report = encodeReport(description, press);
        QCOMPARE(outcomeOf(report), row.text(5));
        if (report)
            QCOMPARE(Descriptions::decode(description, *report).m_button_number, press.button);
    }

    void theLectraLayoutComesBack_data() { addTextRows("lectra-points.txt", 2); }

    void theLectraLayoutComesBack()
    {
        QFETCH(TextRow, row);
        const Press press = pressOf(row.fields.at(0));
        const auto report = encodeLectraE92Report(press);
        QCOMPARE(outcomeOf(report), row.text(1));
        if (!report)
            return;
        const DigitalReport delivered = LectraE92::reportOf(report->constData());
        QCOMPARE(delivered.m_button_number, press.button);
        QVERIFY(std::abs(delivered.coordinate().x() - press.point.x()) <= 0.005 + 1e-9);
        QVERIFY(std::abs(delivered.coordinate().y() - press.point.y()) <= 0.005 + 1e-9);
    }

    void scriptsAreReadOrRefused_data() { addTextRows("scripts.txt", 2); }

    void scriptsAreReadOrRefused()
    {
        QFETCH(TextRow, row);
        const auto presses = readScript(row.fields.at(0));
        QStringList outcome;
        for (const Press& press : presses.value_or(QVector<Press>()))
            outcome
                << QString("%1 %2 %3,").arg(press.point.x()).arg(press.point.y()).arg(press.button);
        const QString line =
            "line 1: '" + row.text(0) +
            "' must be x and y in centimetres and a button number, such as 12.5 30 1";
        QCOMPARE(presses ? outcome.join(' ') : presses.error(), row.text(1).replace("LINE", line));
    }

    void sessionsComeBackAsTheyWereWritten()
    {
        const TestHost host;
        RecordedSession session;
        session.tablet = QString::fromUtf8("Täbli \"7\"\nsecond: line");
        session.driver = "Bit Pad: (CR)";
        session.date = QDateTime(QDate(2026, 3, 1), QTime(14, 2, 11), Qt::UTC);
        QByteArray everyByte(256, '\0');
        std::iota(everyByte.begin(), everyByte.end(), '\0');
        session.chunks.append({0, everyByte});
        SessionWriter writer(host.path("a.log"), session);
        QVERIFY2(writer.append({17, "0512,1034,1\r"}), qPrintable(writer.errorString()));

        // While the writer is still there: nothing may wait in a buffer.
        const auto read = readSession(Descriptions::contentOf(host.path("a.log")));
        QVERIFY2(read, qPrintable(read ? QString() : read.error()));
        QCOMPARE(read->tablet, session.tablet.simplified());
        QCOMPARE(read->driver, session.driver);
        QCOMPARE(read->settings, QString());
        QCOMPARE(read->date, session.date);
        QCOMPARE(read->chunks.size(), 2);
        QCOMPARE(read->chunks.at(0).bytes, everyByte);
        QCOMPARE(read->chunks.at(1).milliseconds, 17);
        QCOMPARE(read->chunks.at(1).bytes, QByteArray("0512,1034,1\r"));
        QVERIFY(
            !SessionWriter(host.path("a.log"), session).errorString().isEmpty()); // never over it
    }

    void sessionsAreReadOrRefused_data() { addTextRows("sessions.txt", 2); }

    void sessionsAreReadOrRefused()
    {
        QFETCH(TextRow, row);
        const auto read = readSession("# digitizer session 1\n" + row.fields.at(0));
        const QString chunk =
            "line 2: '" + row.text(0) +
            "' is not a time in milliseconds, a blank and bytes in double quotes, such "
            "as 120 \"0512\\r\"";
        QCOMPARE(read ? QString() : read.error(), row.text(1).replace("CHUNK", chunk));
        QCOMPARE(readSession(row.fields.at(0)).error(),
                 QString("line 1: a recorded session must begin with \"# digitizer session 1\""));
    }

    void faultsChangeTheWrites_data() { addTextRows("simulated-faults.txt", 4); }

    void faultsChangeTheWrites()
    {
        QFETCH(TextRow, row);
        LineFaults faults;
        faults.mergedReports = row.fields.at(0).toInt();
        faults.splitOffset = row.fields.at(1).toInt();
        faults.hangUpAfter = row.fields.at(2).toInt();
        const auto writes = [&](bool garbage, unsigned seed) {
            faults.garbage = garbage;
            faults.seed = seed;
            QStringList texts;
            for (const Transmission& write :
                 withFaults({{10, "abc"}, {20, "def"}, {30, "ghi"}}, faults))
                texts << QString::number(write.pauseMicroseconds)
                      << QString::fromLatin1(write.bytes);
            return texts.join(' ');
        };
        QCOMPARE(writes(false, 1), row.text(3));
        QCOMPARE(writes(true, 1), writes(true, 1));
        QCOMPARE(writes(true, 1) == writes(true, 2), faults.hangUpAfter == 0);
    }
};

QTEST_GUILESS_MAIN(SimulationTest)
#include "SimulationTest.moc"
