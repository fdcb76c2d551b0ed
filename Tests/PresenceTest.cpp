// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/DescriptionFolder.h"
#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "ReferenceHost/Serial/PseudoTerminal.h"
#include "support/DescriptionBuilder.h"
#include "support/RecordedMessages.h"
#include "support/SmallDisk.h"
#include "support/TestHost.h"
#include "support/Unprivileged.h"

#include <QtTest>

#include <memory>

using namespace MavSystem;
using namespace ReferenceHost;

/// Whether the selected device can be used, the first installation of descriptions, and the beep.
class PresenceTest : public QObject
{
    Q_OBJECT

private slots:
    void theAnswerNamesWhatIsMissing_data();
    void theAnswerNamesWhatIsMissing();
    void aFolderIsTakenWithoutItsFilters();
    void anInstallationHasWholeFilesOnly_data();
    void anInstallationHasWholeFilesOnly();
    void theProbeLeavesAnOpenDeviceAlone();
    void theProbeLeavesWaitingInputAlone();
    void theBeepTravelsToTheTablet_data();
    void theBeepTravelsToTheTablet();
    void withoutAPortNothingBeeps();
};

void PresenceTest::theAnswerNamesWhatIsMissing_data()
{
    QTest::addColumn<QStringList>("files"); // "path:name", "path:" malformed, "path/" a folder
    QTest::addColumn<QString>("driver");
    QTest::addColumn<QString>("device");
    QTest::addColumn<QString>("answer");
    QTest::addColumn<int>("installed"); // files in the folder afterwards

    const auto row = [](const char* name, const char* files, const char* driver, const char* device,
                        const char* answer, int installed) {
        QTest::newRow(name) << QString::fromLatin1(files).split(QLatin1Char(' '))
                            << QString::fromLatin1(driver) << QString::fromLatin1(device)
                            << QString::fromLatin1(answer) << installed;
    };
    const char absent[] = "Digitizer Not Present...";
    const char usable[] = "No Error has occurred";
    const char shipped[] = "data/generated/ plugins/digitizer/generated/1.xml:A "
                           "plugins/digitizer/generated/2.xml:B "
                           "plugins/digitizer/generated/3.xml:C "
                           "plugins/digitizer/generated/.hidden:D "
                           "plugins/digitizer/generated/sub/4.xml:E";
    row("no folder", "plugins/digitizer/generated/1.xml:A", "A", "File:", absent, 0);
    row("empty folder, nothing shipped", "data/generated/", "A", "File:", absent, 0);
    row("shipped files are installed", shipped, "B", "File:", usable, 3);
    row("installed and another driver", shipped, "F", "File:", absent, 3);
    row("hidden and nested files are not shipped", shipped, "D", "File:", absent, 3);
    row("one file is there: nothing is installed",
        "data/generated/x.xml:X plugins/digitizer/generated/1.xml:A", "A", "File:", absent, 1);
    row("a hidden file is no file", "data/generated/.x:X plugins/digitizer/generated/1.xml:A", "A",
        "File:", usable, 1);
    row("installed with its port", "data/generated/a:A", "A", "PORT", usable, 1);
    row("shipped with its port", shipped, "A", "PORT", usable, 3);
    row("no such port", "data/generated/a:A", "A", "/nowhere/port",
        "The /nowhere/port file doesn't exists", 1);
    row("no such port, no such driver", "data/generated/a:A", "B", "/nowhere/port", absent, 1);
    row("a port that begins with File:", "data/generated/a:A", "A", "File:x",
        "The File:x file doesn't exists", 1);
    row("file: in lower case is a port", "data/generated/a:A", "A",
        "file:", "The file: file doesn't exists", 1);
    row("a name in another case", "data/generated/a:A", "a", "File:", absent, 1);
    row("no name selected", "data/generated/a:A", "", "File:", absent, 1);
    row("a malformed file has the empty name", "data/generated/a:", "", "File:", usable, 1);
    row("a malformed file before others", "data/generated/1: data/generated/2:A", "A",
        "File:", usable, 2);
}

void PresenceTest::theAnswerNamesWhatIsMissing()
{
    QFETCH(QStringList, files);
    QFETCH(QString, driver);
    QFETCH(QString, device);
    QFETCH(QString, answer);
    QFETCH(int, installed);
    TestHost host;
    PseudoTerminal tablet;
    for (const QString& file : qAsConst(files)) {
        const QString path = file.section(QLatin1Char(':'), 0, 0);
        const QByteArray name = file.section(QLatin1Char(':'), 1).toLatin1();
        if (path.endsWith(QLatin1Char('/')))
            QDir().mkpath(host.path(path));
        else
            host.write(path, name.isEmpty() ? "<d name='A'>" : DescriptionBuilder(name).xml());
    }
    Digitizer::instance()->selectDevice(driver,
                                        device == QLatin1String("PORT") ? tablet.path() : device);
    QCOMPARE(Digitizer::deviceExist(), answer);
    QCOMPARE(Digitizer::deviceExist(), answer); // nothing stays open, nothing changes
    QCOMPARE(QDir(host.path(QStringLiteral("data/generated"))).entryList(QDir::Files).size(),
             installed);
    QVERIFY(host.warnings.isEmpty() && host.errors.isEmpty() && host.questions.isEmpty());
}

