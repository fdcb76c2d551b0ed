// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "DigitizerGeneric/File_Digital/ConvertedCommandFields.h"
#include "DigitizerGeneric/File_Digital/ConvertedCommandInterpreter.h"
#include "DigitizerGeneric/File_Digital/DigipenDataConverter.h"
#include "DigitizerGeneric/File_Digital/DigipenState_4ex.h"
#include "DigitizerGeneric/File_Digital/DigipenStringAnalyzer.h"
#include "DigitizerGeneric/File_Digital/FatalError.h"
#include "DigitizerGeneric/File_Digital/PenLineReader.h"
#include "support/RecordedMessages.h"
#include "support/TestHost.h"
#include "support/TextRows.h"

#include <QtTest>

#include <boost/exception/get_error_info.hpp>

#include <limits>
#include <locale>

using namespace MavSystem;

namespace {
struct Grouping : std::numpunct<char>
{
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

const QMap<QString, t_DigipenState* (*)()> singles = {
    {"Idle", single<t_IdleState>},
    {"Line", single<t_LineState>},
    {"Curve", single<t_CurveState>},
    {"Punch", single<t_PunchHoleState>},
    {"Terminate", single<t_TerminateInformationState>},
    {"Idle4", single<t_IdleState_4ex>},
    {"Line4", single<t_LineState_4ex>},
    {"Curve4", single<t_CurveState_4ex>},
    {"Button3", single<t_Button3State_4ex>},
    {"First1", single<t_Button3_1Phase1State_4ex>},
    {"First2", single<t_Button3_2Phase1State_4ex>},
    {"First3", single<t_Button3_3Phase1State_4ex>},
    {"Second1", single<t_Button3_1Phase2State_4ex>},
    {"Second2", single<t_Button3_2Phase2State_4ex>},
    {"Second3", single<t_Button3_3Phase2State_4ex>},
    {"Terminate4", single<t_TerminateInformationState_4ex>},
};

QString nameOf(const t_DigipenState* wanted)
{
    const auto found = std::find_if(singles.begin(), singles.end(),
                                    [=](auto single) { return single() == wanted; });
    return found == singles.end() ? QStringLiteral("none of them") : found.key();
}

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

/// An analyzer whose events reach a recording state.
struct Recorder : t_DigipenStringAnalyzer, RecordingState
{
    Recorder() : t_DigipenStringAnalyzer(CONVERSION_STANDARD) { m_converter->m_state = this; }
};

// "15,7" for the command with code 1 at (5, 7).
QString readable(const std::string& commands)
{
    QString text = QString::fromStdString(commands);
    text.replace(' ', ',').replace("\n\r", " ");
    return text.trimmed();
}

constexpr int position = -1; // as an event, at (5, -7); others are buttons

QString outcome(const QString& written, const QString& state, bool curve)
{
    return written + " to " + state + (curve ? " on a curve" : " on a line");
}

// As the row of the state says it.
QString outcomeOf(const TextRow& row, int event, bool internal, bool curve)
{
    const int column = event == position ? (internal ? 6 : 4) : 2; // that of the codes
    QStringList written;
    const QString codes = row.text(column).remove('-');
    for (const QChar code : codes)
        written << code + QLatin1String(event == position ? "5,-7" : "0,0");
    if (event == position && (row.name == "Line4" || row.name == "Curve4"))
        curve = row.name == "Curve4";
    QString next = "=";
    if (event == position)
        next = row.text(column + 1).section('/', curve ? -1 : 0, curve ? -1 : 0);
    else if (event >= 1 && event <= 4)
        next = row.text(3).split(' ').at(event - 1);
    return outcome(written.join(' '), next == "=" ? row.name : next, curve);
}

// "1=5 2=0": position and digit of each entry.
QString readable(const QMap<int, char>& field)
{
    QStringList entries;
    for (auto entry = field.begin(); entry != field.end(); ++entry)
        entries << QStringLiteral("%1=%2").arg(entry.key()).arg(QLatin1Char(entry.value()));
    return entries.join(' ');
}

// Does what one word of a sequence says; returns its answer.
QString run(const QString& event, t_DigipenDataConverter& converter)
{
    std::string commands = "what was there before";
    if (event == "end") {
        if (converter.generateEndOfPieceInstructions(commands) == commands.empty())
            return QStringLiteral("[a wrong result]");
        return '[' + readable(commands) + ']';
    }
    if (event == "?")
        return QLatin1String(converter.endCommandMissing() ? "[missing]" : "[complete]");
    if (event == "next")
        converter.reset();
    else if (event.contains(','))
        converter.coordinate(event.section(',', 0, 0).toShort(), event.section(',', 1).toShort());
    else
        converter.button(event.toInt());
    return readable(std::exchange(converter.m_commands, {}));
}

} // namespace

/// The parts of the pen input from a file's lines to the fields of a command, under a locale that
/// groups digits. Their tables are Rows/pen-*.txt.
class PenPartsTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        std::locale::global(std::locale(std::locale::classic(), new Grouping));
        QLocale::setDefault(QLocale(QLocale::German));
    }

    // first, while there are none
    void statesAreMadeWhenFirstNeededAndShared()
    {
        t_DigipenDataConverter one(single<t_LineState>());
        t_DigipenDataConverter other(single<t_LineState>());
        QVERIFY(!t_PunchHoleState::s_single);
        one.button(3);
        other.button(3);
        QVERIFY(t_PunchHoleState::s_single);
        QCOMPARE(one.m_state, other.m_state);
        // What is pending when the end of the file comes is taken along.
        one.coordinate(1, 2);
        std::string commands;
        QVERIFY(one.generateEndOfPieceInstructions(commands));
        QCOMPARE(commands, std::string("31 2\n\r40 0\n\r"));
        QVERIFY(one.m_commands.empty());
    }

    void everyStateTakesEveryEvent_data()
    {
        addTextRows("pen-states.txt", 8);
        QCOMPARE(textRows("pen-states.txt", 8).size(), singles.size());
    }

    void everyStateTakesEveryEvent()
    {
        QFETCH(TextRow, row);
        for (int choice = 0; choice < 8 * 4 * 2; ++choice) {
            const int event = QVector<int>{position, 0, 1, 2, 3, 4, 5, 9}.at(choice % 8);
            const int hostMode = QVector<int>{49, 50, 59, 60}.at(choice / 8 % 4);
            const bool internal = hostMode == 50 || hostMode == 59;
            const bool curve = choice / 32 == 1;
            t_DigipenState_4ex::m_curve = curve;
            Digitizer::instance()->m_host_mode = hostMode;
            t_DigipenState::m_internal_mode = !internal; // is not asked by states
            t_DigipenDataConverter converter(singles[row.name]());
            converter.m_state->enter();
            QCOMPARE(QString::fromStdString(converter.m_state->commandCode()),
                     row.text(0).remove('-'));
            QCOMPARE(converter.m_state->terminateButton(), 4);
            QCOMPARE(converter.m_state->is4ex(), row.fields.at(1) == "extended");
            if (event == position)
                converter.coordinate(5, -7);
            else
                converter.button(event);
            const QString what = QStringLiteral("event %1, mode %2: ").arg(event).arg(hostMode);
            QCOMPARE(what + outcome(readable(converter.m_commands), nameOf(converter.m_state),
                                    t_DigipenState_4ex::m_curve),
                     what + outcomeOf(row, event, internal, curve));
        }
    }

    void sequencesOfEvents_data() { addTextRows("pen-sequences.txt", 5); }

    void sequencesOfEvents()
    {
        QFETCH(TextRow, row);
        const int hostMode = row.text(1).toInt();
        Digitizer::instance()->m_host_mode = hostMode;
        t_DigipenState::m_internal_mode = hostMode != 0;
        t_DigipenState_4ex::m_curve = false;
        t_DigipenDataConverter converter(singles[row.text(0)]());
        QStringList written;
        for (const QString& event : row.text(2).split(' '))
            written << run(event, converter);
        written.removeAll(QString());
        QCOMPARE(written.join(' '), row.text(3));
        QCOMPARE(nameOf(converter.m_state), row.text(4));
    }

    void theCodesOfFirstPhasesAreFixed()
    {
        struct : t_Button3_2Phase1State_4ex
        {
            std::string commandCode() override { return "9"; }
        } state;
        for (const int hostMode : {50, 0}) {
            Digitizer::instance()->m_host_mode = hostMode;
            t_DigipenDataConverter converter(&state);
            converter.coordinate(5, -7);
            QCOMPARE(readable(converter.m_commands), hostMode == 50 ? "35,-7 25,-7" : "35,-7");
        }
    }

    void transitionsAreLogged()
    {
        t_DigipenDataConverter converter(single<t_LineState_4ex>());
        const RecordedMessages messages(true);
        converter.button(3);
        converter.button(7);
        converter.button(1);
        QCOMPARE(RecordedMessages::texts().join('\n'),
                 "pen state t_LineState_4ex to t_Button3State_4ex\n"
                 "pen state t_Button3State_4ex to t_Button3_1Phase1State_4ex");
    }

    // A line ends inside a block of the reader, at its end, or blocks later. Behind a zero byte
    // nothing counts, be it blocks later.
    void linesAreReadInBlocks()
    {
        const QByteArrayList lines = {QByteArray(32767, 'a') + '\n', "b\n", QByteArray(70000, 'c'),
                                      "\n", "d"};
        const QByteArray ignored = '\0' + QByteArray(40000, 'e') + '\n';
        QFile file(m_host.write("lines", lines.mid(0, 3).join() + ignored + lines.mid(3).join()));
        QVERIFY(file.open(QIODevice::ReadOnly | QIODevice::Unbuffered));
        PenLineReader reader(file);
        for (const int count : {2, 5}) { // the second round starts anew in the middle of a block
            QVERIFY(file.seek(0));
            reader.start();
            std::string line = "what was there before";
            for (const QByteArray& expected : lines.mid(0, count)) {
                QVERIFY(reader.next(line));
                QVERIFY2(line == expected.toStdString(), line.substr(0, 100).c_str());
            }
            QCOMPARE(reader.next(line), count == 2);
        }
    }

    void linesBecomeEvents_data() { addTextRows("pen-lines.txt", 3); }

    void linesBecomeEvents()
    {
        QFETCH(TextRow, row);
        Recorder recorder;
        std::string text = expanded(row.fields.at(0)).toStdString();
        QCOMPARE(recorder.convert(text), row.fields.at(2) == "yes");
        QCOMPARE(recorder.events.join(' '), row.text(1));
        QVERIFY(text.empty());
    }

    void numbersOfAnyLineAreRead_data() { addTextRows("pen-numbers.txt", 3); }

    void numbersOfAnyLineAreRead()
    {
        QFETCH(TextRow, row);
        Recorder recorder;
        std::string text = row.fields.at(0).toStdString();
        int button = -1;
        const bool isButton = recorder.getButton(text, button);
        int x = -1;
        int y = -1;
        QVERIFY(recorder.getCoordinate(text, x, y));
        QCOMPARE(QString::number(button) + QLatin1String(isButton ? " yes" : " no"), row.text(1));
        QCOMPARE(QStringLiteral("%1 %2").arg(x).arg(y), row.text(2));
        QCOMPARE(QByteArray::fromStdString(text), row.fields.at(0));
        QVERIFY(recorder.events.isEmpty());
    }

    void commandsOfALineReplaceIt()
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

    void anUnknownConversionIsRefused()
    {
        for (const int type : {-1, 2}) {
            try {
                const t_DigipenStringAnalyzer analyzer{
                    t_DigipenStringAnalyzer::e_Type_Conversion(type)};
                QFAIL("no error");
            } catch (const std::runtime_error& error) {
                QVERIFY(typeid(error) == typeid(FatalError));
                QCOMPARE(error.what(), "Unexpected Value");
                const auto& place = dynamic_cast<const boost::exception&>(error);
                QCOMPARE(*boost::get_error_info<boost::throw_function>(place),
                         "MavSystem::t_DigipenStringAnalyzer::t_DigipenStringAnalyzer("
                         "MavSystem::t_DigipenStringAnalyzer::e_Type_Conversion)");
                QCOMPARE(*boost::get_error_info<boost::throw_file>(place),
                         "Source/DigitizerGeneric/File_Digital");
                QVERIFY(*boost::get_error_info<boost::throw_line>(place) > 0);
            }
        }
        const FatalError unthrown("Gr\u00f6\u00dfe");
        QCOMPARE(QString::fromUtf8(unthrown.what()), "Gr\u00f6\u00dfe");
        QVERIFY(!boost::get_error_info<boost::throw_function>(unthrown));
    }

    void oneCommandIsTaken_data() { addTextRows("pen-commands.txt", 5); }

    void oneCommandIsTaken()
    {
        QFETCH(TextRow, row);
        const std::string whole = row.fields.at(0).toStdString();
        std::string commands = whole;
        ButtonValue button{{'?', 'b', 'c'}};
        QMap<int, char> x;
        QMap<int, char> y;
        QVERIFY(t_ConvertedCommandInterpreter::interpreter(commands, button, x, y));
        QCOMPARE(QByteArray(button.m_code.data(), 3), QByteArray(row.fields.at(1) + "bc"));
        QCOMPARE(readable(x), row.text(2));
        QCOMPARE(readable(y), row.text(3));
        QCOMPARE(QByteArray::fromStdString(commands), row.fields.at(4));
        // As views into the text.
        const ConvertedCommandFields views = ConvertedCommandFields::of(whole);
        QCOMPARE(views.code, button.m_code[0]);
        QCOMPARE(std::string(views.x), std::string(x.begin(), x.end()));
        QCOMPARE(std::string(views.y), std::string(y.begin(), y.end()));
        QCOMPARE(views.length, whole.size() - commands.size());
    }

    void whatTheMapsHoldStays()
    {
        std::string commands = "112 3\n\r";
        ButtonValue button;
        QMap<int, char> x = {{2, 'a'}, {9, 'b'}};
        QMap<int, char> y = {{0, 'c'}};
        QVERIFY(t_ConvertedCommandInterpreter::interpreter(commands, button, x, y));
        // An empty text changes nothing.
        button.m_code[0] = 'a';
        QVERIFY(!t_ConvertedCommandInterpreter::interpreter(commands, button, x, y));
        QCOMPARE(button.m_code[0], 'a');
        QCOMPARE(readable(x), "1=1 2=2 9=b");
        QCOMPARE(readable(y), "0=c 4=3");
    }

    void bothCoordinatesMakeAClosingReport()
    {
        const double smallest = std::numeric_limits<double>::min();
        QVERIFY(DigitalReport(smallest, smallest).isClosing());
        QVERIFY(!DigitalReport(smallest, 0).isClosing());
        QVERIFY(!DigitalReport(0, smallest).isClosing());
    }

private:
    TestHost m_host;
};

QTEST_GUILESS_MAIN(PenPartsTest)
#include "PenPartsTest.moc"
