// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/File_Digital/DigipenDataConverter.h"
#include "DigitizerGeneric/File_Digital/DigipenState.h"
#include "DigitizerGeneric/File_Digital/DigipenStringAnalyzer.h"
#include "DigitizerGeneric/File_Digital/FatalError.h"

#include <QtTest>

#include <boost/exception/get_error_info.hpp>

#include <climits>
#include <locale>

using namespace MavSystem;

/// The lines of pen files, under a locale that groups digits.
class PenLineTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void linesBecomeEvents_data();
    void linesBecomeEvents();
    void numbersOfAnyLineAreRead_data();
    void numbersOfAnyLineAreRead();
    void commandsOfALineReplaceIt();
    void anUnknownConversionIsRefused_data();
    void anUnknownConversionIsRefused();
};

namespace {

struct Grouping : std::numpunct<char>
{
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

/// Takes the place of the pen's states and notes what reaches them.
struct RecordingState : t_DigipenState
{
    std::string commandCode() override { return {}; }
    void button(t_DigipenDataConverter& /*converter*/, int n) override
    {
        events << QStringLiteral("button %1").arg(n);
    }
    void coordinate(t_DigipenDataConverter& /*converter*/, short x, short y) override
    {
        events << QStringLiteral("at %1,%2").arg(x).arg(y);
    }

    QStringList events;
};

} // namespace

void PenLineTest::initTestCase()
{
    std::locale::global(std::locale(std::locale::classic(), new Grouping));
    QLocale::setDefault(QLocale(QLocale::German));
}

void PenLineTest::linesBecomeEvents_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("event");
    QTest::addColumn<bool>("result");
    const auto row = [](const char* name, const QByteArray& line, const char* event, bool result) {
        QTest::newRow(name) << line << QString::fromLatin1(event) << result;
    };
    row("button", "A pen - 3\r\n", "button 3", true);
    row("first marker counts", "A pen-#4-#2\n", "button 4", true);
    row("marker at once", "A--7", "button 7", true);
    row("negative", "A- -7", "button -7", false);
    row("blanks and sign", "A-x \t\v\f\r\n+2", "button 2", true);
    row("without a marker", "A 6 7\n", "button 6", true);
    row("marker at the end", "A-", "button 0", false);
    row("marker before the line end", "A-\n", "button 0", false);
    row("no number", "A - x\n", "button 0", false);
    row("only the letter", "A", "button 0", false);
    row("0", "A- 0\n", "button 0", false);
    row("1", "A- 1\n", "button 1", true);
    row("8", "A- 8\n", "button 8", true);
    row("9", "A- 9\n", "button 9", false);
    row("number beyond int", "A- 18446744073709551617\n", "button 2147483647", false);
    row("position", "X: 120 Y: 45\r\n", "at 120,45", true);
    row("text around the numbers", "X (mm):12mm, y:-7.9 :8\n", "at 12,-7", true);
    row("one marker", "X: 5\n", "at 5,0", true);
    row("no marker", "X 5 6\n", "at 0,0", true);
    row("only the letter X", "X\n", "at 0,0", true);
    row("empty numbers", "X::\n", "at 0,0", true);
    row("sign twice", "X:--5:+-6\n", "at 0,0", true);
    row("hexadecimal", "X:0x1F:1e3\n", "at 0,1", true);
    row("16 bits", "X:70000:-70000\n", "at 4464,-4464", true);
    row("limits", "X:32768:-32769\n", "at -32768,32767", true);
    row("beyond int", "X:2147483648:-99999999999\n", "at -1,0", true);
    row("number over a line end", "X:\r\n5:6", "at 5,6", true);
    row("megabyte of text", "X" + QByteArray(1 << 20, ' ') + ":7:8\n", "at 7,8", true);
    row("megabyte of zeros", "X:" + QByteArray(1 << 20, '0') + "7:8\n", "at 7,8", true);
    row("lower case", "x: 1 y: 2\n", "", false);
    row("lower case button", "a - 1\n", "", false);
    row("blank in front", " A - 1\n", "", false);
    row("another kind", "# X: 1 Y: 2\n", "", false);
    row("empty", "", "", false);
    row("line end", "\r\n", "", false);
}

void PenLineTest::linesBecomeEvents()
{
    QFETCH(QByteArray, line);
    t_DigipenStringAnalyzer analyzer(t_DigipenStringAnalyzer::CONVERSION_STANDARD);
    RecordingState state;
    analyzer.m_converter->m_state = &state;
    std::string text = line.toStdString();
    QTEST(analyzer.convert(text), "result");
    QTEST(state.events.join(QLatin1Char(' ')), "event");
    QVERIFY(text.empty());
}

