// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/PortRights.h"
#include "ReferenceHost/Pieces/PieceDrawing.h"
#include "ReferenceHost/Serial/PseudoTerminal.h"
#include "ReferenceHost/Serial/RecordedSession.h"
#include "support/ProgramRun.h"

#include <QImage>
#include <QtTest>

#include <csignal>
#include <optional>

#include <unistd.h>

using namespace ReferenceHost;

namespace {

// Five digits of 1/1000 inch twice, one of sixteen button codes: "1" is number 0.
const QString driver = QStringLiteral("Summagraphics UIOF (Microgrid, Summagrid IV, 16 buttons)");
const QString closingLine = QStringLiteral("          -          -      14  closing\n");

/// "capture" as a user runs it, at a tablet that the test plays.
class Capture
{
public:
    explicit Capture(const QStringList& arguments = {}, const QString& output = {})
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("XDG_DATA_HOME"), path(QStringLiteral("home")));
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), path(QStringLiteral("home")));
        environment.remove(QStringLiteral("QT_QPA_PLATFORM"));
        environment.remove(QStringLiteral("DISPLAY"));
        m_process.setProcessEnvironment(environment);
        m_process.setWorkingDirectory(path(QString()));
        if (!output.isEmpty())
            m_process.setStandardOutputFile(output);
        plugIn();
        const QStringList tablet = arguments.contains(QLatin1String("--description"))
                                       ? QStringList()
                                       : QStringList{QStringLiteral("--driver"), driver};
        m_process.start(
            QStringLiteral(PROGRAM_DIRECTORY "/digitizer"),
            QStringList{QStringLiteral("capture"), QStringLiteral("--device"), device()} + tablet +
                arguments);
    }

    ~Capture()
    {
        m_process.kill();
        m_process.waitForFinished();
    }

    bool isReady() { return says(QStringLiteral("ready: ")); }

    /// Waits until the error stream has \a text.
    bool says(const QString& text)
    {
        return QTest::qWaitFor([&] { return errors().contains(text); }, 10000);
    }

    /// Presses buttons at (1000 n, 500 n) counts and waits for the line of each.
    bool press(const QByteArray& codes)
    {
        for (const char code : codes) {
            const int number = output().count(QLatin1Char('\n'));
            m_sent << QByteArray::number(100000 + 1000 * m_sent.size()).mid(1) + ',' +
                          QByteArray::number(100000 + 500 * m_sent.size() * m_sent.size()).mid(1) +
                          ',' + code + "\r\n";
            if (!m_tablet->write(m_sent.constLast()) ||
                !QTest::qWaitFor([&] { return output().count(QLatin1Char('\n')) > number; }, 10000))
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

    void signal(int number) { ::kill(pid_t(m_process.processId()), number); }

    /// Returns the exit status, or -1 when the program does not end.
    int wait()
    {
        const bool ended =
            QTest::qWaitFor([&] { return m_process.state() == QProcess::NotRunning; }, 10000);
        errors();
        output();
        return ended && m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
    }

    QString output() { return m_output += QString::fromUtf8(m_process.readAllStandardOutput()); }
    QString errors() { return m_errors += QString::fromUtf8(m_process.readAllStandardError()); }
    QString path(const QString& name) const { return m_folder.filePath(name); }
    QString device() const { return path(QStringLiteral("tablet")); }
    PseudoTerminal& tablet() { return *m_tablet; }
    QList<QByteArray> sent() const { return m_sent; }

private:
    QTemporaryDir m_folder;
    std::optional<PseudoTerminal> m_tablet;
    QProcess m_process;
    QList<QByteArray> m_sent;
    QString m_output;
    QString m_errors;
};

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

/// "digitizer capture", from the line to the files it writes.
class CaptureTest : public QObject
{
    Q_OBJECT

private slots:
    void reportsAreWrittenInEachFormat_data();
    void reportsAreWrittenInEachFormat();
    void aSignalClosesTheDevice_data();
    void aSignalClosesTheDevice();
    void aPulledOutTabletIsWaitedFor_data();
    void aPulledOutTabletIsWaitedFor();
    void aPulledOutTabletMayEndIt_data();
    void aPulledOutTabletMayEndIt();
    void whatIsNoReportIsTold_data();
    void whatIsNoReportIsTold();
    void aLineThatCannotBeWrittenEndsIt();
    void theLineIsRecordedAsItCame();
    void aPortInUseIsRefused();
    void aWrongCommandLineIsOneClearLine_data();
    void aWrongCommandLineIsOneClearLine();
    void missingRightsAreExplained_data();
    void missingRightsAreExplained();
    void picturesShowTheTracedPiece_data();
    void picturesShowTheTracedPiece();
};

void CaptureTest::reportsAreWrittenInEachFormat_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* arguments, const char* expected) {
        QTest::newRow(arguments) << QString::fromLatin1(arguments).split(QLatin1Char(' '))
                                 << QString::fromLatin1(expected);
    };
    row("--count 3", "number     x (cm)     y (cm)  button  kind\n"
                     "     1     0.0000     0.0000       1  corner\n"
                     "     2     2.5397     1.2698       2  curve\n"
                     "     3     5.0794     5.0794       0  other\n"
                     "     4          -          -      14  closing\n");
    row("--description " SOURCE_DIRECTORY "/Plugins/digitizer/generated/summagraphics-uiof16.xml "
        "--count 3 --format csv --buttons 1=notch,0=hole,2=end",
        "number,x_cm,y_cm,button,kind\n1,0,0,1,notch\n"
        "2,2.5396825396825,1.26984126984125,2,end\n3,5.079365079365,5.079365079365,0,hole\n"
        "4,2.2250738585072014e-308,2.2250738585072014e-308,14,closing\n");
    row("--count 3 --format json",
        R"({"button":1,"kind":"corner","number":1,"x":0,"y":0})"
        "\n"
        R"({"button":2,"kind":"curve","number":2,"x":2.5396825396825,"y":1.26984126984125})"
        "\n"
        R"({"button":0,"kind":"other","number":3,"x":5.079365079365,"y":5.079365079365})"
        "\n"
        R"({"button":14,"kind":"closing","number":4,"x":2.2250738585072014e-308,)"
        R"("y":2.2250738585072014e-308})"
        "\n");
}

