// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/DescriptionFiles.h"
#include "DigitizerGeneric/Digitizer/DigitizerArgument.h"
#include "support/DescriptionBuilder.h"
#include "support/TestHost.h"

#include <QtTest>

#include <cstdio>
#include <memory>

using namespace MavSystem;

/// Description files, good and bad, and the records that they become.
class DescriptionTest : public QObject
{
    Q_OBJECT

private slots:
    void elementsBecomeTheRecord_data();
    void elementsBecomeTheRecord();
    void aBrokenFileIsPassedOver_data();
    void aBrokenFileIsPassedOver();
    void theSearchAgreesWithParsingEveryFile_data();
    void theSearchAgreesWithParsingEveryFile();
    void onlyPlainVisibleFilesCount();
    void ofTwoFilesTheFirstListedCounts();
    void aChangedFileCountsAtOnce_data();
    void aChangedFileCountsAtOnce();
    void theConstructorWidensWithSign();
};

namespace {

const char emptyRecord[] = "serial 0,0,0,0,0; 0 LPMM; report 0 ; sixteen 0 ;";

QByteArray textOf(const DigitizerArgument& record)
{
    const PortSettings& port = record.m_portSettings;
    QByteArray roles;
    for (const ReportFormatValues role : record.m_reportFormat)
        roles += "?BXYU.SCL"[role];
    QByteArray codes;
    for (const ButtonValue& button : record.m_buttons)
        codes += "[" + QByteArray(button.m_code.data(), 3).replace('\0', "\\0") + "]";
    return QStringLiteral("serial %1,%2,%3,%4,%5; %6 %7; report %8 %9; ")
               .arg(port.BaudRate)
               .arg(port.DataBits)
               .arg(port.Parity)
               .arg(port.StopBits)
               .arg(port.FlowControl)
               .arg(record.m_resolution)
               .arg(QLatin1String(record.m_resolutionUnit == LPI ? "LPI" : "LPMM"))
               .arg(record.m_reportLength)
               .arg(QLatin1String(roles))
               .toLatin1() +
           (record.m_fourButtons ? "four " : "sixteen ") +
           QByteArray::number(qint64(record.m_buttonCodeLength)) + " " + codes + ";";
}

QByteArray load(const char* name)
{
    const std::unique_ptr<DigitizerArgument> record(
        DigitizerArgument::digitizerArgument(QString::fromUtf8(name)));
    return textOf(*record);
}

// A document type with a long entity that is used often: in content, in a default, or by itself.
QByteArray entityBomb(const QByteArray& declaration, const QByteArray& use, int uses,
                      const QByteArray& open, const QByteArray& close)
{
    return "<!DOCTYPE d [" + declaration + open + use.repeated(uses) + close;
}

} // namespace

