// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/DescriptionFolder.h"
#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "ReferenceHost/Serial/PseudoTerminal.h"
#include "support/DescriptionBuilder.h"
#include "support/Descriptions.h"
#include "support/RecordedMessages.h"
#include "support/SmallDisk.h"
#include "support/TestHost.h"
#include "support/TextRows.h"
#include "support/Unprivileged.h"

#include <memory>

using namespace MavSystem;
using namespace ReferenceHost;

namespace {
/// A host with the description "A" in a file, and a port.
struct Desk
{
    explicit Desk(const DescriptionBuilder& description = DescriptionBuilder())
    {
        host.writeDescription("a", description.xml());
        digitizer->selectDevice("A", tablet.path());
    }
    ~Desk() { digitizer->close(); }

    TestHost host;
    PseudoTerminal tablet;
    boost::shared_ptr<Digitizer> digitizer = Digitizer::instance();
};

// Writes the files of a row of presence.txt.
void writeFiles(TestHost& host, QString files)
{
    files.replace("SHIPPED",
                  "data/generated/ P/1.xml:A P/2.xml:B P/3.xml:C P/.hidden:D P/sub/4.xml:E");
    for (const QString& file : files.replace("P/", "plugins/digitizer/generated/").split(' ')) {
        const QString path = file.section(':', 0, 0);
        const QByteArray name = file.section(':', 1).toLatin1();
        if (path.endsWith('/'))
            QDir().mkpath(host.path(path));
        else
            host.write(path, name.isEmpty() ? "<d name='A'>" : DescriptionBuilder(name).xml());
    }
}

constexpr char oneBeep[] = "<beepString><character>46</character></beepString>";

} // namespace

/// Whether the selected device can be used, the first installation of descriptions, and the beep.
class PresenceTest : public QObject
{
    Q_OBJECT

private slots:
    void theAnswerNamesWhatIsMissing_data() { addTextRows("presence.txt", 5); }

    void theAnswerNamesWhatIsMissing()
    {
        QFETCH(TextRow, row);
        TestHost host;
        const PseudoTerminal tablet;
        writeFiles(host, row.text(0));
        Digitizer::instance()->selectDevice(row.text(1),
                                            row.text(2).replace("PORT", tablet.path()));
        QCOMPARE(Digitizer::deviceExist(), row.text(3));
        QCOMPARE(Digitizer::deviceExist(), row.text(3)); // nothing stays open, nothing changes
        QCOMPARE(QDir(host.path("data/generated")).entryList(QDir::Files).size(),
                 row.fields.at(4).toInt());
        QVERIFY(host.warnings.isEmpty() && host.errors.isEmpty() && host.questions.isEmpty());
    }

    void anInstallationHasWholeFilesOnly_data() { addTextRows("installations.txt", 4); }

    void anInstallationHasWholeFilesOnly()
    {
        QFETCH(TextRow, row);
        const bool isHost = row.text(0) == "host";
        const int kilobytes = row.fields.at(1).toInt();
        const bool readOnly = kilobytes == 0;
        TestHost host;
        const QByteArray shipped =
            DescriptionBuilder().xml() + QByteArray(row.fields.at(2).toInt(), ' ');
        for (int number = 0; number < 20; ++number)
            host.write(QString("plugins/digitizer/generated/%1").arg(number), shipped);
        std::unique_ptr<SmallDisk> disk;
        if (!readOnly) {
            disk = std::make_unique<SmallDisk>(host.path("data"), kilobytes);
            if (!disk->problem().isEmpty())
                QSKIP(qPrintable(disk->problem()));
        }
        const QDir folder(host.path("data/generated"));
        QVERIFY(folder.mkpath("."));
        Digitizer::instance()->selectDevice("A", "File:");
        {
            QVERIFY(QFile::setPermissions(host.path({}), QFile::Permissions(0x7755)));
            QVERIFY(QFile::setPermissions(folder.path(),
                                          QFile::Permissions(readOnly ? 0x5555 : 0x7755)));
            const Unprivileged user(readOnly);
            const RecordedMessages messages(true);
            const QString answer = isHost ? DescriptionFolder::prepare() : Digitizer::deviceExist();
            QVERIFY2(answer.startsWith(row.text(3)), qPrintable(answer));
            QCOMPARE(RecordedMessages::texts().filter("not installed").size(),
                     isHost ? 0 : 20 - folder.entryList(QDir::Files).size());
        }
        QVERIFY(QFile::setPermissions(folder.path(), QFile::Permissions(0x7755))); // to be removed
        const QStringList files = folder.entryList(QDir::Files | QDir::Hidden);
        QVERIFY2(files.isEmpty() == readOnly && files.size() < 20, qPrintable(files.join(' ')));
        for (const QString& name : files) {
            QVERIFY2(Descriptions::contentOf(folder.filePath(name)) == shipped, qPrintable(name));
        }
    }