void CaptureTest::reportsAreWrittenInEachFormat()
{
    QFETCH(QStringList, arguments);
    Capture capture(arguments);
    QVERIFY2(capture.isReady(), qPrintable(capture.errors()));
    QVERIFY2(capture.press("231"), qPrintable(capture.output()));
    QCOMPARE(capture.wait(), 0);
    QTEST(capture.output(), "expected");
    QCOMPARE(capture.errors().count(QLatin1Char('\n')), 1);
}

void CaptureTest::aSignalClosesTheDevice_data()
{
    QTest::addColumn<int>("number");
    QTest::newRow("Ctrl-C") << SIGINT;
    QTest::newRow("kill") << SIGTERM;
    QTest::newRow("terminal closed") << SIGHUP;
}

void CaptureTest::aSignalClosesTheDevice()
{
    QFETCH(int, number);
    Capture capture;
    QVERIFY2(capture.isReady(), qPrintable(capture.errors()));
    QVERIFY(capture.press("2"));
    capture.signal(number);
    QCOMPARE(capture.wait(), 0);
    QVERIFY2(capture.output().endsWith(QLatin1String("     2") + closingLine),
             qPrintable(capture.output()));
}

namespace {

void addRowsWithAndWithoutRecording(const QString& arguments)
{
    QTest::addColumn<QStringList>("arguments");
    const QStringList picture = arguments.split(QLatin1Char(' '), Qt::SkipEmptyParts) +
                                QStringList{QStringLiteral("--picture"), QStringLiteral("a.svg")};
    QTest::newRow("plain") << picture;
    QTest::newRow("recorded") << picture +
                                     QStringList{QStringLiteral("--record"), QStringLiteral("log")};
}

} // namespace

void CaptureTest::aPulledOutTabletIsWaitedFor_data()
{
    addRowsWithAndWithoutRecording(QStringLiteral("--buttons 1=corner,3=end"));
}

