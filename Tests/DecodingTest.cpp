// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "DigitizerGeneric/Digitizer/FieldDecoding.h"
#include "DigitizerGeneric/Digitizer/ReceiveBuffer.h"
#include "support/DescriptionBuilder.h"
#include "support/TestHost.h"

#include <QtTest>

#include <cmath>
#include <cstring>
#include <limits>
#include <locale>
#include <memory>
#include <random>

using namespace MavSystem;

/// From the characters of a report to a point and a button number.
class DecodingTest : public QObject
{
    Q_OBJECT

private slots:
    void reportsDecodeByTheTemplate_data();
    void reportsDecodeByTheTemplate();
    void flagsChooseWhatIsDecoded();
    void buttonsMatchByTheirCodes_data();
    void buttonsMatchByTheirCodes();
    void fourButtonsAreFourEntries();
    void lectraReportsAreCheckedAndRead_data();
    void lectraReportsAreCheckedAndRead();
    void theInterfaceAgreesWithAPlainReference();
    void noLocaleTouchesANumber();
};

namespace {

constexpr char buttonCodes[] = "1234567890abcdef";

std::unique_ptr<DigitizerArgument> loaded(const DescriptionBuilder& file)
{
    TestHost host;
    host.writeDescription(QStringLiteral("a"), file.xml());
    return std::unique_ptr<DigitizerArgument>(
        DigitizerArgument::digitizerArgument(QStringLiteral("A")));
}

DigitalReport decoded(const DigitizerArgument& description, const char* text, int flags)
{
    return FieldDecoding::reportOf(description, ReportLayout(description), text, flags);
}

bool same(double left, double right)
{
    return std::memcmp(&left, &right, sizeof left) == 0 || (std::isnan(left) && std::isnan(right));
}

#define COMPARE_REPORT(report, x_, y_, button_)                                                    \
    do {                                                                                           \
        QCOMPARE((report).coordinate().x(), x_);                                                   \
        QCOMPARE((report).coordinate().y(), y_);                                                   \
        QCOMPARE((report).m_button_number, button_);                                               \
    } while (false)

} // namespace

void DecodingTest::reportsDecodeByTheTemplate_data()
{
    QTest::addColumn<QByteArray>("roles");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("unit");
    QTest::addColumn<int>("resolution");
    QTest::addColumn<double>("x");
    QTest::addColumn<double>("y");
    QTest::addColumn<int>("button"); // the codes are "1" to "4"

    const auto row = [](const char* name, const QByteArray& roles, const QByteArray& text,
                        const char* unit, int resolution, double x, double y, int button) {
        QTest::newRow(name) << roles << text << QByteArray(unit) << resolution << x << y << button;
    };
    const char full[] = "XXXX.XXYYYY.YYB";
    const char sent[] = "0123.456789.013";
    row("per millimetre", full, sent, "LPMM", 10, 1.2345, 67.8901, 3);
    row("40 per inch", full, sent, "LPI", 40, 123.45 * 0.0025, 6789.01 * 0.0025, 3);
    row("39 per inch", full, sent, "LPI", 39, 123.45 * 2.5396825396825 / 39,
        6789.01 * 2.5396825396825 / 39, 3);
    row("1000 per inch", full, sent, "LPI", 1000, 123.45 * 2.5396825396825 / 1000,
        6789.01 * 2.5396825396825 / 1000, 3);
    row("40 per millimetre", full, sent, "LPMM", 40, 123.45 / 400, 6789.01 / 400, 3);
    const double infinite = std::numeric_limits<double>::infinity();
    row("no resolution", full, sent, "LPMM", 0, infinite, infinite, 3);

    row("two signs", "SXXSYYB", "-12+34!", "LPMM", 1, -1.2, 3.4, 0);
    row("both negative", "SXXSYYB", "-12-341", "LPMM", 1, -1.2, -3.4, 1);
    row("one sign is that of x", "XXYYSB", "1234-1", "LPMM", 1, -1.2, 3.4, 1);
    row("of many signs the last is that of y", "SSSXXYYB", "-+-12341", "LPMM", 1, -1.2, -3.4, 1);
    row("a sign that is none", "SXXSYYB", "x12y341", "LPMM", 1, 1.2, 3.4, 1);
    row("the first point is that of x wherever it stands", "YY.YXX.X", "12.345.6", "LPMM", 1,
        0.0456, 12.3, 0);
    row("the second point is that of y", "XX.XYY.Y", "12.345.6", "LPMM", 1, 1.23, 4.56, 0);
    row("one point is that of x", "XXYY.Y", "1234.5", "LPMM", 1, 1.2, 34.5, 0);
    row("a third point changes nothing", "X.X.YY.Y", "1.2.34.5", "LPMM", 1, 0.12, 0.0345, 0);
    row("a point only in front", ".XXYY", ".1234", "LPMM", 1, 0.012, 3.4, 0);
    row("points are not looked at", "XX.XYY.Y", "12,34567", "LPMM", 1, 1.23, 4.57, 0);
    row("unused characters", "UXXUYYUCL", "912834700", "LPMM", 1, 1.2, 3.4, 0);
    row("only x", "XX", "12", "LPMM", 1, 1.2, 0.0, 0);
    row("no roles", "", "12", "LPMM", 1, 0.0, 0.0, 0);
    row("blanks count -16", "XXYY", " 1 2", "LPMM", 1, -15.9, -15.8, 0);
    row("characters above 0x7f are signed", "XXYY", "\xff\x31\x80\x32", "LPMM", 1,
        (-49 * 10 + 1) / 10.0, (-176 * 10 + 2) / 10.0, 0);
    row("further button characters are dropped", "BBBBXY", "1  91!", "LPMM", 1, 0.1, -1.5, 1);
    row("scattered button characters", "XBYBB", "12 4 ", "LPMM", 1, 0.1, -1.6, 2);

    const QByteArray padding(508, 'U');
    row("up to 512 characters", padding + "XXYY", padding + "1234", "LPMM", 1, 1.2, 3.4, 0);
    row("beyond 512 characters", padding + "XXYYXXYYB", padding + "123456781", "LPMM", 1, 1.2, 3.4,
        0);
    row("512 characters of one field", QByteArray(700, 'S'), QByteArray(700, '-'), "LPMM", 1, -0.0,
        -0.0, 0);
}

