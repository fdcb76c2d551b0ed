// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/BoundedXmlReader.h"
#include "DigitizerGeneric/Digitizer/DescriptionFiles.h"
#include "DigitizerGeneric/Digitizer/DescriptionFolder.h"
#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "DigitizerGeneric/Digitizer/SerialSettings.h"
#include "ReferenceHost/Lint/DescriptionKeys.h"
#include "ReferenceHost/Lint/DescriptionLint.h"
#include "support/ProgramRun.h"
#include "support/TestHost.h"
#include "support/WatchedPipe.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QSet>
#include <QTest>
#include <QTextCodec>

using namespace ReferenceHost;

namespace {

const QString source = QStringLiteral(SOURCE_DIRECTORY "/");

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("missing");
}

QStringList lint(const QByteArray& content, const QString& name)
{
    QStringList lines;
    for (const LintFinding& finding :
         lintDescription(content, {{QStringLiteral("Taken"), QStringLiteral("other.xml")}}))
        lines << textOf(name, finding);
    return lines;
}

QString lintOf(const QByteArray& content)
{
    return lint(content, QStringLiteral("x")).join(QLatin1Char('\n'));
}

void addFiles(const QString& folder)
{
    for (const QString& file : QDir(source + folder).entryList({QStringLiteral("*.xml")}))
        QTest::newRow(qPrintable(file)) << folder + QLatin1Char('/') + file;
}

void collectKeys(const KnownElement& element, const QString& path, QSet<QString>& keys)
{
    keys << path;
    for (const KnownAttribute& attribute : element.attributes)
        keys << path + QLatin1Char('@') + attribute.name;
    for (const KnownElement& child : element.children)
        collectKeys(child, path + QLatin1Char('/') + child.name, keys);
}

void collectKeys(const XmlElement& element, const QString& path, QSet<QString>& keys)
{
    keys << path;
    for (const XmlAttribute& attribute : element.attributes)
        keys << path + QLatin1Char('@') + attribute.name;
    for (const XmlElement& child : element.children)
        collectKeys(child, path + QLatin1Char('/') + child.name, keys);
}

} // namespace

class LintTest : public QObject
{
    Q_OBJECT

private slots:
    void faults_data();
    void faults();
    void goodFiles_data();
    void goodFiles();
    void exampleNamesEveryKey();
    void acceptedTextsStayThoseOfTheTables();
    void limits();
    void driverRefusesWhatLintRefuses_data();
    void driverRefusesWhatLintRefuses();
    void ownLayoutNeedsNoReport();
    void jsonNamesEachMember();
    void nobodyWaitsForAPipe_data();
    void nobodyWaitsForAPipe();

    void cleanupTestCase() { qInfo("%d of %d faulty files as expected", m_found, m_made); }

private:
    int m_made = 0;
    int m_found = 0;
};

void LintTest::faults_data()
{
    QTest::addColumn<QString>("path");
    addFiles(QStringLiteral("Tests/Lint"));
}

void LintTest::faults()
{
    QFETCH(QString, path);
    ++m_made;
    const QString name = path.section(QLatin1Char('/'), -1);
    QStringList expected;
    for (const QString& line :
         QString::fromUtf8(contentOf(source + QStringLiteral("Tests/Lint/expected.txt")))
             .split(QLatin1Char('\n'))) {
        if (line.startsWith(name + QLatin1Char(':')))
            expected << line;
    }
    QVERIFY2(!expected.isEmpty(), "no message is expected of this file");
    QCOMPARE(lint(contentOf(source + path), name).join(QLatin1Char('\n')),
             expected.join(QLatin1Char('\n')));
    ++m_found;
}

void LintTest::goodFiles_data()
{
    QTest::addColumn<QString>("path");
    addFiles(QStringLiteral("Plugins/digitizer/generated"));
    addFiles(QStringLiteral("Examples/descriptions"));
}

void LintTest::goodFiles()
{
    QFETCH(QString, path);
    QCOMPARE(lint(contentOf(source + path), path), QStringList());
}

void LintTest::exampleNamesEveryKey()
{
    QSet<QString> known;
    QSet<QString> shown;
    collectKeys(knownDescription(), QString(), known);
    const XmlOutline example =
        xmlOutline(contentOf(source + QStringLiteral("Examples/descriptions/annotated.xml")));
    QVERIFY(example.root);
    collectKeys(*example.root, QString(), shown);
    QCOMPARE(shown, known);
}

// A description that the driver has loaded leaves its wrong texts in the driver's tables.
void LintTest::acceptedTextsStayThoseOfTheTables()
{
    MavSystem::BaudrateMap()[QStringLiteral("38400")];
    const QString findings =
        lintOf(contentOf(source + QStringLiteral("Tests/Lint/baudrate-unknown.xml")));
    QVERIFY2(findings.contains(QLatin1String("found \"38400\"")) &&
                 !findings.contains(QLatin1String("19200, 38400")),
             qPrintable(findings));
}