void PresenceTest::aFolderIsTakenWithoutItsFilters()
{
    class FilteringHost : public TestHost
    {
    public:
        QDir pluginsDir() const override { return filtered(QStringLiteral("plugins")); }
        QDir appDataLocation() const override { return filtered(QStringLiteral("data")); }

    private:
        QDir filtered(const QString& folder) const
        {
            return QDir(path(folder), QStringLiteral("*.none"), QDir::Name, QDir::Dirs);
        }
    };
    FilteringHost host;
    QDir().mkpath(host.path(QStringLiteral("data/generated")));
    host.write(QStringLiteral("plugins/digitizer/generated/a.xml"), DescriptionBuilder().xml());
    Digitizer::instance()->selectDevice(QStringLiteral("A"), QStringLiteral("File:"));
    QCOMPARE(Digitizer::deviceExist(), QStringLiteral("No Error has occurred"));
}

void PresenceTest::anInstallationHasWholeFilesOnly_data()
{
    QTest::addColumn<bool>("atStart");  // by the host when it starts, else by the presence check
    QTest::addColumn<int>("kilobytes"); // of the disk; 0: the folder cannot be written
    QTest::addColumn<int>("size");      // of a file; small ones are written when they are closed
    QTest::newRow("the disk becomes full") << false << 64 << 20000;
    QTest::newRow("the disk becomes full of small files") << false << 64 << 5000;
    QTest::newRow("the disk of a host becomes full") << true << 64 << 20000;
    QTest::newRow("the disk of a host becomes full of small files") << true << 64 << 5000;
    QTest::newRow("the folder cannot be written") << false << 0 << 5000;
    QTest::newRow("the folder of a host cannot be written") << true << 0 << 5000;
}

void PresenceTest::anInstallationHasWholeFilesOnly()
{
    QFETCH(bool, atStart);
    QFETCH(int, kilobytes);
    QFETCH(int, size);
    TestHost host;
    const QByteArray shipped = DescriptionBuilder().xml() + QByteArray(size, ' ');
    for (int number = 0; number < 20; ++number)
        host.write(QStringLiteral("plugins/digitizer/generated/%1").arg(number), shipped);
    std::unique_ptr<SmallDisk> disk;
    if (kilobytes > 0) {
        disk = std::make_unique<SmallDisk>(host.path(QStringLiteral("data")), kilobytes);
        if (!disk->problem().isEmpty())
            QSKIP(qPrintable(disk->problem()));
    }
    const QDir folder(host.path(QStringLiteral("data/generated")));
    QVERIFY(folder.mkpath(folder.path()));
    Digitizer::instance()->selectDevice(QStringLiteral("A"), QStringLiteral("File:"));
    {
        QVERIFY(QFile::setPermissions(host.path(QString()), QFile::Permissions(0x7755)));
        QVERIFY(QFile::setPermissions(folder.path(),
                                      QFile::Permissions(kilobytes == 0 ? 0x5555 : 0x7755)));
        const Unprivileged user(kilobytes == 0);
        const RecordedMessages messages(true);
        const QString answer = atStart ? DescriptionFolder::prepare() : Digitizer::deviceExist();
        const QString expected = atStart         ? QStringLiteral("cannot write the description ")
                                 : kilobytes > 0 ? QStringLiteral("No Error has occurred")
                                                 : QStringLiteral("Digitizer Not Present...");
        QVERIFY2(answer.startsWith(expected), qPrintable(answer));
        const int told = RecordedMessages::texts().filter(QStringLiteral("not installed")).size();
        QCOMPARE(told, atStart ? 0 : 20 - folder.entryList(QDir::Files).size());
    }
    QVERIFY(QFile::setPermissions(folder.path(), QFile::Permissions(0x7755))); // to be removed
    const QStringList files = folder.entryList(QDir::Files | QDir::Hidden);
    QVERIFY2(files.isEmpty() == (kilobytes == 0) && files.size() < 20,
             qPrintable(files.join(QLatin1Char(' '))));
    for (const QString& name : files) {
        QFile file(folder.filePath(name));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY2(file.readAll() == shipped, qPrintable(name));
    }
}

void PresenceTest::theProbeLeavesAnOpenDeviceAlone()
{
    TestHost host;
    PseudoTerminal tablet;
    host.writeDescription(QStringLiteral("a"), DescriptionBuilder().xml());
    const auto digitizer = Digitizer::instance();
    digitizer->selectDevice(QStringLiteral("A"), tablet.path());
    QVERIFY(digitizer->open());
    QCOMPARE(Digitizer::deviceExist(), QStringLiteral("Device is already locked"));
    QVERIFY(digitizer->active());
    QVERIFY(digitizer->close());
}

