// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "DigitizerGeneric/File_Digital/DigipenDataConverter.h"
#include "DigitizerGeneric/File_Digital/DigipenState_4ex.h"
#include "support/TestHost.h"

#include <QtTest>

using namespace MavSystem;

/// The pen's states: every state with every event, and sequences of events up to the end of a file.
class PenStateTest : public QObject
{
    Q_OBJECT

private slots:
    void statesAreMadeWhenFirstNeededAndShared(); // first, while there are none
    void everyStateTakesEveryEvent_data();
    void everyStateTakesEveryEvent();
    void sequencesOfEvents_data();
    void sequencesOfEvents();

private:
    TestHost m_host;
};

namespace {

struct NamedState
{
    const char* name;
    t_DigipenState* (*single)();
};

constexpr NamedState states[] = {
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

t_DigipenState* stateNamed(const QString& name)
{
    for (const NamedState& state : states) {
        if (name == QLatin1String(state.name))
            return state.single();
    }
    qFatal("no state %s", qPrintable(name));
}

QString nameOf(const t_DigipenState* wanted)
{
    for (const NamedState& state : states) {
        if (state.single() == wanted)
            return QLatin1String(state.name);
    }
    return QStringLiteral("none of them");
}

// "15,7" for the command with code 1 at (5, 7), without its blank.
QString readable(const std::string& commands)
{
    QString text = QString::fromStdString(commands);
    text.replace(QLatin1Char(' '), QLatin1Char(','))
        .replace(QLatin1String("\n\r"), QLatin1String(" "));
    return text.trimmed();
}

// What is done with a state: what it writes, and the state that follows. "=" stays, "A/B" depends
// on whether the last drawing position was on a line or on a curve.
struct Row
{
    const char* state;
    const char* code;
    const char* buttonWrites;
    const char* afterButtons; // 1 to 4
    const char* positionWrites;
    const char* afterPosition;
    const char* internalWrites; // in internal mode, where that differs
    const char* afterInternal;
};

constexpr char standard[] = "Line Curve Punch Terminate";
constexpr char extended[] = "Line4 Curve4 Button3 Terminate4";
constexpr char prefixed[] = "First1 First2 First3 Idle4";

constexpr Row rows[] = {
    {"Idle", "", "", standard, "", "=", "", "="},
    {"Line", "1", "", standard, "15,-7", "=", "15,-7", "="},
    {"Curve", "2", "", standard, "25,-7", "=", "25,-7", "="},
    {"Punch", "3", "", standard, "35,-7", "=", "35,-7", "="},
    {"Terminate", "4", "40,0", standard, "45,-7", "Line", "45,-7", "Line"},
    {"Idle4", "", "", standard, "", "=", "", "="},
    {"Line4", "1", "", extended, "15,-7", "=", "15,-7", "="},
    {"Curve4", "2", "", extended, "25,-7", "=", "25,-7", "="},
    {"Button3", "", "", prefixed, "", "Idle4", "", "Idle4"},
    {"First1", "3", "", extended, "35,-7", "Second1", "35,-7 15,-7", "="},
    {"First2", "3", "", extended, "35,-7", "Second2", "35,-7 25,-7", "="},
    {"First3", "3", "", extended, "35,-7", "Second3", "35,-7 35,-7", "="},
    {"Second1", "1", "", extended, "15,-7", "Line4/Curve4", "15,-7", "Line4/Curve4"},
    {"Second2", "2", "", extended, "25,-7", "Line4/Curve4", "25,-7", "Line4/Curve4"},
    {"Second3", "3", "", extended, "35,-7", "Line4/Curve4", "35,-7", "Line4/Curve4"},
    {"Terminate4", "4", "40,0", extended, "45,-7", "=", "45,-7", "Line4"},
};

constexpr int position = -1; // the event that is no button

} // namespace

void PenStateTest::everyStateTakesEveryEvent_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("event");
    QTest::addColumn<int>("hostMode");
    QTest::addColumn<bool>("curve");
    for (int row = 0; row < int(std::size(rows)); ++row) {
        for (const int event : {position, 0, 1, 2, 3, 4, 5, 9}) {
            for (const int hostMode : {49, 50, 59, 60}) {
                for (const bool curve : {false, true})
                    QTest::addRow("%s, %s %d, mode %d, %s", rows[row].state,
                                  event == position ? "position" : "button", event, hostMode,
                                  curve ? "curve" : "line")
                        << row << event << hostMode << curve;
            }
        }
    }
}