void LintTest::limits()
{
    using namespace MavSystem;
    const QByteArray good =
        contentOf(source + QStringLiteral("Examples/descriptions/annotated.xml"));
    const int blanks = int(DescriptionLimits::bytes) - good.size();
    QCOMPARE(lintOf(good + QByteArray(blanks, ' ')), QString());
    QVERIFY(lintOf(good + QByteArray(blanks + 1, ' ')).contains(QLatin1String("1048576 bytes")));

    QByteArray attributes;
    for (int index = 0; index <= DescriptionLimits::attributesOfOneElement; ++index)
        attributes += " a" + QByteArray::number(index) + "\n=\t''";
    QVERIFY(lintOf("<d" + attributes + "/>").contains(QLatin1String("1000 attributes")));
    QVERIFY(!lintOf("<?xml version='1.0' encoding='a\nb'?><d/>").contains(QLatin1Char('\n')));
    const QByteArray one = "<e a=''/>";
    QVERIFY(!lintOf("<d>" + one.repeated(1001) + "</d>").contains(QLatin1String("well-formed")));
    attributes.truncate(attributes.lastIndexOf(' '));
    QVERIFY(lintOf("<d" + attributes + "/>").contains(QLatin1String("unknown attribute")));
}

void LintTest::driverRefusesWhatLintRefuses_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("expected"); // of files of the corpus: what lint says
    for (const char* folder : {"Tests/Lint/", "Plugins/digitizer/generated/"}) {
        for (const QString& file : QDir(source + QLatin1String(folder)).entryList(QDir::Files))
            QTest::newRow(qPrintable(file))
                << contentOf(source + QLatin1String(folder) + file) << QString();
    }
    const auto row = [](const char* title, const char* expected, const QByteArray& content) {
        QTest::newRow(title) << content << QString::fromLatin1(expected);
    };
    const auto filled = [](const QByteArray& begin, const QByteArray& unit, const QByteArray& end) {
        const int room = int(MavSystem::DescriptionLimits::bytes) - begin.size() - end.size();
        return begin + unit.repeated(room / unit.size()) + end;
    };
    const QByteArray entity = "<!DOCTYPE d [<!ENTITY e '" + QByteArray(4000, 'x') + "'>]><d name='";
    const QByteArray parameter =
        "<!DOCTYPE d [<!ENTITY % e '<!--" + QByteArray(4000, 'x') + "-->'>";
    row("entities in a text", "refused", filled(entity + "Corpus'>", "&e;", "</d>"));
    row("entities in an attribute", "refused", filled(entity, "&e;", "'/>"));
    row("entities in an attribute of a small file", "refused",
        entity + "Corpus' x='" + QByteArray("&e;").repeated(300) + "'/>");
    row("parameter entities", "refused", filled(parameter, "%e;", "]><d name='Corpus'/>"));
    row("deep content model", "refused",
        "<!DOCTYPE d [<!ELEMENT d " + QByteArray(500000, '(') + "a" + QByteArray(500000, ')') +
            ">]><d name='Corpus'/>");
    row("deep elements", "refused",
        "<d name='Corpus'>" + QByteArray("<a>").repeated(149000) +
            QByteArray("</a>").repeated(149000) + "</d>");
    row("many elements", "taken",
        "<d name='Corpus'>" + QByteArray("<e a=''/>").repeated(40000) + "</d>");
    row("cut character", "refused", "<d name='Corpus'/>\xc3");
    row("comments", "taken", filled("<d name='Corpus'>", "<!---->", "</d>"));
    row("declared default of the name", "taken", "<!DOCTYPE d [<!ATTLIST d name CDATA 'x'>]><d/>");
    for (const char* codec : {"UTF-16", "ISO-8859-1"})
        row(codec, "taken",
            QTextCodec::codecForName(codec)->fromUnicode(
                QStringLiteral(
                    "<?xml version=\"1.0\" encoding=\"%1\"?>\n<d name=\"Gr\u00f6\u00dfe\"/>")
                    .arg(QLatin1String(codec))));
}

