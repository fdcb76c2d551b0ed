// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/SerialSettings.h"

#include <QtTest>

using namespace MavSystem;

/// Looking up the texts of a description's serial settings.
class SettingTablesTest : public QObject
{
    Q_OBJECT

private slots:
    void textsMatchExactly_data();
    void textsMatchExactly();
    void anUnknownTextStaysWithZero();
};

namespace {

int lookUp(const QString& table, const QString& text)
{
    if (table == QLatin1String("baudrate"))
        return BaudrateMap()[text];
    if (table == QLatin1String("databit"))
        return DatabitMap()[text];
    if (table == QLatin1String("parity"))
        return ParityMap()[text];
    if (table == QLatin1String("stopbit"))
        return StopbitMap()[text];
    return FlowCtrlMap()[text];
}

} // namespace

void SettingTablesTest::textsMatchExactly_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<QStringList>("texts");
    QTest::addColumn<QList<int>>("values");

    const auto row = [](const char* table, const char* texts, const QList<int>& values) {
        QTest::newRow(table) << QString::fromLatin1(table)
                             << QString::fromLatin1(texts).split(QLatin1Char('|')) << values;
    };
    row("baudrate", "150|300|600|1200|2400|4800|9600|19200|38400|9600 |110|",
        {4, 6, 7, 8, 10, 11, 12, 14, 0, 0, 0, 0});
    row("databit", "7|8|5|6|", {2, 3, 0, 0, 0});
    row("parity", "None|Odd|Even|none|odd|Mark|Space|", {0, 1, 2, 0, 0, 0, 0, 0});
    row("stopbit", "1|1.5|2|1,5|2.0|", {0, 1, 2, 0, 0, 0});
    row("flowctrl", "none|hardware|software|Hardware|None|", {0, 1, 2, 0, 0, 0});
}

void SettingTablesTest::textsMatchExactly()
{
    QFETCH(QString, table);
    QFETCH(QStringList, texts);
    QFETCH(QList<int>, values);
    // Twice: the first look-up of an unknown text must not change what the second one gives.
    for (int round = 0; round < 2; ++round) {
        QList<int> found;
        for (const QString& text : qAsConst(texts))
            found << lookUp(table, text);
        QCOMPARE(found, values);
    }
}

void SettingTablesTest::anUnknownTextStaysWithZero()
{
    auto& table = BaudrateMap();
    const auto before = table;
    QCOMPARE(table[QStringLiteral("57600")], BAUD50);
    QCOMPARE(BaudrateMap().size(), before.size() + 1);
    QCOMPARE(BaudrateMap().at(QStringLiteral("57600")), BAUD50);
    BaudrateMap().erase(QStringLiteral("57600"));
    QVERIFY(table == before);
}

QTEST_GUILESS_MAIN(SettingTablesTest)
#include "SettingTablesTest.moc"