void PenLineTest::numbersOfAnyLineAreRead_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QVector<int>>("button"); // and the result
    QTest::addColumn<QVector<int>>("position");
    QTest::newRow("position") << QByteArray("X:70000:-70000") << QVector<int>{0, 0}
                              << QVector<int>{70000, -70000};
    QTest::newRow("button") << QByteArray("A pen - 8") << QVector<int>{8, 1} << QVector<int>{0, 0};
    QTest::newRow("neither") << QByteArray("12 : 5-:9") << QVector<int>{9, 0} << QVector<int>{5, 9};
    QTest::newRow("one marker") << QByteArray("12 : 5") << QVector<int>{2, 1}
                                << QVector<int>{5, 12};
    QTest::newRow("saturation") << QByteArray("-:2147483648:-2147483649")
                                << QVector<int>{INT_MAX, 0} << QVector<int>{INT_MAX, INT_MIN};
    QTest::newRow("empty") << QByteArray() << QVector<int>{0, 0} << QVector<int>{0, 0};
}

void PenLineTest::numbersOfAnyLineAreRead()
{
    QFETCH(QByteArray, line);
    t_DigipenStringAnalyzer analyzer(t_DigipenStringAnalyzer::CONVERSION_STANDARD);
    RecordingState state;
    analyzer.m_converter->m_state = &state;
    std::string text = line.toStdString();
    int button = -1;
    const bool isButton = analyzer.getButton(text, button);
    QTEST((QVector<int>{button, isButton}), "button");
    int x = -1;
    int y = -1;
    QVERIFY(analyzer.getCoordinate(text, x, y));
    QTEST((QVector<int>{x, y}), "position");
    QCOMPARE(text, line.toStdString());
    QVERIFY(state.events.isEmpty());
}

void PenLineTest::commandsOfALineReplaceIt()
{
    t_DigipenStringAnalyzer analyzer(t_DigipenStringAnalyzer::CONVERSION_STANDARD);
    const auto converted = [&](std::string line) {
        analyzer.convert(line);
        return line;
    };
    QCOMPARE(converted("X: 12000 Y: -4500\n"), std::string("112000 -4500\n\r"));
    QCOMPARE(converted("A - 4\n"), std::string());
    QCOMPARE(converted("A - 2\n"), std::string("40 0\n\r"));
    analyzer.m_converter->m_commands = "left ";
    QCOMPARE(converted("X: 1 Y: 2\n"), std::string("left 21 2\n\r"));
    QVERIFY(analyzer.m_converter->m_commands.empty());
    std::string commands;
    QVERIFY(analyzer.generateEndOfPieceInstructions(commands));
    QCOMPARE(commands, std::string("40 0\n\r"));
    QVERIFY(!analyzer.generateEndOfPieceInstructions(commands));
}

void PenLineTest::anUnknownConversionIsRefused_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("refused");
    QTest::newRow("standard") << 0 << false;
    QTest::newRow("extended") << 1 << false;
    QTest::newRow("2") << 2 << true;
    QTest::newRow("-1") << -1 << true;
}

void PenLineTest::anUnknownConversionIsRefused()
{
    QFETCH(int, type);
    const auto construct = [&] {
        const t_DigipenStringAnalyzer analyzer{t_DigipenStringAnalyzer::e_Type_Conversion(type)};
    };
    int caught = 0;
    try {
        construct();
    } catch (const FatalError& error) {
        ++caught;
        QVERIFY(typeid(error) == typeid(FatalError));
        QCOMPARE(error.what(), "Unexpected Value");
        QCOMPARE(*boost::get_error_info<boost::throw_function>(error),
                 "MavSystem::t_DigipenStringAnalyzer::t_DigipenStringAnalyzer("
                 "MavSystem::t_DigipenStringAnalyzer::e_Type_Conversion)");
        QCOMPARE(*boost::get_error_info<boost::throw_file>(error),
                 "Source/DigitizerGeneric/File_Digital");
        QVERIFY(*boost::get_error_info<boost::throw_line>(error) > 0);
    }
    try {
        construct();
    } catch (const boost::exception&) {
        ++caught;
    }
    try {
        construct();
    } catch (const std::runtime_error&) {
        ++caught;
    }
    QFETCH(bool, refused);
    QCOMPARE(caught, refused ? 3 : 0);
    const FatalError unthrown(QStringLiteral("Gr\u00f6\u00dfe"));
    QCOMPARE(unthrown.what(), "Gr\xc3\xb6\xc3\x9f"
                              "e");
    QVERIFY(!boost::get_error_info<boost::throw_function>(unthrown));
}

QTEST_GUILESS_MAIN(PenLineTest)
#include "PenLineTest.moc"