// Whatever stands in a file, the search for a description takes it as lint does, and soon.
void LintTest::driverRefusesWhatLintRefuses()
{
    using namespace MavSystem;
    QFETCH(QByteArray, content);
    QFETCH(QString, expected);
    TestHost host;
    host.writeDescription(QStringLiteral("x.xml"), content);
    QElapsedTimer timer;
    timer.start();
    const auto root = xmlOutline(content).root;
    const XmlAttribute* name = root ? root->attribute(QStringLiteral("name")) : nullptr;
    const QString wanted = name ? name->value : root ? QString() : QStringLiteral("Corpus");
    const auto found = DescriptionFiles::find(wanted, DescriptionFiles::BrokenFile::Skipped);
    QVERIFY2(timer.elapsed() < 5000, qPrintable(QString::number(timer.elapsed())));
    QCOMPARE(found.has_value(), root.has_value());
    if (!expected.isEmpty())
        QCOMPARE(found.has_value(), expected == QLatin1String("taken"));
}

void LintTest::ownLayoutNeedsNoReport()
{
    const QByteArray head = "<d name='%1'><ioPort><serial baudrate='9600' databit='8' "
                            "parity='None' stopbit='1' flowctrl='none'/></ioPort></d>";
    QCOMPARE(lintOf(QByteArray(head).replace("%1", "lectra e92")), QString());
    QCOMPARE(lintOf(QByteArray(head).replace("%1", "E92")).count(QLatin1String("is missing")), 3);
}

void LintTest::jsonNamesEachMember()
{
    const LintFinding finding{{3, 7},
                              LintFinding::Warning,
                              QStringLiteral("w"),
                              QStringLiteral("f"),
                              QStringLiteral("a")};
    const QJsonObject expected{{QStringLiteral("file"), QStringLiteral("x.xml")},
                               {QStringLiteral("line"), 3},
                               {QStringLiteral("column"), 7},
                               {QStringLiteral("severity"), QStringLiteral("warning")},
                               {QStringLiteral("what"), QStringLiteral("w")},
                               {QStringLiteral("found"), QStringLiteral("f")},
                               {QStringLiteral("accepted"), QStringLiteral("a")}};
    QCOMPARE(jsonOf(QStringLiteral("x.xml"), finding), expected);
}

void LintTest::nobodyWaitsForAPipe_data()
{
    QTest::addColumn<QString>("link");    // to the pipe; "@" is the directory of the test
    QTest::addColumn<QString>("command"); // a program with its arguments, or a call by its name
    QTest::addColumn<QString>("message");

    const auto row = [](const char* link, const char* command, const char* message) {
        QTest::newRow(qPrintable(QLatin1String(command) + QLatin1Char(' ') + QLatin1String(link)))
            << QString::fromLatin1(link) << QString::fromLatin1(command)
            << QString::fromLatin1(message);
    };
    const char unreadable[] = "not a regular file";
    row("file", "digitizer|lint|@/file", unreadable);
    row("file", "digitizer|describe|--from|@/file", unreadable);
    row("file", "tablet-simulator|--description|@/file", unreadable);
    row("file", "tablet-simulator|--driver|Lectra E92|--script|@/file", unreadable);
    row("file", "tablet-simulator|--replay|@/file", unreadable);
    row("home/DigitizerGeneric/generated/file", "digitizer|drivers", "");
    row("home/DigitizerGeneric/generated/file",
        "digitizer|lint|" SOURCE_DIRECTORY "/Examples/descriptions/annotated.xml", "");
    row("home/DigitizerGeneric/generated/generic-5-5-1.xml", "digitizer|drivers", "");
    row("plugins/digitizer/generated/file", "deviceExist", "");
    row("plugins/digitizer/generated/file", "prepare", "");
}

void LintTest::nobodyWaitsForAPipe()
{
    QFETCH(QString, link);
    QFETCH(QString, command);
    QFETCH(QString, message);
    TestHost host;
    const WatchedPipe pipe(host.path(QStringLiteral("pipe")));
    QVERIFY(pipe.exists());
    QDir().mkpath(QFileInfo(host.path(link)).path());
    QDir().mkpath(host.path(QStringLiteral("data/generated")));
    QVERIFY(QFile::link(host.path(QStringLiteral("pipe")), host.path(link)));
    if (command == QLatin1String("deviceExist")) {
        MavSystem::Digitizer::deviceExist();
    } else if (command == QLatin1String("prepare")) {
        QCOMPARE(MavSystem::DescriptionFolder::prepare(), QString());
    } else {
        DigitizerProcess process(host);
        QStringList arguments =
            command.replace(QLatin1Char('@'), host.path(QString())).split(QLatin1Char('|'));
        process.setProgram(QStringLiteral(PROGRAM_DIRECTORY "/") + arguments.takeFirst());
        const ProgramRun run = process.run(arguments);
        QVERIFY2(run.errors.contains(message), qPrintable(run.errors));
        QCOMPARE(run.exitStatus, message.isEmpty() ? 0 : 1);
    }
    QVERIFY(!pipe.wasOpened());
}

QTEST_GUILESS_MAIN(LintTest)
#include "LintTest.moc"