void PresenceTest::theProbeLeavesWaitingInputAlone()
{
    TestHost host;
    PseudoTerminal tablet; // keeps the port open, as another program does
    host.writeDescription(QStringLiteral("a"), DescriptionBuilder().xml());
    const auto digitizer = Digitizer::instance();
    digitizer->selectDevice(QStringLiteral("A"), tablet.path());
    QVERIFY(tablet.write("123456782"));
    QTRY_VERIFY(!tablet.drained());
    QCOMPARE(Digitizer::deviceExist(), QStringLiteral("No Error has occurred"));
    QVERIFY(!tablet.drained());
    QVERIFY(digitizer->open());
    QVERIFY(tablet.drained());
    digitizer->close();
}

void PresenceTest::theBeepTravelsToTheTablet_data()
{
    QTest::addColumn<QByteArray>("beep");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("message");

    const auto row = [](const char* characters, const QByteArray& bytes, const char* message) {
        const QByteArray xml = "<character>" +
                               QByteArray(characters).replace(" ", "</character><character>") +
                               "</character>";
        QTest::newRow(characters) << "<beepString>" + xml + "</beepString>" << bytes
                                  << QString::fromLatin1(message);
    };
    const char begin[] = "Test for digitizer beep string: ";
    row("27 66 7", "\x1b\x42\x07", R"(Test for digitizer beep string: "\u001BB\u0007")");
    row("65 x 66", QByteArray("A\0B", 3), R"(Test for digitizer beep string: "A\u0000B")");
    row("255 128", "\xff\x80", "Test for digitizer beep string: \"\xff\\u0080\"");
    row("65601", "A", R"(Test for digitizer beep string: "A")");
    QTest::newRow("other children")
        << QByteArray("<x/><beepString><x>1</x><character>49</character>"
                      "2<x>3</x><character>50</character></beepString>"
                      "<beepString><character>51</character>"
                      "</beepString>")
        << QByteArray("12") << QLatin1String(begin) + QLatin1String("\"12\"");
    QTest::newRow("empty") << QByteArray("<beepString><x>1</x></beepString>") << QByteArray()
                           << QString();
    QTest::newRow("none") << QByteArray() << QByteArray() << QString();
}

void PresenceTest::theBeepTravelsToTheTablet()
{
    QFETCH(QByteArray, beep);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, message);
    TestHost host;
    PseudoTerminal tablet;
    host.writeDescription(QStringLiteral("a"), DescriptionBuilder().beep(beep).xml());
    host.writeDescription(
        QStringLiteral("end"),
        DescriptionBuilder("end").beep("<beepString><character>46</character></beepString>").xml());
    const auto digitizer = Digitizer::instance();
    digitizer->selectDevice(QStringLiteral("A"), tablet.path());
    QVERIFY(digitizer->open());
    {
        const RecordedMessages messages;
        digitizer->digitBeep();
        QCOMPARE(RecordedMessages::texts().join(QLatin1Char('|')), message);
        // A second command marks where the first one ends.
        digitizer->selectDevice(QStringLiteral("end"), tablet.path());
        digitizer->digitBeep();
    }
    QByteArray arrived;
    while (!arrived.endsWith('.')) {
        const QByteArray chunk = tablet.read(5000);
        QVERIFY2(!chunk.isEmpty(), arrived.toHex());
        arrived += chunk;
    }
    QCOMPARE(arrived, bytes + ".");
    digitizer->close();
}

void PresenceTest::withoutAPortNothingBeeps()
{
    TestHost host;
    PseudoTerminal tablet;
    host.writeDescription(
        QStringLiteral("a"),
        DescriptionBuilder().beep("<beepString><character>46</character></beepString>").xml());
    const auto digitizer = Digitizer::instance();
    const RecordedMessages messages;
    digitizer->selectDevice(QStringLiteral("A"), tablet.path());
    digitizer->digitBeep();
    QVERIFY(QMetaObject::invokeMethod(digitizer.get(), "handleRead"));
    QVERIFY(digitizer->open());
    digitizer->selectDevice(QStringLiteral("B"), tablet.path());
    digitizer->digitBeep(); // no such description
    digitizer->selectDevice(QStringLiteral("A"), tablet.path());
    QVERIFY(digitizer->close());
    digitizer->digitBeep();
    QCOMPARE(tablet.read(), QByteArray());
    QCOMPARE(RecordedMessages::texts(), QStringList());
    digitizer->selectDevice(QStringLiteral("A"), QStringLiteral("/nowhere/port"));
    QVERIFY(!digitizer->open());
    digitizer->digitBeep();
    QCOMPARE(RecordedMessages::texts().join(QLatin1Char('|')),
             QStringLiteral("Test for digitizer beep string: \".\""));
    digitizer->close();
}

QTEST_GUILESS_MAIN(PresenceTest)
#include "PresenceTest.moc"