void CaptureTest::aPulledOutTabletIsWaitedFor()
{
    QFETCH(QStringList, arguments);
    Capture capture(arguments);
    QVERIFY2(capture.isReady(), qPrintable(capture.errors()));
    QVERIFY(capture.press("22"));
    capture.tablet().write("0400");
    capture.pullOut();
    QVERIFY2(capture.says(QStringLiteral("tablet is gone; waiting")), qPrintable(capture.errors()));
    capture.plugIn();
    QVERIFY2(capture.says(QStringLiteral("tablet is back\n")), qPrintable(capture.errors()));
    QVERIFY2(capture.press("242"), qPrintable(capture.errors()));
    capture.pullOut();
    QTRY_COMPARE(capture.errors().count(QLatin1String("is gone; waiting")), 2);
    capture.signal(SIGINT);
    QCOMPARE(capture.wait(), 1);
    QVERIFY2(capture.errors().endsWith(QLatin1String("tablet did not come back\n")),
             qPrintable(capture.errors()));
    QVERIFY2(capture.output().endsWith(QLatin1String("     6") + closingLine),
             qPrintable(capture.output()));
    QCOMPARE(capture.output().count(QLatin1String("closing")), 1);
    const QByteArray picture = contentOf(capture.path(QStringLiteral("a.svg")));
    QVERIFY(picture.contains("2 (unfinished)"));
    QCOMPARE(picture.count("<path "),
             2); // the piece from before and after, and a point of the next
}

void CaptureTest::aPulledOutTabletMayEndIt_data()
{
    addRowsWithAndWithoutRecording(QStringLiteral("--no-reconnect"));
}

void CaptureTest::aPulledOutTabletMayEndIt()
{
    QFETCH(QStringList, arguments);
    Capture capture(arguments);
    QVERIFY2(capture.isReady(), qPrintable(capture.errors()));
    QVERIFY(capture.press("222"));
    capture.pullOut();
    QCOMPARE(capture.wait(), 1);
    QVERIFY2(capture.errors().endsWith(
                 QStringLiteral("digitizer: %1 is gone; the tablet or its adapter was unplugged\n")
                     .arg(capture.device())),
             qPrintable(capture.errors()));
    QVERIFY(capture.output().endsWith(closingLine));
    QVERIFY(contentOf(capture.path(QStringLiteral("a.svg"))).contains("1 (unfinished)"));
}

void CaptureTest::whatIsNoReportIsTold_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("lines"); // of the output
    QTest::addColumn<QStringList>("messages");
    const QByteArray merged = "00001,00001,2\r\n00002,00002,2\r\n";
    const QStringList strict{QStringLiteral("--strict-count")};
    QTest::newRow("merged reports") << QStringList() << merged << 3 << QStringList();
    QTest::newRow("damaged report")
        << QStringList() << "0?001,00001,2\r\n" + merged << 3
        << QStringList{QStringLiteral("passed over \"0?001,00001,2\\r\\n\", which")};
    QTest::newRow("noise around a report")
        << QStringList() << QByteArray("?\r\n00001,00001,2\r\n??\r\n") << 2
        << QStringList{QStringLiteral("passed over \"?\\r\\n\", which"),
                       QStringLiteral("4 more bytes were passed over")};
    QTest::newRow("by the count, merged")
        << strict << merged << 1
        << QStringList{QStringLiteral("not exactly one report (length 15)")};
    QTest::newRow("by the count, damaged")
        << strict << QByteArray("0 001,00001,2\r\n") << 2 << QStringList();
}

void CaptureTest::whatIsNoReportIsTold()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, bytes);
    QFETCH(int, lines);
    QFETCH(QStringList, messages);
    Capture capture(arguments);
    QVERIFY2(capture.isReady(), qPrintable(capture.errors()));
    QVERIFY(capture.tablet().write(bytes));
    QTRY_COMPARE(capture.output().count(QLatin1Char('\n')), lines);
    for (const QString& message : messages)
        QVERIFY2(capture.says(message), qPrintable(capture.errors()));
    capture.signal(SIGINT);
    QCOMPARE(capture.wait(), 0);
    QCOMPARE(capture.output().count(QLatin1Char('\n')), lines + 1);
    QCOMPARE(capture.errors().count(QLatin1Char('\n')), 1 + messages.size());
}

