// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/PortRights.h"
#include "ReferenceHost/CommandLine/PrivateNames.h"
#include "ReferenceHost/Host/PenDirectory.h"
#include "ReferenceHost/Serial/PortHolders.h"
#include "support/TestHost.h"
#include "support/TextRows.h"

#include <unistd.h>

using namespace ReferenceHost;

/// What the programs say of a machine that no test can have: other users, their rights and names.
class TechnicianTest : public QObject
{
    Q_OBJECT

private slots:
    void missingRightsAreExplained_data() { addTextRows("rights.txt", 3); }

    void missingRightsAreExplained()
    {
        QFETCH(TextRow, row);
        const unsigned mode = row.fields.at(1).toUInt(nullptr, 8);
        QCOMPARE(MavSystem::rightsAdvice({"/dev/ttyS0", "root", row.text(0), mode}),
                 "you may not use /dev/ttyS0: " + row.text(2));
    }

    void holdersAreFound()
    {
        TestHost host;
        const QString port = host.write("dev/ttyUSB0", {});
        host.write("proc/12/comm", "minicom\n");
        const QDir processes(host.path("proc"));
        for (const char* folder : {"12/fd", "13/fd", "sys/fd"})
            QVERIFY(processes.mkpath(folder));
        QCOMPARE(holdersText(portHolders(port, processes)), QString("nobody"));
        for (const char* link : {"12/fd/4", "sys/fd/3"})
            QVERIFY(QFile::link(port, processes.filePath(link)));
        const QString alias = host.path("dev/tablet");
        QVERIFY(QFile::link(port, alias));
        for (const QString& path : {port, alias})
            QCOMPARE(holdersText(portHolders(path, processes)), QString("minicom (12)"));

        // Root may look everywhere, so what cannot be looked at is tested on the text alone.
        QVERIFY(holdersText({}).startsWith("unknown"));
        QVERIFY(holdersText({{"a (1)"}, false}).startsWith("a (1), and perhaps"));
        QVERIFY(!portHolders(port, QDir(host.path("nowhere"))).complete);
    }

    void reasonsForFilesThatStay()
    {
        TestHost host;
        const QString folder = host.path("pen");
        for (const char* name : {"a.dat", "B.DAT", "b.txt", "c.dat", ".d.dat"})
            host.write(QString("pen/") + name, {});
        QVERIFY(QFile::link("nowhere", folder + "/c.txt"));
        QVERIFY(QFile::setPermissions(folder + "/a.dat", QFile::WriteOwner));
        QVERIFY(QFile::setPermissions(host.path({}), QFile::Permissions(0x7777)));
        QVERIFY(QFile::setPermissions(folder, QFile::Permissions(0x5555)));
        const bool root = geteuid() == 0;
        // The real user too, whom access(2) asks about.
        QVERIFY(!root || setresuid(65534, 65534, 0) == 0);
        const PenDirectory directory(folder);
        QStringList reasons;
        for (const PenDirectory::Left& left : directory.left())
            reasons << left.name + ": " + left.reason;
        const QStringList unreadable = directory.unreadable();
        QVERIFY(!root || setresuid(0, 0, 0) == 0);
        QVERIFY(QFile::setPermissions(folder, QFile::Permissions(0x7777)));
        QCOMPARE(directory.waiting(), 3);
        QCOMPARE(directory.imported(), 1);
        QCOMPARE(unreadable, QStringList("a.dat"));
        reasons.sort();
        QCOMPARE(reasons.size(), 3);
        for (int file : {0, 1})
            QVERIFY2(reasons.at(file).contains("not writable"), qPrintable(reasons.at(file)));
        QVERIFY2(reasons.at(2).contains("c.txt already exists"), qPrintable(reasons.at(2)));
    }

    void privateNamesAreTakenOut_data() { addTextRows("private-names.txt", 2); }

    void privateNamesAreTakenOut()
    {
        QFETCH(TextRow, row);
        QCOMPARE(withoutPrivateNames(row.text(0), {"/home/ann", "ann", "box"}), row.text(1));
        QCOMPARE(withoutPrivateNames(row.text(0), {}), row.text(0));
    }
};

QTEST_GUILESS_MAIN(TechnicianTest)
#include "TechnicianTest.moc"
