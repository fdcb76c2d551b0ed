// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/FieldDecoding.h"
#include "DigitizerGeneric/Digitizer/LectraE92.h"
#include "Fuzzing/FuzzTarget.h"
#include "support/DescriptionBuilder.h"
#include "support/TestHost.h"
#include "support/TextRows.h"

#include <cstring>
#include <locale>
#include <memory>
#include <random>

using namespace MavSystem;

namespace {
std::unique_ptr<DigitizerArgument> loaded(const DescriptionBuilder& file)
{
    TestHost host;
    host.writeDescription("a", file.xml());
    return std::unique_ptr<DigitizerArgument>(DigitizerArgument::digitizerArgument("A"));
}

DigitalReport decoded(const DigitizerArgument& description, const char* text, int flags = 0x7f)
{
    return FieldDecoding::reportOf(description, ReportLayout(description), text, flags);
}

/// Compares with "x y button", to the precision of QCOMPARE.
void compare(const DigitalReport& report, const QString& expected)
{
    const QStringList parts = expected.split(' ');
    QCOMPARE(report.coordinate().x(), parts.at(0).toDouble());
    QCOMPARE(report.coordinate().y(), parts.at(1).toDouble());
    QCOMPARE(report.m_button_number, parts.at(2).toInt());
}

} // namespace

/// From the characters of a report to a point and a button number.
class DecodingTest : public QObject
{
    Q_OBJECT

private slots:
    void reportsDecodeByTheTemplate_data() { addTextRows("decoding.txt", 4); }

    void reportsDecodeByTheTemplate()
    {
        QFETCH(TextRow, row);
        const QByteArray roles = expanded(row.fields.at(0));
        const QByteArrayList resolution = row.fields.at(2).split(' ');
        const auto description = loaded(DescriptionBuilder().report(roles).resolution(
            resolution.at(0).toInt(), resolution.at(1)));
        QCOMPARE(description->m_reportFormat.size(), std::size_t(roles.size()));
        compare(decoded(*description, expanded(row.fields.at(1))), row.text(3));
        // More would be written behind a code.
        QVERIFY(ReportLayout(*description).button.size() <= ButtonValue().m_code.size());
    }

    void flagsChooseWhatIsDecoded()
    {
        const auto description = loaded(DescriptionBuilder());
        compare(decoded(*description, "123456782", 0), "0 0 0");
        compare(decoded(*description, "123456782", 1), "0 0 2");
        compare(decoded(*description, "123456782", 2), "12.34 56.78 0");
        compare(decoded(*description, "123456782", 0x7c), "0 0 0");
    }

    void buttonsMatchByTheirCodes_data() { addTextRows("buttons.txt", 4); }

    void buttonsMatchByTheirCodes()
    {
        QFETCH(TextRow, row);
        const QByteArrayList numbers = row.fields.at(0).split(' ');
        QByteArrayList codes = row.fields.at(1).split(' ');
        codes.removeAll(QByteArray());
        const auto description =
            loaded(DescriptionBuilder().buttons(numbers.at(0), numbers.at(1).toInt(), codes));
        ButtonValue code;
        std::memcpy(code.m_code.data(), row.fields.at(2).leftJustified(3).constData(), 3);
        QCOMPARE(int(FieldDecoding::buttonNumberOf(*description, code)), row.fields.at(3).toInt());
    }

    void fourButtonsAreFourEntries()
    {
        const std::vector<ButtonValue> codes = {{{'1'}}, {{'2'}}, {{'3'}}, {{'4'}}, {{'5'}}};
        const DigitizerArgument record(true, PortSettings(), 1, LPMM, 0, {}, 1, codes);
        QCOMPARE(int(FieldDecoding::buttonNumberOf(record, codes[3])), 4);
        QCOMPARE(int(FieldDecoding::buttonNumberOf(record, codes[4])), 0);
    }

    void lectraReportsAreCheckedAndRead_data() { addTextRows("lectra.txt", 3); }

    void lectraReportsAreCheckedAndRead()
    {
        QFETCH(TextRow, row);
        QByteArray text = "uuuuuu32u0__1234u_56789";
        text.replace(row.fields.at(0).toInt(), row.fields.at(1).size(), row.fields.at(1));
        compare(LectraE92::reportOf(text.replace('_', ' ')), row.text(2));
    }

    // What the plain reference gives is what the fuzz target requires.
    void theInterfaceAgreesWithAPlainReference()
    {
        const unsigned seed = std::random_device()();
        qInfo("seed %u", seed);
        std::mt19937 random(seed);
        const auto below = [&](int limit) { return int(random() % unsigned(limit)); };
        const auto text = [&](int size, const QByteArray& alphabet) {
            QByteArray characters;
            while (characters.size() < size)
                characters += alphabet.at(below(alphabet.size()));
            return characters;
        };
        for (int round = 0; round < 2000; ++round) {
            const int size = round % 100 ? 1 + below(40) : 500 + below(40);
            QByteArray head = text(4, "\x01\x27\x52\x53\x83\xff");
            head[2] = char(below(8));
            fuzz(head + text(size, "XXXXYYYY..SSBUCL") + '\n' +
                 text(size, round % 2 ? "0123456789" : "0123456789 -+.x\xe9"));
        }
    }

    void noLocaleTouchesANumber()
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
        const DigitalReport report = decoded(*description, "1234.565678.902");
        std::locale::global(before);
        QLocale::setDefault(QLocale::c());
        compare(report, "0.123456 0.567890 2");
    }
};

QTEST_GUILESS_MAIN(DecodingTest)
#include "DecodingTest.moc"