    void theProbeLeavesAnOpenDeviceAlone()
    {
        const Desk desk;
        QVERIFY(desk.digitizer->open());
        QCOMPARE(Digitizer::deviceExist(), QString("Device is already locked"));
        QVERIFY(desk.digitizer->active());
        QVERIFY(desk.digitizer->close());
    }

    void theProbeLeavesWaitingInputAlone()
    {
        Desk desk; // which keeps the port open, as another program does
        QVERIFY(desk.tablet.write("123456782"));
        QTRY_VERIFY(!desk.tablet.drained());
        QCOMPARE(Digitizer::deviceExist(), QString("No Error has occurred"));
        QVERIFY(!desk.tablet.drained());
        QVERIFY(desk.digitizer->open());
        QVERIFY(desk.tablet.drained());
    }

    void theBeepTravelsToTheTablet_data() { addTextRows("beeps.txt", 3); }

    void theBeepTravelsToTheTablet()
    {
        QFETCH(TextRow, row);
        Desk desk(DescriptionBuilder().beep(row.fields.at(0)));
        desk.host.writeDescription("end", DescriptionBuilder("end").beep(oneBeep).xml());
        QVERIFY(desk.digitizer->open());
        {
            const RecordedMessages messages;
            desk.digitizer->digitBeep();
            QCOMPARE(RecordedMessages::texts().join('|'),
                     row.text(2).replace("LEAD", "Test for digitizer beep string: "));
            // A second command marks where the first one ends.
            desk.digitizer->selectDevice("end", desk.tablet.path());
            desk.digitizer->digitBeep();
        }
        QByteArray arrived;
        while (!arrived.endsWith('.')) {
            const QByteArray chunk = desk.tablet.read(5000);
            QVERIFY2(!chunk.isEmpty(), arrived.toHex());
            arrived += chunk;
        }
        QCOMPARE(arrived, row.fields.at(1) + ".");
    }

    void withoutAPortNothingBeeps()
    {
        Desk desk(DescriptionBuilder().beep(oneBeep));
        Digitizer& digitizer = *desk.digitizer;
        const QString port = desk.tablet.path();
        const RecordedMessages messages;
        digitizer.digitBeep();
        QVERIFY(QMetaObject::invokeMethod(&digitizer, "handleRead"));
        QVERIFY(digitizer.open());
        digitizer.selectDevice("B", port);
        digitizer.digitBeep(); // no such description
        digitizer.selectDevice("A", port);
        QVERIFY(digitizer.close());
        digitizer.digitBeep();
        QCOMPARE(desk.tablet.read(), QByteArray());
        QCOMPARE(RecordedMessages::texts(), QStringList());
        digitizer.selectDevice("A", "/nowhere/port");
        QVERIFY(!digitizer.open());
        digitizer.digitBeep();
        QCOMPARE(RecordedMessages::texts().join('|'),
                 QString("Test for digitizer beep string: \".\""));
    }
};

QTEST_GUILESS_MAIN(PresenceTest)
#include "PresenceTest.moc"