void DecodingTest::reportsDecodeByTheTemplate()
{
    QFETCH(QByteArray, roles);
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, unit);
    QFETCH(int, resolution);
    QFETCH(double, x);
    QFETCH(double, y);
    QFETCH(int, button);
    const auto description =
        loaded(DescriptionBuilder().report(roles).resolution(resolution, unit));
    QCOMPARE(description->m_reportFormat.size(), std::size_t(roles.size()));
    const DigitalReport report = decoded(*description, text.constData(), 0x7f);
    COMPARE_REPORT(report, x, y, button);
}

void DecodingTest::flagsChooseWhatIsDecoded()
{
    const auto description = loaded(DescriptionBuilder());
    COMPARE_REPORT(decoded(*description, "123456782", 0), 0.0, 0.0, 0);
    COMPARE_REPORT(decoded(*description, "123456782", 1), 0.0, 0.0, 2);
    COMPARE_REPORT(decoded(*description, "123456782", 2), 12.34, 56.78, 0);
    COMPARE_REPORT(decoded(*description, "123456782", 0x7c), 0.0, 0.0, 0);
}

void DecodingTest::buttonsMatchByTheirCodes_data()
{
    QTest::addColumn<QByteArray>("count");
    QTest::addColumn<int>("length");
    QTest::addColumn<QByteArrayList>("codes");
    QTest::addColumn<QByteArray>("code");
    QTest::addColumn<int>("button");

    const auto row = [](const char* name, const char* count, int length,
                        const QByteArrayList& codes, const char* code, int button) {
        QTest::newRow(name) << QByteArray(count) << length << codes << QByteArray(code) << button;
    };
    const QByteArrayList four = {"1", "2", "3", "4"};
    QByteArrayList sixteen;
    for (const char* code = buttonCodes; *code; ++code)
        sixteen << QByteArray(1, *code);
    row("entry 2 of four", "4", 1, four, "3  ", 3);
    row("none of four", "4", 1, four, "5  ", 0);
    row("entry 2 of sixteen", "16", 1, sixteen, "3  ", 2);
    row("the first of sixteen", "16", 1, sixteen, "1  ", 0);
    row("the last of sixteen", "16", 1, sixteen, "f  ", 15);
    row("the seventeenth", "17", 1, sixteen + QByteArrayList{"g"}, "g  ", 0);
    row("four under another count", "04", 1, four, "4  ", 3);
    row("a missing entry", "3", 1, {"1", "2", "3"}, "4  ", 0);
    row("no entries", "0", 1, {}, "   ", 0);
    row("an entry without a text is 0", "4", 1, {"1"}, "0  ", 2);
    row("length 0 matches at once", "4", 0, four, "9  ", 1);
    row("length 2 looks at two", "4", 2, {"ab", "ac"}, "acx", 2);
    row("length 3 looks at all", "4", 3, {"abc", "abd"}, "abd", 2);
    row("length 4 looks at three", "4", 4, {"abc", "abd"}, "abd", 2);
    row("a negative length looks at three", "4", -1, {"abc", "abd"}, "abd", 2);
    row("the first match wins", "4", 1, {"x", "1", "1"}, "1  ", 2);
    row("letter case counts", "4", 1, {"a", "A"}, "A  ", 2);
}