void CaptureTest::aLineThatCannotBeWrittenEndsIt()
{
    Capture capture({}, QStringLiteral("/dev/full"));
    QCOMPARE(capture.wait(), 1);
    QVERIFY2(capture.errors().endsWith(QLatin1String("cannot write to standard output\n")),
             qPrintable(capture.errors()));
}

void CaptureTest::theLineIsRecordedAsItCame()
{
    Capture capture({QStringLiteral("--record"), QStringLiteral("line.log")});
    QVERIFY2(capture.isReady(), qPrintable(capture.errors()));
    QVERIFY2(capture.press("23456"), qPrintable(capture.output()));
    capture.signal(SIGINT);
    QCOMPARE(capture.wait(), 0);
    const auto read = readSession(contentOf(capture.path(QStringLiteral("line.log"))));
    QVERIFY2(read, qPrintable(read ? QString() : read.error()));
    QCOMPARE(read->driver, driver);
    QCOMPARE(read->settings, QStringLiteral("9600 8 None 1"));
    QByteArray recorded;
    for (const RecordedSession::Chunk& chunk : read->chunks)
        recorded += chunk.bytes;
    QCOMPARE(recorded, capture.sent().join());
}

void CaptureTest::aPortInUseIsRefused()
{
    Capture first;
    QVERIFY2(first.isReady(), qPrintable(first.errors()));
    const TestHost host;
    const ProgramRun second =
        runDigitizer(host, {QStringLiteral("capture"), QStringLiteral("--driver"), driver,
                            QStringLiteral("--device"), first.device()});
    QCOMPARE(second.exitStatus, 1);
    QVERIFY2(second.errors.startsWith(
                 QStringLiteral("digitizer: another program has %1 open").arg(first.device())),
             qPrintable(second.errors));
    QCOMPARE(second.errors.count(QLatin1Char('\n')), 1);
    QVERIFY(first.press("2"));
}

void CaptureTest::aWrongCommandLineIsOneClearLine_data()
{
    QTest::addColumn<QString>("arguments"); // a slash separates them
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("message");
    const auto row = [](const char* arguments, int status, const char* message) {
        QTest::newRow(arguments) << QString::fromLatin1(arguments) << status
                                 << QString::fromLatin1(message);
    };
    row("--device|PORT", 2, "--driver is missing; 'digitizer drivers' lists the names");
    row("--driver|bitpad two cr lf|--device|PORT", 1,
        "no driver has the name \"bitpad two cr lf\"; did you mean \"Summagraphics Bit Pad Two (CR "
        "LF)\" or \"Summagraphics Bit Pad Two (CR)\"? ('digitizer drivers' lists the names)");
    row("--driver|DRIVER", 2, "--device is missing; 'digitizer ports' lists the ports");
    row("--driver|DRIVER|--device|/nowhere/tty", 1,
        "there is no port /nowhere/tty; check the name, and whether the cable is plugged in "
        "('digitizer ports' lists the ports)");
    row("--driver|DRIVER|--device|/tmp", 1, "/tmp is not a serial port");
    row("--driver|DRIVER|--device|null", 1, "/dev/null is not a serial port");
    row("--driver|DRIVER|--device|File:", 2,
        "--device is File:, which is the digital pen; use 'digitizer import'");
    row("--driver|DRIVER|--device|PORT|--count|0", 2,
        "--count is '0', but must be a number from 1 to 2147483647");
    row("--driver|DRIVER|--device|PORT|--count|3x", 2,
        "--count is '3x', but must be a number from 1 to 2147483647");
    row("--driver|DRIVER|--device|PORT|--buttons|1=corner,2=curv", 2,
        "--buttons contains '2=curv', but a meaning must be one of corner, curve, hole, end, "
        "notch; did you mean curve?");
    row("--driver|DRIVER|--device|PORT|--buttons|1=corner,2", 2,
        "--buttons contains '2', but each entry must be BUTTON=MEANING, such as 1=corner");
    row("--driver|DRIVER|--device|PORT|--buttons|1=corner,1=hole", 2,
        "--buttons names button 1 twice");
    row("--driver|DRIVER|--device|PORT|--picture|a.jpg", 2,
        "--picture is 'a.jpg', but must end in .svg or .png");
    row("--driver|DRIVER|--device|PORT|--picture|/nowhere/a.svg", 1,
        "cannot write to the folder /nowhere");
    row("--driver|DRIVER|--device|PORT|--record|/nowhere/a.log", 1,
        "cannot record to /nowhere/a.log: No such file or directory");
}

