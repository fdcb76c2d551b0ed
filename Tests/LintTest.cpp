// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/BoundedXmlReader.h"
#include "DigitizerGeneric/Digitizer/DescriptionFolder.h"
#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "DigitizerGeneric/Digitizer/SerialSettings.h"
#include "ReferenceHost/Lint/DescriptionKeys.h"
#include "support/Descriptions.h"
#include "support/TestHost.h"
#include "support/TextRows.h"

#include <QElapsedTimer>
#include <QTextCodec>

#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace MavSystem;
using namespace ReferenceHost;
using Descriptions::contentOf;
using Descriptions::lintOf;

namespace {
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
        QVERIFY2(findings.contains("is \"38400\"") && !findings.contains("19200, 38400"),
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
        for (const auto& files : {Descriptions::filesIn("Tests/Lint"), Descriptions::files()}) {
            for (const auto& [name, content] : files)
                QTest::newRow(qPrintable(name)) << content << QString();
        }
        for (const TextRow& row : textRows("checked-files.txt", 2))
            QTest::newRow(row.name) << expanded(row.fields.at(1)) << row.text(0);
        QTest::newRow("UTF-16") << QTextCodec::codecForName("UTF-16")->fromUnicode(
                                       "<?xml version='1.0' encoding='UTF-16'?>\n"
                                       "<d name='Gr\u00f6\u00dfe'/>")
                                << QString("taken");
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

    // Opening a device can act on it. Whoever waited for the pipe would be ended by the signal.
    void nobodyOpensAPipe()
    {
        TestHost host;
        const QByteArray pipe = QFile::encodeName(host.path("pipe"));
        QVERIFY(mkfifo(pipe, 0666) == 0);
        const int opened = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
        QVERIFY(inotify_add_watch(opened, pipe, IN_OPEN) >= 0);
        const auto linkIn = [&](const QString& folder) {
            return QDir().mkpath(host.path(folder)) &&
                   QFile::link(host.path("pipe"), host.path(folder + "/file"));
        };
        QVERIFY(QDir().mkpath(host.path("data/generated")));
        QVERIFY(linkIn("plugins/digitizer/generated"));
        alarm(20);
        Digitizer::deviceExist();
        QCOMPARE(DescriptionFolder::prepare(), QString());
        QVERIFY(linkIn("data/generated"));
        DescriptionFolder::drivers();
        alarm(0);
        char event[1024];
        QVERIFY(read(opened, event, sizeof event) < 0);
        close(opened);
    }
};

QTEST_GUILESS_MAIN(LintTest)
#include "LintTest.moc"