void PenStateTest::everyStateTakesEveryEvent()
{
    QFETCH(int, row);
    QFETCH(int, event);
    QFETCH(int, hostMode);
    QFETCH(bool, curve);
    const Row& expected = rows[row];
    const bool internal = hostMode == 50 || hostMode == 59;
    Digitizer::instance()->m_host_mode = hostMode;
    t_DigipenState::m_internal_mode = !internal; // is not asked by states
    t_DigipenState_4ex::m_curve = curve;
    t_DigipenDataConverter converter(stateNamed(QLatin1String(expected.state)));
    converter.m_state->enter();

    const QString before = nameOf(converter.m_state);
    QCOMPARE(QString::fromStdString(converter.m_state->commandCode()),
             QLatin1String(expected.code));
    QCOMPARE(converter.m_state->terminateButton(), 4);
    QCOMPARE(converter.m_state->is4ex(), before != QLatin1String("Idle4") && row > 4);
    QString after = QStringLiteral("=");
    if (event == position) {
        converter.coordinate(5, -7);
        after = QLatin1String(internal ? expected.afterInternal : expected.afterPosition);
        QCOMPARE(readable(converter.m_commands),
                 QLatin1String(internal ? expected.internalWrites : expected.positionWrites));
    } else {
        converter.button(event);
        if (event >= 1 && event <= 4)
            after = QString::fromLatin1(expected.afterButtons)
                        .section(QLatin1Char(' '), event - 1, event - 1);
        QCOMPARE(readable(converter.m_commands), QLatin1String(expected.buttonWrites));
        QCOMPARE(converter.m_last_button, event);
    }
    if (after.contains(QLatin1Char('/')))
        after = after.section(QLatin1Char('/'), curve ? 1 : 0, curve ? 1 : 0);
    QCOMPARE(nameOf(converter.m_state), after == QLatin1String("=") ? before : after);
    if (event == position && before == QLatin1String("Line4"))
        QVERIFY(!t_DigipenState_4ex::m_curve);
    else if (event == position && before == QLatin1String("Curve4"))
        QVERIFY(t_DigipenState_4ex::m_curve);
    else
        QCOMPARE(t_DigipenState_4ex::m_curve, curve);
}