void CaptureTest::aWrongCommandLineIsOneClearLine()
{
    QFETCH(QString, arguments);
    QFETCH(QString, message);
    const TestHost host;
    const PseudoTerminal tablet;
    arguments.replace(QLatin1String("PORT"), tablet.path());
    arguments.replace(QLatin1String("DRIVER"), driver);
    const ProgramRun run = runDigitizer(host, QStringList{QStringLiteral("capture")} +
                                                  arguments.split(QLatin1Char('|')));
    QCOMPARE(run.errors, QStringLiteral("digitizer: %1\n").arg(message));
    QTEST(run.exitStatus, "status");
    QCOMPARE(run.output, QString());
}

void CaptureTest::missingRightsAreExplained_data()
{
    QTest::addColumn<QString>("group");
    QTest::addColumn<unsigned>("mode");
    QTest::addColumn<QString>("advice");
    QTest::newRow("group may") << QStringLiteral("uucp") << 0660U
                               << QStringLiteral("it belongs to the group uucp; join it with 'sudo "
                                                 "usermod -aG uucp $USER' and log in again");
    const QString owner =
        QStringLiteral("only its owner root may (permissions %1); ask an administrator to give a "
                       "group, such as dialout, read and write permission");
    QTest::newRow("group may only read")
        << QStringLiteral("dialout") << 0640U << owner.arg(QStringLiteral("0640"));
    QTest::newRow("never join root")
        << QStringLiteral("root") << 0660U << owner.arg(QStringLiteral("0660"));
}

void CaptureTest::missingRightsAreExplained()
{
    QFETCH(QString, group);
    QFETCH(unsigned, mode);
    QFETCH(QString, advice);
    QCOMPARE(MavSystem::rightsAdvice(
                 {QStringLiteral("/dev/ttyS0"), QStringLiteral("root"), group, mode}),
             QStringLiteral("you may not use /dev/ttyS0: ") + advice);
}

void CaptureTest::picturesShowTheTracedPiece_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("SVG") << QStringLiteral("piece.svg");
    QTest::newRow("PNG, capital letters") << QStringLiteral("piece.PNG");
}

void CaptureTest::picturesShowTheTracedPiece()
{
    QFETCH(QString, name);
    Capture capture({QStringLiteral("--picture"), name});
    QVERIFY2(capture.isReady(), qPrintable(capture.errors()));
    QVERIFY2(capture.press("22362452"), qPrintable(capture.output()));
    capture.signal(SIGINT);
    QCOMPARE(capture.wait(), 0);
    QCOMPARE(capture.errors().count(QLatin1Char('\n')), 1);
    const QByteArray content = contentOf(capture.path(name));
    if (name.endsWith(QLatin1String("svg"))) {
        QCOMPARE(content.count("<path "), 2); // a finished piece, and a point after it
        QCOMPARE(content.count("<circle ") + content.count("<ellipse "), 1); // the hole
        QVERIFY(content.contains("10 cm") || content.contains("5 cm"));
        return;
    }
    const QImage image = QImage::fromData(content, "PNG");
    QVERIFY(!image.isNull());
    QCOMPARE(image.pixelColor(0, 0), QColor(Qt::white));
    int inked = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            inked += qGray(image.pixel(x, y)) < 64 ? 1 : 0;
    }
    QVERIFY2(inked > 1000, qPrintable(QString::number(inked)));
}

QTEST_GUILESS_MAIN(CaptureTest)
#include "CaptureTest.moc"
