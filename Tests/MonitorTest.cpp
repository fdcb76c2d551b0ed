// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/FieldDecoding.h"
#include "ReferenceHost/Serial/LineMonitor.h"
#include "support/DescribedTemplate.h"
#include "support/TextRows.h"

#include <QRegularExpression>

using namespace MavSystem;
using namespace ReferenceHost;

namespace {
LineMonitor monitor(const QByteArray& letters)
{
    DigitizerArgument description = describedTemplate(letters);
    description.m_resolution = 10;
    description.m_fourButtons = true;
    description.m_buttonCodeLength = 1;
    description.m_buttons = {{{'1', ' ', ' '}}, {{'2', ' ', ' '}}};
    return LineMonitor(description, [=](const QByteArray& bytes) -> std::optional<DigitalReport> {
        return FieldDecoding::reportOf(description, ReportLayout(description), bytes.constData(),
                                       FieldDecoding::decodeButton |
                                           FieldDecoding::decodeCoordinate);
    });
}

} // namespace

/// What "monitor" makes of the bytes of a tablet.
class MonitorTest : public QObject
{
    Q_OBJECT

private slots:
    void bytesAreListedWithTheirRoles_data() { addTextRows("monitor.txt", 3); }

    void bytesAreListedWithTheirRoles()
    {
        QFETCH(TextRow, row);
        const QByteArray letters = row.fields.at(0);
        const QByteArray bytes = row.fields.at(1);
        LineMonitor listing = monitor(letters);
        QString text = listing.take(1500, bytes);
        text += listing.pause(2000);
        const int marks = text.indexOf('\n') + 1;
        if (!letters.isEmpty()) // beneath each other
            QCOMPARE(text.indexOf(QRegularExpression("[XY?]")), marks + 13);
        QCOMPARE(text.replace(QRegularExpression(" +"), " "), row.text(2));

        LineMonitor plain;
        QVERIFY(plain.take(0, bytes).contains(bytes.left(20).toHex(' ')));
        QCOMPARE(plain.summary(),
                 QString("%1 byte%2\n").arg(bytes.size()).arg(bytes.size() == 1 ? "" : "s"));
    }

    void theSummaryCounts()
    {
        LineMonitor listing = monitor("XXYYBC");
        QCOMPARE(listing.summary(), QString("0 bytes, 0 reports, 0 bytes passed over\n"));
        listing.take(1000, "12341\r");
        listing.take(1500, "!\r90051\r");
        listing.take(2000, "9:991\r12351\r");
        QCOMPARE(
            listing.summary(),
            QString("26 bytes, 3 reports (2.0 a second), 8 bytes passed over; largest x 0.9000 "
                    "cm, largest y 0.3500 cm\n"));
    }
};

QTEST_GUILESS_MAIN(MonitorTest)
#include "MonitorTest.moc"
