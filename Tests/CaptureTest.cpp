// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Serial/PseudoTerminal.h"
#include "support/DigitizerProcess.h"
#include "support/StructRows.h"

#include <csignal>
#include <optional>

using namespace ReferenceHost;

namespace {

/// "capture" as a user runs it, at a tablet that the test plays.
class Capture
{
public:
    explicit Capture(const char* options)
    {
        plugIn();
        m_process.emplace(m_host, "digitizer",
                          QStringList{"capture", "--device", device(), "--driver",
                                      "Summagraphics UIOF (Microgrid, Summagrid IV, 16 buttons)",
                                      "--picture", "a.svg"} +
                              QString(options).split(' '));
    }

    /// Presses buttons at (1000 n, 500 n) counts and waits for the line of each. Of sixteen button
    /// codes "1" is number 0.
    bool press(const QByteArray& codes)
    {
        for (const char code : codes) {
            const int lines = process().output().count('\n');
            const QByteArray point = QByteArray::number(100000 + 1000 * m_presses).mid(1) + ',' +
                                     QByteArray::number(100000 + 500 * m_presses).mid(1);
            ++m_presses;
            if (!m_tablet->write(point + ',' + code + "\r\n") ||
                !process().prints("\n", lines + 1 + process().errors().count('\n')))
                return false;
        }
        return true;
    }

    void plugIn()
    {
        QFile::remove(device());
        m_tablet.emplace();
        QFile::link(m_tablet->path(), device());
    }

    void pullOut()
    {
        QFile::remove(device());
        m_tablet->hangUp();
    }

    DigitizerProcess& process() { return *m_process; }
    PseudoTerminal& tablet() { return *m_tablet; }
    QString device() const { return m_host.path("tablet"); }

    QByteArray picture() const
    {
        QFile file(m_host.path("a.svg"));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

private:
    TestHost m_host;
    std::optional<PseudoTerminal> m_tablet;
    std::optional<DigitizerProcess> m_process;
    int m_presses = 0;
};

struct Recording
{
    const char* name;
    const char* options;
};
const Recording recordings[] = {{"plain", ""}, {"recorded", " --record log"}};

const QString closingLine = "          -          -      14  closing\n";

} // namespace

/// "digitizer capture" at a tablet that is pulled out.
class CaptureTest : public QObject
{
    Q_OBJECT

private slots:
    void aPulledOutTabletIsWaitedFor_data() { addRows(recordings); }
    void aPulledOutTabletIsWaitedFor();
    void aPulledOutTabletMayEndIt_data() { addRows(recordings); }
    void aPulledOutTabletMayEndIt();
};

void CaptureTest::aPulledOutTabletIsWaitedFor()
{
    Capture capture("--buttons 1=corner,3=end" + QByteArray(currentRow(recordings).options));
    DigitizerProcess& process = capture.process();
    QVERIFY2(process.prints("ready: "), qPrintable(process.errors()));
    QVERIFY(capture.press("22"));
    capture.tablet().write("0400");
    capture.pullOut();
    QVERIFY2(process.prints("tablet is gone; waiting"), qPrintable(process.errors()));
    capture.plugIn();
    QVERIFY2(process.prints("tablet is back\n"), qPrintable(process.errors()));
    QVERIFY2(capture.press("242"), qPrintable(process.errors()));
    capture.pullOut();
    QVERIFY2(process.prints("is gone; waiting", 2), qPrintable(process.errors()));
    ::kill(pid_t(process.processId()), SIGINT);
    QCOMPARE(process.end(), 1);
    QVERIFY2(process.errors().endsWith("tablet did not come back\n"), qPrintable(process.errors()));
    QVERIFY2(process.output().endsWith("     6" + closingLine), qPrintable(process.output()));
    QCOMPARE(process.output().count("closing"), 1);
    QVERIFY(capture.picture().contains("2 (unfinished)"));
    // The piece from before and after, and a point of the next.
    QCOMPARE(capture.picture().count("<path "), 2);
}

void CaptureTest::aPulledOutTabletMayEndIt()
{
    Capture capture("--no-reconnect" + QByteArray(currentRow(recordings).options));
    DigitizerProcess& process = capture.process();
    QVERIFY2(process.prints("ready: "), qPrintable(process.errors()));
    QVERIFY(capture.press("222"));
    capture.pullOut();
    QCOMPARE(process.end(), 1);
    QVERIFY2(process.errors().endsWith("digitizer: " + capture.device() +
                                       " is gone; the tablet or its adapter was unplugged\n"),
             qPrintable(process.errors()));
    QVERIFY2(process.output().endsWith("     4" + closingLine), qPrintable(process.output()));
    QVERIFY(capture.picture().contains("1 (unfinished)"));
}

QTEST_GUILESS_MAIN(CaptureTest)
#include "CaptureTest.moc"