void DecodingTest::buttonsMatchByTheirCodes()
{
    QFETCH(QByteArray, count);
    QFETCH(int, length);
    QFETCH(QByteArrayList, codes);
    QFETCH(QByteArray, code);
    QFETCH(int, button);
    const auto description = loaded(DescriptionBuilder().buttons(count, length, codes));
    ButtonValue value;
    std::copy_n(code.begin(), 3, value.m_code.begin());
    QCOMPARE(int(FieldDecoding::buttonNumberOf(*description, value)), button);
}

void DecodingTest::fourButtonsAreFourEntries()
{
    const std::vector<ButtonValue> codes = {{{'1'}}, {{'2'}}, {{'3'}}, {{'4'}}, {{'5'}}};
    const DigitizerArgument record(true, PortSettings(), 1, LPMM, 0, {}, 1, codes);
    QCOMPARE(int(FieldDecoding::buttonNumberOf(record, codes[3])), 4);
    QCOMPARE(int(FieldDecoding::buttonNumberOf(record, codes[4])), 0);
}

void DecodingTest::lectraReportsAreCheckedAndRead_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<QByteArray>("characters"); // in place of those of the usual report
    QTest::addColumn<double>("x");
    QTest::addColumn<double>("y");
    QTest::addColumn<int>("button");

    const auto row = [](const char* name, int position, const QByteArray& characters,
                        double x = 0.0, double y = 0.0, int button = -1) {
        QTest::newRow(name) << position << characters << x << y << button;
    };
    row("usual", 0, "", 12.34, 567.89, 3);
    row("unread positions", 0, "\xff zz-x", 12.34, 567.89, 3);
    row("unread position 8", 8, "\x01", 12.34, 567.89, 3);
    row("unread position 16", 16, "-", 12.34, 567.89, 3);
    row("code 31", 6, "31", 12.34, 567.89, 2);
    row("code 34", 6, "34", 12.34, 567.89, 5);
    row("code 30", 6, "30");
    row("code 35", 6, "35");
    row("the sum of the code counts", 6, "2;", 12.34, 567.89, 2);
    row("the bytes of the code are unsigned", 6, "\x1f\xf9", 12.34, 567.89, 2);
    row("no 0 at 9", 9, "1");
    row("six digits", 10, "987654", 9876.54, 567.89, 3);
    row("a blank ends x", 10, "98 654", 6.54, 567.89, 3);
    row("blank x", 10, "      ");
    row("x zero", 10, "000000");
    row("a minus in front of x", 10, "-01234");
    row("a minus behind x", 10, "01234-", 123.4, 567.89, 3);
    row("a minus in x", 10, "99-001", 9899.99, 567.89, 3);
    row("only a minus", 10, "     -");
    row("six digits of y", 17, "123456", 12.34, 1234.56, 3);
    row("blank y", 17, "      ");
    row("y negative", 17, "-56789");
    row("characters above 0x7f are signed", 10,
        "   \xff"
        "00");
    row("no digits", 10, "    :;", 1.11, 567.89, 3);
    row("further characters", 23, "999999", 12.34, 567.89, 3);
}

void DecodingTest::lectraReportsAreCheckedAndRead()
{
    QFETCH(int, position);
    QFETCH(QByteArray, characters);
    QFETCH(double, x);
    QFETCH(double, y);
    QFETCH(int, button);
    QByteArray text = "uuuuuu32u0  1234u 56789";
    QCOMPARE(text.size(), 23);
    text.replace(position, characters.size(), characters);
    COMPARE_REPORT(FieldDecoding::lectraE92ReportOf(text.constData()), x, y, button);
}

