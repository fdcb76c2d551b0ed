// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/BoundedXmlReader.h"
#include "DigitizerGeneric/Digitizer/DescriptionFiles.h"
#include "DigitizerGeneric/Digitizer/DescriptionFolder.h"
#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "DigitizerGeneric/Digitizer/SerialSettings.h"
#include "ReferenceHost/Lint/DescriptionKeys.h"
#include "ReferenceHost/Lint/DescriptionLint.h"
#include "support/StructRows.h"
#include "support/TestHost.h"
#include "support/TextRows.h"
#include "support/WatchedPipe.h"

#include <QElapsedTimer>
#include <QTextCodec>

using namespace MavSystem;
using namespace ReferenceHost;

namespace {
QByteArray contentOf(const QString& path)
{
    QFile file(SOURCE_DIRECTORY "/" + path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("missing");
}

QString lintOf(const QByteArray& content)
{
    QStringList lines;
    for (const LintFinding& finding : lintDescription(content))
        lines << textOf("x", finding);
    return lines.join('\n');
}

template <typename Element>
QStringList keysOf(const Element& element, const QString& path = {})
{
    QStringList keys(path);
    for (const auto& attribute : element.attributes)
        keys << path + '@' + attribute.name;
    for (const auto& child : element.children)
        keys << keysOf(child, path + '/' + child.name);
    keys.sort();
    keys.removeDuplicates();
    return keys;
}

struct Pipe
{
    const char* name; // of the link to it
    std::function<void()> search;
};
const Pipe pipes[] = {
    {"plugins/digitizer/generated/file", [] { Digitizer::deviceExist(); }},
    {"plugins/digitizer/generated/file", [] { QCOMPARE(DescriptionFolder::prepare(), QString()); }},
    {"data/generated/file", [] { DescriptionFolder::drivers(); }},
};

} // namespace

/// What the checker of descriptions has in common with the driver, and its limits. Its messages are
/// in the transcript.
class LintTest : public QObject
{
    Q_OBJECT

private slots:
    void exampleNamesEveryKey()
    {
        const XmlOutline example = xmlOutline(contentOf("Examples/descriptions/annotated.xml"));
        QVERIFY(example.root);
        QCOMPARE(keysOf(*example.root), keysOf(knownDescription()));
    }

    // A description that the driver has loaded leaves its wrong texts in the driver's tables.
    void acceptedTextsStayThoseOfTheTables()
    {
        BaudrateMap()["38400"];
        const QString findings = lintOf(contentOf("Tests/Lint/baudrate-unknown.xml"));
        QVERIFY2(findings.contains("found \"38400\"") && !findings.contains("19200, 38400"),
                 qPrintable(findings));
    }

    void limits()
    {
        const QByteArray good = contentOf("Examples/descriptions/annotated.xml");
        const QByteArray largest =
            good + QByteArray(int(DescriptionLimits::bytes) - good.size(), ' ');
        QCOMPARE(lintOf(largest), QString());
        QVERIFY(lintOf(largest + ' ').contains("1048576 bytes"));

        QByteArray attributes;
        for (int index = 0; index < DescriptionLimits::attributesOfOneElement; ++index)
            attributes += " a" + QByteArray::number(index) + "\n=\t''";
        QVERIFY(lintOf("<d" + attributes + "/>").contains("unknown attribute"));
        QVERIFY(lintOf("<d" + attributes + " b=''/>").contains("1000 attributes"));
        QVERIFY(!lintOf("<?xml version='1.0' encoding='a\nb'?><d/>").contains('\n'));
        const QByteArray one = "<e a=''/>";
        QVERIFY(!lintOf("<d>" + one.repeated(1001) + "</d>").contains("well-formed"));
    }

    void driverRefusesWhatLintRefuses_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("expected"); // of files of the corpus: what lint says
        for (const QString folder : {"Tests/Lint/", "Plugins/digitizer/generated/"}) {
            for (const QString& file : QDir(SOURCE_DIRECTORY "/" + folder).entryList(QDir::Files))
                QTest::newRow(qPrintable(file)) << contentOf(folder + file) << QString();
        }
        const auto row = [](const char* title, const char* expected, const QByteArray& content) {
            QTest::newRow(title) << content << QString(expected);
        };
        for (const TextRow& file : textRows("checked-files.txt", 2))
            row(file.name, file.fields.at(0), expanded(file.fields.at(1)));
        row("cut character", "refused", "<d name='Corpus'/>\xc3");
        const QString other =
            "<?xml version=\"1.0\" encoding=\"%1\"?>\n<d name=\"Gr\u00f6\u00dfe\"/>";
        for (const char* codec : {"UTF-16", "ISO-8859-1"})
            row(codec, "taken", QTextCodec::codecForName(codec)->fromUnicode(other.arg(codec)));
    }

    // Whatever stands in a file, the search for a description takes it as lint does, and soon.
    void driverRefusesWhatLintRefuses()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, expected);
        TestHost host;
        host.writeDescription("x.xml", content);
        QElapsedTimer timer;
        timer.start();
        const auto root = xmlOutline(content).root;
        const XmlAttribute* name = root ? root->attribute("name") : nullptr;
        const QString wanted = name ? name->value : root ? QString() : QString("Corpus");
        const auto found = DescriptionFiles::find(wanted, DescriptionFiles::BrokenFile::Skipped);
        QVERIFY2(timer.elapsed() < 5000, qPrintable(QString::number(timer.elapsed())));
        QCOMPARE(found.has_value(), root.has_value());
        if (!expected.isEmpty())
            QCOMPARE(found.has_value(), expected == "taken");
    }

    void ownLayoutNeedsNoReport()
    {
        const QByteArray head = "<d name='%1'><ioPort><serial baudrate='9600' databit='8' "
                                "parity='None' stopbit='1' flowctrl='none'/></ioPort></d>";
        QCOMPARE(lintOf(QByteArray(head).replace("%1", "lectra e92")), QString());
        QCOMPARE(lintOf(QByteArray(head).replace("%1", "E92")).count("is missing"), 3);
    }

    void nobodyWaitsForAPipe_data() { addRows(pipes); }

    void nobodyWaitsForAPipe()
    {
        const Pipe& row = currentRow(pipes);
        TestHost host;
        const WatchedPipe pipe(host.path("pipe"));
        QVERIFY(pipe.exists());
        QDir().mkpath(QFileInfo(host.path(row.name)).path());
        QDir().mkpath(host.path("data/generated"));
        QVERIFY(QFile::link(host.path("pipe"), host.path(row.name)));
        row.search();
        QVERIFY(!pipe.wasOpened());
    }
};

QTEST_GUILESS_MAIN(LintTest)
#include "LintTest.moc"