void DescriptionTest::elementsBecomeTheRecord_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<QByteArray>("expected"); // a part of the record's text

    const auto row = [](const char* name, const DescriptionBuilder& file, const char* expected) {
        QTest::newRow(name) << file.xml() << QByteArray(expected);
    };
    using File = DescriptionBuilder;
    row("the usual file", File(),
        "serial 12,3,0,0,0; 10 LPMM; report 9 XXXXYYYYB; four 1 [1  ][2  ][3  ][4  ];");
    row("a name and nothing else", File().ioPort("").resolution("").reportFormat("").buttons(""),
        emptyRecord);
    row("every setting",
        File().ioPort("<ioPort><serial baudrate='300' databit='7' parity='Even' "
                      "stopbit='1.5' flowctrl='software'/></ioPort>"),
        "serial 6,2,2,1,2;");
    row("unknown settings",
        File().ioPort("<ioPort><serial baudrate='96' databit='6' parity='odd' "
                      "stopbit='3' flowctrl='None'/></ioPort>"),
        "serial 0,0,0,0,0;");
    row("the first of several",
        File().ioPort("<ioPort><x/><serial baudrate='300'/><serial "
                      "baudrate='600'/></ioPort><ioPort/>"),
        "serial 6,0,0,0,0;");

    row("lines per inch", File().resolution(1000, "LPI"), "; 1000 LPI;");
    row("a unit in lower case", File().resolution(1000, "lpi"), "; 1000 LPMM;");
    row("the largest resolution", File().resolution(32767, "LPMM"), "; 32767 LPMM;");
    row("a resolution beyond 16 bits", File().resolution(32768, "LPMM"), "; 0 LPMM;");
    row("the smallest resolution", File().resolution(-32768, "LPMM"), "; -32768 LPMM;");
    row("a resolution with decimals", File().resolution("<resolution>2.5</resolution>"),
        "; 0 LPMM;");

    row("every role", File().report("BXYU.SCL"), "report 8 BXYU.SCL;");
    row("a template cut to its length",
        File().reportFormat("<reportFormat length='10'>SXXXXXYYYYYBCL!</reportFormat>"),
        "report 10 SXXXXXYYYY;");
    row("a template without a length", File().reportFormat("<reportFormat>XY</reportFormat>"),
        "report 0 ;");
    for (const char* broken : {"<reportFormat length='4'>XYB</reportFormat>",
                               "<reportFormat length='3'>XYb</reportFormat>",
                               "<reportFormat length='4'> XYB</reportFormat>",
                               "<reportFormat length='-1'>XYB</reportFormat>",
                               "<reportFormat length='2147483647'>XYB</reportFormat>"})
        row(broken, File().reportFormat(broken), emptyRecord);

    row("a count of 04", File().buttons("04", 1, {"1"}), "sixteen 1 [1  ][0  ][0  ][0  ];");
    row("fewer buttons than the count", File().buttons("6", 2, {"a", "bc"}),
        "sixteen 2 [a  ][bc ][0  ][0  ][0  ][0  ];");
    row("more buttons than the count", File().buttons("2", 1, {"1", "2", "3"}),
        "sixteen 1 [1  ][2  ];");
    row("no count", File().buttons("<buttons><button>1</button></buttons>"), "sixteen 0 ;");
    row("a negative count", File().buttons("-1", 1, {"1"}), "sixteen 1 ;");
    row("a count beyond reason", File().buttons("2000000000", 1, {"1"}), emptyRecord);
    row("a code length beyond the code", File().buttons("1", 7, {"abcd"}), "sixteen 7 [abc];");
    row("a negative code length", File().buttons("1", -2, {"a"}), "sixteen -2 [a  ];");
    row("texts of a button", File().buttons("4", 3, {"", " 7", "a b", "7"}),
        "four 3 [   ][ 7 ][a b][7  ];");
    row("codes above one byte", File().buttons("3", 3, {"\xc3\xa9\xc4\x80z", "?", "\xe2\x82\xac"}),
        "sixteen 3 [\xe9\\0z][?  ][\\0  ];");
    row("other elements among the buttons",
        File().buttons("<buttons count='2'><x>8</x><button>1</button><x/><button>2</button>"
                       "</buttons><buttons count='4'/>"),
        "sixteen 0 [1  ][2  ];");
}

void DescriptionTest::elementsBecomeTheRecord()
{
    QFETCH(QByteArray, xml);
    QFETCH(QByteArray, expected);
    TestHost host;
    host.writeDescription(QStringLiteral("a"), xml);
    const QByteArray record = load("A");
    QVERIFY2(record.contains(expected), record + " does not hold " + expected);
    QCOMPARE(load("a"), QByteArray(emptyRecord));
}

void DescriptionTest::aBrokenFileIsPassedOver_data()
{
    QTest::addColumn<QByteArray>("xml");

    const QByteArray good = DescriptionBuilder().xml();
    const QByteArray longText(4000, 'x');
    const QByteArray entity = "<!ENTITY a '" + longText + "'>";
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("no root") << QByteArray("<!-- no element -->");
    QTest::newRow("cut off") << good.left(good.size() - 3);
    QTest::newRow("a second root") << good + good;
    QTest::newRow("wrong UTF-8") << good + "<!-- \xff\xfe -->";
    QTest::newRow("wrong UTF-8 in the name") << QByteArray(good).replace("'A'", "'A' x='\xc3'");
    QTest::newRow("undefined entity") << QByteArray(good).replace("<device ", "<device x='&u;' ");
    QTest::newRow("attribute given twice")
        << QByteArray(good).replace("<device", "<device x='1' x='2'");
    QTest::newRow("101 levels") << "<d name='A'>" + QByteArray("<e>").repeated(100) +
                                       QByteArray("</e>").repeated(100) + "</d>";
    QTest::newRow("30,000 levels") << "<d name='A'>" + QByteArray("<e>").repeated(30000) +
                                          QByteArray("</e>").repeated(30000) + "</d>";
    QTest::newRow("200,000 levels in the document type")
        << entityBomb("", "(", 200000, "<!ELEMENT d ", "a") + QByteArray(200000, ')') +
               ">]><d name='A'/>";
    QTest::newRow("larger than 1 MiB") << good + QByteArray(1024 * 1024, ' ');
    QTest::newRow("entity bomb in the text")
        << entityBomb(entity, "&a;", 20000, "]><d name='A'>", "</d>");
    QTest::newRow("entity bomb in a name")
        << entityBomb(entity, "&a;", 20000, "]><d name='A' x='", "'/>");
    QTest::newRow("entity bomb in a default")
        << entityBomb(entity, "&a;", 20000, "<!ATTLIST d x CDATA '", "'>]><d name='A'/>");
    QByteArray attributes;
    for (int number = 0; number < 100000; ++number)
        attributes += " a" + QByteArray::number(number, 36) + "=''";
    const QByteArray many = attributes + "/>";
    QTest::newRow("100,000 attributes") << "<d name='A'" + many;
    QTest::newRow("100,000 attributes behind a value that holds >") << "<d name='A' x='>'" + many;
    QTest::newRow("100,000 attributes behind comments")
        << "<?p '?><!-- ' --><!DOCTYPE d SYSTEM '>' [<!-- ' -->]><d name='A'" + many;
    QTest::newRow("100,000 attributes behind a CDATA section")
        << "<d name='A'>'<![CDATA[<!--'<]]><e" + many + "</d>";
    QTest::newRow("entity bomb behind literals that look like comments")
        << entityBomb("<!ENTITY c '<!--'><!NOTATION n SYSTEM '<?'>" + entity, "&a;", 20000,
                      "]><d name='A'>", "</d>");
    QTest::newRow("small entity bomb of elements")
        << entityBomb("<!ENTITY a '" + QByteArray("<e/>").repeated(1000) + "'>", "&a;", 3500,
                      "]><d name='A'>", "</d>");
    QTest::newRow("small entity bomb in an attribute")
        << entityBomb(entity, "&a;", 3500, "]><d name='A' x='", "'/>");
    QTest::newRow("small entity bomb in the text")
        << entityBomb(entity, "&a;", 3500, "]><d name='A'>", "</d>");
}