// Events: "1" a button, "10,20" a position, "end" asks for the commands that close a piece, "?"
// whether they are missing, "next" starts the next file. What each answers stands in brackets.
void PenStateTest::sequencesOfEvents_data()
{
    QTest::addColumn<QString>("initial");
    QTest::addColumn<int>("hostMode");
    QTest::addColumn<QString>("events");
    QTest::addColumn<QString>("written");
    QTest::addColumn<QString>("state");
    const auto row = [](const char* name, const char* initial, int hostMode, const char* events,
                        const char* written, const char* state) {
        QTest::newRow(name) << QString::fromLatin1(initial) << hostMode
                            << QString::fromLatin1(events) << QString::fromLatin1(written)
                            << QString::fromLatin1(state);
    };
    row("a closed piece", "Line", 0, "1 10,20 30,40 2 50,60 4 70,80 ? end",
        "110,20 130,40 250,60 470,80 [complete] []", "Line");
    row("a piece left open", "Line", 0, "1 10,20 30,40 2 50,60 ? end ? end",
        "110,20 130,40 250,60 [missing] [40,0] [complete] []", "Line");
    row("terminate without a position", "Line", 0, "4 2", "40,0", "Curve");
    row("nothing, twice", "Line", 0, "end end next end", "[40,0] [] []", "Line");
    row("nothing, extended", "Line4", 0, "? end end next end", "[missing] [40,0] [] []", "Line4");
    row("hole, line", "Line4", 0, "3 1 1,1 2,2 3,3", "31,1 12,2 13,3", "Line4");
    row("hole, curve, after a curve", "Line4", 0, "2 1,1 3 2 2,2 3,3 4,4", "21,1 32,2 23,3 24,4",
        "Curve4");
    row("hole, hole, after a line", "Line4", 0, "1,1 3 3 2,2 3,3 4,4", "11,1 32,2 33,3 14,4",
        "Line4");
    row("internal hole and line", "Line4", 50, "3 1 1,1 2,2", "31,1 11,1 32,2 12,2", "First1");
    row("internal hole twice", "Line4", 59, "3 3 1,1", "31,1 31,1", "First3");
    row("terminate stays", "Line4", 0, "4 1,1 2,2 1", "41,1 42,2", "Line4");
    row("extended terminate without a position", "Line4", 0, "4 1", "40,0", "Line4");
    row("terminate again", "Line4", 0, "4 1,1 4 4", "41,1 40,0", "Terminate4");
    row("internal end", "Line4", 55, "4 1,1 ? end ? end ? end",
        "41,1 [missing] [40,0] [missing] [40,0] [complete] []", "Line4");
    row("internal end, left open", "Line4", 55, "1,1 end end end", "11,1 [40,0] [40,0] []",
        "Line4");
    row("internal end, twice", "Line4", 55, "1,1 end end end next end end end",
        "11,1 [40,0] [40,0] [] [40,0] [40,0] []", "Line4");
    row("internal end of the standard family", "Line", 55, "1,1 ? end ? end",
        "11,1 [missing] [40,0] [complete] []", "Line");
    row("end under the prefix", "Line4", 0, "1,1 3 end ? end", "11,1 [] [complete] []", "Idle4");
    row("end while idle", "Line4", 0, "3 4 end", "[40,0]", "Line");
    row("idle leads to the standard family", "Line4", 0, "3 4 3 1,1 3 1 2,2", "31,1 12,2", "Line");
    row("back to the family at the next file", "Line4", 0, "3 4 3 next 1,1", "11,1", "Line4");
    row("position under the prefix", "Line4", 0, "3 1,1 2,2", "", "Idle4");
    row("unknown buttons under the prefix", "Line4", 0, "3 5 0 1 1,1", "31,1", "Second1");
    row("the button before the last position counts", "Line", 0, "4 5 1,1 ? end",
        "40,0 41,1 [missing] [40,0]", "Line");
    row("a button after the last position does not", "Line", 0, "4 1,1 2 ?", "41,1 [complete]",
        "Curve");
    row("the recorded button lives on", "Line", 0, "4 1,1 next end 2,2 end", "41,1 [] 12,2 []",
        "Line");
    row("extremes", "Line", 0, "-32768,-32768 32767,32767 0,-1",
        "1-32768,-32768 132767,32767 10,-1", "Line");
}

void PenStateTest::sequencesOfEvents()
{
    QFETCH(QString, initial);
    QFETCH(int, hostMode);
    QFETCH(QString, events);
    Digitizer::instance()->m_host_mode = hostMode;
    t_DigipenState::m_internal_mode = hostMode != 0;
    t_DigipenState_4ex::m_curve = false;
    t_DigipenDataConverter converter(stateNamed(initial));
    QStringList written;
    const auto take = [&] {
        const QString commands = readable(converter.m_commands);
        converter.m_commands.clear();
        if (!commands.isEmpty())
            written << commands;
    };
    for (const QString& event : events.split(QLatin1Char(' '))) {
        if (event == QLatin1String("end")) {
            std::string commands = "what was there before";
            const bool any = converter.generateEndOfPieceInstructions(commands);
            QCOMPARE(any, !commands.empty());
            written << QStringLiteral("[%1]").arg(readable(commands));
        } else if (event == QLatin1String("?")) {
            written << QLatin1String(converter.endCommandMissing() ? "[missing]" : "[complete]");
        } else if (event == QLatin1String("next")) {
            converter.reset();
        } else if (event.contains(QLatin1Char(','))) {
            converter.coordinate(event.section(QLatin1Char(','), 0, 0).toShort(),
                                 event.section(QLatin1Char(','), 1).toShort());
        } else {
            converter.button(event.toInt());
        }
        take();
    }
    QTEST(written.join(QLatin1Char(' ')), "written");
    QTEST(nameOf(converter.m_state), "state");
}

void PenStateTest::statesAreMadeWhenFirstNeededAndShared()
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
    QCOMPARE(one.m_last_button, 4);
    QCOMPARE(one.m_coordinate_button, 4);
    QCOMPARE(one.m_end_of_piece_count, 1);
}

QTEST_GUILESS_MAIN(PenStateTest)
#include "PenStateTest.moc"
