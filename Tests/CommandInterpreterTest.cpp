// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/File_Digital/ConvertedCommandFields.h"
#include "DigitizerGeneric/File_Digital/ConvertedCommandInterpreter.h"

#include <QtTest>

using namespace MavSystem;

/// Taking one converted command off a text, in both forms: into maps and into views.
class CommandInterpreterTest : public QObject
{
    Q_OBJECT

private slots:
    void oneCommandIsTaken_data();
    void oneCommandIsTaken();
    void whatTheMapsHoldStays();
    void anEmptyTextChangesNothing();
};

namespace {

// "1=5 2=0": position and digit of each entry.
QString readable(const QMap<int, char>& field)
{
    QStringList entries;
    for (auto entry = field.begin(); entry != field.end(); ++entry)
        entries << QStringLiteral("%1=%2").arg(entry.key()).arg(QLatin1Char(entry.value()));
    return entries.join(QLatin1Char(' '));
}

std::string digitsOf(const QMap<int, char>& field)
{
    return std::string(field.begin(), field.end());
}

} // namespace

void CommandInterpreterTest::oneCommandIsTaken_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<char>("code");
    QTest::addColumn<QString>("x");
    QTest::addColumn<QString>("y");
    QTest::addColumn<QByteArray>("rest");
    const auto row = [](const char* name, const QByteArray& text, char code, const char* x,
                        const char* y, const QByteArray& rest) {
        QTest::newRow(name) << text << code << QString::fromLatin1(x) << QString::fromLatin1(y)
                            << rest;
    };
    row("one", "40 0\n\r", '4', "1=0", "3=0", "");
    row("two", "1120 45\n\r27 8\n\r", '1', "1=1 2=2 3=0", "5=4 6=5", "27 8\n\r");
    row("x negative", "1-5 7\n\r", '1', "", "4=7", "");
    row("y negative", "15 -7\n\r", '1', "1=5", "", "");
    row("longest", "3-32768 -32768\n\r3", '3', "", "", "3");
    row("any code",
        "\xff"
        "1 2\n\r",
        '\xff', "1=1", "3=2", "");
    row("byte above 127 ends digits",
        "11\xb2"
        "3 4\xb2\n\r",
        '1', "1=1", "5=4", "");
    row("no separator", "1234\n\r5", '1', "1=2 2=3 3=4", "0=1 1=2 2=3 3=4", "5");
    row("no separator, no digits", "a\n\r", 'a', "", "", "");
    row("separator first", " 12\r", ' ', "1=1 2=2", "1=1 2=2", "");
    row("separator of the next command", "12\n\r3 4\n\r", '1', "1=2", "6=4", "3 4\n\r");
    row("separator last", "12 ", '1', "1=2", "", "12 ");
    row("no carriage return", "11 2\n", '1', "1=1", "3=2", "11 2\n");
    row("carriage return first", "\r11 2\n\r", '\r', "1=1 2=1", "4=2", "");
    row("carriage return last", "11 2\n\r", '1', "1=1", "3=2", "");
    row("one character", "7", '7', "", "0=7", "7");
    row("carriage return only", "\r", '\r', "", "", "");
    row("zero byte",
        QByteArray("1\0"
                   "2 3\r",
                   6),
        '1', "", "4=3", "");
}

void CommandInterpreterTest::oneCommandIsTaken()
{
    QFETCH(QByteArray, text);
    QFETCH(char, code);
    std::string commands = text.toStdString();
    ButtonValue button{{'?', 'b', 'c'}};
    QMap<int, char> x;
    QMap<int, char> y;
    QVERIFY(t_ConvertedCommandInterpreter::interpreter(commands, button, x, y));
    QCOMPARE(button.m_code[0], code);
    QCOMPARE(button.m_code[1], 'b');
    QCOMPARE(button.m_code[2], 'c');
    QTEST(readable(x), "x");
    QTEST(readable(y), "y");
    QTEST(QByteArray::fromStdString(commands), "rest");

    const std::string whole = text.toStdString();
    const ConvertedCommandFields fields = ConvertedCommandFields::of(whole);
    QCOMPARE(fields.code, code);
    QCOMPARE(std::string(fields.x), digitsOf(x));
    QCOMPARE(std::string(fields.y), digitsOf(y));
    QCOMPARE(fields.length, whole.size() - commands.size());
}

void CommandInterpreterTest::whatTheMapsHoldStays()
{
    std::string commands = "112 3\n\r";
    ButtonValue button;
    QMap<int, char> x = {{2, 'a'}, {9, 'b'}};
    QMap<int, char> y = {{0, 'c'}};
    QVERIFY(t_ConvertedCommandInterpreter::interpreter(commands, button, x, y));
    QCOMPARE(readable(x), QStringLiteral("1=1 2=2 9=b"));
    QCOMPARE(readable(y), QStringLiteral("0=c 4=3"));
}

void CommandInterpreterTest::anEmptyTextChangesNothing()
{
    std::string commands;
    ButtonValue button{{'a', 'b', 'c'}};
    QMap<int, char> x = {{1, 'x'}};
    QMap<int, char> y;
    QVERIFY(!t_ConvertedCommandInterpreter::interpreter(commands, button, x, y));
    QCOMPARE(button.m_code[0], 'a');
    QCOMPARE(readable(x) + readable(y), QStringLiteral("1=x"));
}

QTEST_GUILESS_MAIN(CommandInterpreterTest)
#include "CommandInterpreterTest.moc"