void DescriptionTest::aBrokenFileIsPassedOver()
{
    QFETCH(QByteArray, xml);
    TestHost host;
    host.writeDescription(QStringLiteral("broken"), xml);
    QVERIFY(!DescriptionFiles::find(QStringLiteral("A"), DescriptionFiles::BrokenFile::Skipped));
    // The search goes on, whichever file the directory lists first.
    host.writeDescription(QStringLiteral("good"), DescriptionBuilder().resolution(7, "LPI").xml());
    const QByteArray record = load("A");
    QVERIFY2(record.contains("; 7 LPI;"), record);
}

void DescriptionTest::theSearchAgreesWithParsingEveryFile_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<QString>("driver");

    const auto row = [](const char* xml, const char* driver) {
        QTest::newRow((QByteArray(xml) + " for \"" + driver + '"').constData())
            << QByteArray(xml) << QString::fromUtf8(driver);
    };
    row("<d name='A'/>", "A");
    row("<d name='A'/>", "a");
    row("<d name='A'/>", "A ");
    row("<d name=' A  B '/>", " A  B ");
    row("<d name=' A  B '/>", "A B");
    row("<d name='A\tB'/>", "A\tB");
    row("<d name='A\tB'/>", "A B");
    row("<d name='A\nB'/>", "A\nB");
    row("<d name='A\nB'/>", "A B");
    row("<d name='A&#10;B&amp;&#x20AC;'/>", "A\nB&\xe2\x82\xac");
    row("<!DOCTYPE d [<!ENTITY n 'A'>]><d name='&n;'><x>&n;</x></d>", "A");
    row("<!DOCTYPE d [<!ATTLIST d name CDATA 'A'>]><d/>", "A");
    row("<!DOCTYPE d [<!ATTLIST d name CDATA 'A'>]><d/>", "");
    row("<!DOCTYPE d SYSTEM 'd.dtd'><?p i?><!-- c --><d name='A'/>", "A");
    row("<p:d p:name='A'/>", "A");
    row("<p:d p:name='B' name='A'/>", "A");
    row("<d name='A'><e></d>", "A");
    row("<d name='A'/><e/>", "A");
    row("<d><d name='A'/></d>", "A");
    row("<d/>", "");
    row("<d name=''/>", "");
    row("\xef\xbb\xbf<d name='A'/>", "A");
    row("<?xml version='1.0' encoding='ISO-8859-1'?><d name='\xe9'/>", "\xc3\xa9");
    QTest::newRow("UTF-16") << QByteArray("\xff\xfe<\0d\0 \0n\0a\0m\0e\0=\0'\0A\0'\0/\0>\0", 28)
                            << QStringLiteral("A");
    QTest::newRow("the largest file with a declaration")
        << QByteArray("<!DOCTYPE d [<!ENTITY n 'A'>]><d name='&n;'/>").leftJustified(16 * 1024)
        << QStringLiteral("A");
    // What looks like markup, in a file large enough that declarations are refused.
    const QByteArray lookalikes =
        "<!ENTITY <!ELEMENT <!ATTLIST [" + QByteArray("a=\"b\" ").repeated(3000);
    QTest::newRow("a comment that looks like markup")
        << "<!-- it's " + lookalikes + "--><d name='A'/>" << QStringLiteral("A");
    QTest::newRow("a comment in the document type that looks like markup")
        << "<!DOCTYPE d [<!-- it's " + lookalikes + "-->]><d name='A'/>" << QStringLiteral("A");
    QTest::newRow("a processing instruction that looks like markup")
        << "<?p it's " + lookalikes + "?><d name='A'/>" << QStringLiteral("A");
    QTest::newRow("a CDATA section that looks like markup")
        << "<d name='A'><![CDATA[it's " + lookalikes + "]]></d>" << QStringLiteral("A");
    QTest::newRow("a text that looks like attributes")
        << "<d name='A'>it's > [" + lookalikes.mid(30) + "</d>" << QStringLiteral("A");
    const QByteArray levels = QByteArray("<e>").repeated(99) + QByteArray("</e>").repeated(99);
    QTest::newRow("100 levels") << "<d name='A'>" + levels + "</d>" << QStringLiteral("A");
}