namespace reference {

// The decoding written once more, straight from its rules, with maps and std::pow.
struct Cut
{
    QMap<int, char> x, y, signs;
    ButtonValue button;
    int xInteger = 0;
    int yInteger = 0;
};

Cut cut(const QByteArray& roles, const QByteArray& text)
{
    Cut result;
    int points = 0;
    std::size_t taken = 0;
    for (int i = 0; i < roles.size() && i < 512; ++i) {
        if (roles[i] == 'X')
            result.x[i] = text[i], result.xInteger += points < 1;
        if (roles[i] == 'Y')
            result.y[i] = text[i], result.yInteger += points < 2;
        if (roles[i] == 'S')
            result.signs[i] = text[i];
        if (roles[i] == 'B' && taken < 3)
            result.button.m_code[taken++] = text[i];
        points += roles[i] == '.';
    }
    return result;
}

double sum(const QMap<int, char>& digits, int exponent)
{
    double value = 0;
    for (const char c : digits)
        value += (static_cast<signed char>(c) - '0') * std::pow(10.0, exponent--);
    return value;
}

double scaled(double value, const QByteArray& unit, double resolution)
{
    if (unit != "LPI")
        return value / resolution / 10.0;
    return resolution == 40.0 ? value * 0.0025 : value * 2.5396825396825 / resolution;
}

double axis(const QMap<int, char>& digits, int integers, int sign, const QByteArray& unit, int r)
{
    return scaled(sum(digits, integers - 1) * sign, unit, r);
}

} // namespace reference

void DecodingTest::theInterfaceAgreesWithAPlainReference()
{
    const unsigned seed = std::random_device()();
    qInfo("seed %u", seed);
    std::mt19937 random(seed);
    const auto below = [&](int limit) { return int(random() % unsigned(limit)); };
    const auto text = [&](int size, const char* alphabet) {
        QByteArray characters;
        while (characters.size() < size)
            characters += alphabet[below(int(std::strlen(alphabet)))];
        return characters;
    };
    TestHost host;
    const auto digitizer = Digitizer::instance();
    for (int round = 0; round < 2000; ++round) {
        const int size = round % 100 ? 1 + below(40) : 500 + below(40);
        const QByteArray roles = text(size, "XXXXYYYY..SSBUCL");
        const QByteArray report = text(size, round % 2 ? "0123456789" : "0123456789 -+.x\xe9");
        const QByteArray unit = below(2) ? "LPI" : "LPMM";
        const int resolution = below(3) ? below(3000) - 500 : 40;
        host.writeDescription(QStringLiteral("a"), DescriptionBuilder()
                                                       .report(roles)
                                                       .resolution(resolution, unit)
                                                       .buttons("16", 1, {"1", "2", "3"})
                                                       .xml());
        digitizer->selectDevice(QStringLiteral("A"), QString());
        std::memset(receiveBuffer(), 0, std::size_t(receiveBufferCharacters));
        std::memcpy(receiveBuffer(), report.constData(), std::size_t(std::min(size, 512)));

        const reference::Cut cut = reference::cut(roles, report);
        const char xSign = cut.signs.isEmpty() ? '+' : cut.signs.first();
        const char ySign = cut.signs.size() < 2 ? '+' : cut.signs.last();
        const QList<short> signs = {short(xSign == '-' ? -1 : 1), short(ySign == '-' ? -1 : 1)};
        const double x = reference::axis(cut.x, cut.xInteger, signs[0], unit, resolution);
        const double y = reference::axis(cut.y, cut.yInteger, signs[1], unit, resolution);

        const DigitalReport parsed = digitizer->parseReportText(0x7f);
        const GeoPoint2D point = digitizer->getCoordinate(
            cut.x, cut.y, cut.signs, short(cut.xInteger - 1), short(cut.yInteger - 1));
        const QByteArray what =
            roles + " " + report + " " + unit + " " + QByteArray::number(resolution);
        QCOMPARE(digitizer->getSign(cut.signs), signs);
        QVERIFY2(same(parsed.coordinate().x(), x) && same(parsed.coordinate().y(), y), what);
        QVERIFY2(same(point.x(), x) && same(point.y(), y), what);
        QCOMPARE(parsed.m_button_number, int(digitizer->compareButtonNumber(cut.button)));
    }
}

void DecodingTest::noLocaleTouchesANumber()
{
    struct Grouping : std::numpunct<char>
    {
        char do_thousands_sep() const override { return '.'; }
        char do_decimal_point() const override { return ','; }
        std::string do_grouping() const override { return "\1"; }
    };
    const std::locale before = std::locale::global(std::locale(std::locale(), new Grouping));
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    const auto description =
        loaded(DescriptionBuilder().report("XXXX.XXYYYY.YYB").resolution(1000, "LPMM"));
    const DigitalReport report = decoded(*description, "1234.565678.902", 0x7f);
    std::locale::global(before);
    QLocale::setDefault(QLocale::c());
    COMPARE_REPORT(report, 0.123456, 0.567890, 2);
}

QTEST_GUILESS_MAIN(DecodingTest)
#include "DecodingTest.moc"