void DescriptionTest::theSearchAgreesWithParsingEveryFile()
{
    QFETCH(QByteArray, xml);
    QFETCH(QString, driver);
    QDomDocument whole;
    const bool expected = whole.setContent(xml, false) &&
                          whole.documentElement().attribute(QStringLiteral("name")) == driver;
    TestHost host;
    host.writeDescription(QStringLiteral("a"), xml);
    const auto found = DescriptionFiles::find(driver, DescriptionFiles::BrokenFile::Skipped);
    QCOMPARE(found.has_value(), expected);
    if (found)
        QCOMPARE(found->document.toByteArray(), whole.toByteArray());
}

void DescriptionTest::onlyPlainVisibleFilesCount()
{
    TestHost host;
    QCOMPARE(load("A"), QByteArray(emptyRecord)); // no folder
    const QByteArray good = DescriptionBuilder().xml();
    host.writeDescription(QStringLiteral(".hidden.xml"), good);
    host.writeDescription(QStringLiteral("folder.xml/a.xml"), good);
    QCOMPARE(load("A"), QByteArray(emptyRecord));
    host.writeDescription(QStringLiteral("any name at all"), good);
    QVERIFY(load("A") != emptyRecord);
}

void DescriptionTest::ofTwoFilesTheFirstListedCounts()
{
    TestHost host;
    for (int number = 1; number <= 8; ++number)
        host.writeDescription(QString::number(number),
                              DescriptionBuilder().resolution(number, "LPI").xml());
    const QDir folder(host.path(QStringLiteral("data/generated")));
    const QString first = folder.entryList(QDir::Files, QDir::Unsorted).at(0);
    const QByteArray record = load("A");
    QVERIFY2(record.contains("; " + first.toLatin1() + " LPI;"), record);
}

void DescriptionTest::aChangedFileCountsAtOnce_data()
{
    QTest::addColumn<int>("age");
    QTest::addColumn<int>("laterAge");
    QTest::addColumn<bool>("replaced");
    QTest::newRow("written again long after") << 3600 << 60 << false;
    QTest::newRow("replaced by a file of the same time and size") << 3600 << 3600 << true;
    QTest::newRow("written twice between two steps of the clock") << 0 << 0 << false;
}

// The seconds are how long ago the file changed, at the first look and at the second one.
void DescriptionTest::aChangedFileCountsAtOnce()
{
    QFETCH(int, age);
    QFETCH(int, laterAge);
    QFETCH(bool, replaced);
    TestHost host;
    const QDateTime now = QDateTime::currentDateTime();
    const auto write = [&](const QString& name, int resolution, int secondsAgo) {
        QFile file(
            host.writeDescription(name, DescriptionBuilder().resolution(resolution, "LPI").xml()));
        return file.open(QIODevice::ReadWrite) &&
               file.setFileTime(now.addSecs(-secondsAgo), QFileDevice::FileModificationTime);
    };
    QVERIFY(write(QStringLiteral("a"), 7, age));
    const QByteArray first = load("A");
    QVERIFY2(first.contains("; 7 LPI;"), first);
    QVERIFY(write(QLatin1String(replaced ? ".b" : "a"), 8, laterAge));
    if (replaced)
        QCOMPARE(std::rename(qPrintable(host.path(QStringLiteral("data/generated/.b"))),
                             qPrintable(host.path(QStringLiteral("data/generated/a")))),
                 0);
    const QByteArray second = load("A");
    QVERIFY2(second.contains("; 8 LPI;"), second);
}

void DescriptionTest::theConstructorWidensWithSign()
{
    const DigitizerArgument record(true, PortSettings(), -5, LPI, -1, {FORMAT_X}, -2,
                                   {ButtonValue()});
    QCOMPARE(textOf(record), QByteArray("serial 0,0,0,0,0; -5 LPI; report 18446744073709551615 X; "
                                        "four -2 [   ];"));
}

QTEST_GUILESS_MAIN(DescriptionTest)
#include "DescriptionTest.moc"
