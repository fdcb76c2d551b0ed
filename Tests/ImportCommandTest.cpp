// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Host/PenDirectory.h"
#include "ReferenceHost/Serial/PseudoTerminal.h"
#include "support/DescriptionBuilder.h"
#include "support/ProgramRun.h"

#include <QtTest>

#include <csignal>
#include <unistd.h>

using namespace ReferenceHost;

/// "digitizer import" as a process: what it asks, says, writes and leaves.
class ImportCommandTest : public QObject
{
    Q_OBJECT

private slots:
    void filesAreImported_data();
    void filesAreImported();
    void aWrongCommandLineChangesNothing_data();
    void aWrongCommandLineChangesNothing();
    void theDriverMayComeFromTheSettings();
    void aPictureIsDrawn();
    void aDirectoryIsWatchedUntilTheEnd_data();
    void aDirectoryIsWatchedUntilTheEnd();
    void aFileIsWaitedFor();
    void nothingIsLostWhenTheOutputFails();
    void progressIsShownAtATerminal();
    void reasonsForFilesThatStay();
};

namespace {

constexpr char piece[] = "A- 1\nX:100:200\nA- 4\nX:1:1\n";
constexpr char pieceReports[] = "number,x_cm,y_cm,button,kind\n1,1,2,1,corner\n2,0.01,0.01,4,end\n";

struct Import
{
    Import()
    {
        host.write(QStringLiteral("home/DigitizerGeneric/generated/pen.xml"),
                   DescriptionBuilder("Pen").xml());
        host.write(QStringLiteral("home/DigitizerGeneric/generated/other.xml"),
                   DescriptionBuilder("Other").buttons("4", 1, {"1", "2", "4", "3"}).xml());
        host.write(QStringLiteral("home/DigitizerGeneric/generated/unscaled.xml"),
                   DescriptionBuilder("Unscaled").resolution(QByteArray()).xml());
        QDir().mkpath(directory);
    }

    // The words of a command line, DIR replaced by the pen directory.
    QStringList arguments(const QString& words) const
    {
        QStringList arguments = words.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        arguments.replaceInStrings(QStringLiteral("DIR"), directory);
        return QStringList{QStringLiteral("import")} + arguments;
    }

    QString names() const { return QDir(directory).entryList(QDir::Files).join(QLatin1Char(' ')); }

    TestHost host;
    QString directory = host.path(QStringLiteral("pen"));
    DigitizerProcess process{host};
};

} // namespace

void ImportCommandTest::filesAreImported_data()
{
    QTest::addColumn<QString>("options");
    QTest::addColumn<QByteArray>("typed"); // at a terminal; null: there is none
    QTest::addColumn<QString>("files");    // each with the piece, but for .txt
    QTest::addColumn<int>("exitStatus");
    QTest::addColumn<QString>("errors"); // $ is the program's name, | the end of a line
    QTest::addColumn<QString>("names");
    const auto row = [](const char* name, const char* options, const QByteArray& typed,
                        const char* files, int exitStatus, const QByteArray& errors,
                        const char* names) {
        QTest::newRow(name) << QString::fromLatin1(options) << typed << QString::fromLatin1(files)
                            << exitStatus << QString::fromLatin1(errors)
                            << QString::fromLatin1(names);
    };
    const char imported[] = "$1 file imported, 2 points: 1 corner, 1 end|";
    const QByteArray ready = "$Digitizer files are ready to be imported.";
    const QByteArray asked = ready + "|Import, Delete, Cancel? ";
    const QByteArray left = "$nothing was imported; 1 file left|";
    const QByteArray unasked =
        ready + " There is no terminal and no --answer, so they are left alone.|" + left;
    row("answer", "--answer import", {}, "a.dat", 0, imported, "a.txt");
    row("no terminal", "", {}, "a.dat", 1, unasked, "a.dat");
    row("no terminal, watching", "--watch", {}, "a.dat", 1, unasked, "a.dat");
    row("typed", "", "import\n", "a.dat", 0, asked + imported, "a.txt");
    row("typed in short", "", "I\n", "a.dat", 0, asked + imported, "a.txt");
    row("delete typed", "", "delete\n", "a.dat", 0, asked + "$1 file deleted|", "");
    row("delete is not taken in short", "", "d\ndel\n\nc\n", "a.dat", 1,
        asked + "Import, Delete, Cancel? Import, Delete, Cancel? Import, Delete, Cancel? " + left,
        "a.dat");
    row("delete", "--answer delete", {}, "a.dat B.DAT c.txt", 0, "$2 files deleted|", "c.txt");
    row("cancel", "--answer cancel", {}, "a.dat", 1, left, "a.dat");
    row("nothing waits", "", {}, "a.txt", 0, "$0 files imported, 0 points|", "a.txt");
    row("name taken", "--answer import", {}, "a.dat a.txt", 1,
        "$0 files imported, 2 points: 1 corner, 1 end|$a.dat is left: its points were imported, "
        "but a.txt already exists; the next import delivers them again|",
        "a.dat a.txt");
}

void ImportCommandTest::filesAreImported()
{
    QFETCH(QByteArray, typed);
    QFETCH(QString, files);
    QFETCH(QString, errors);
    QFETCH(QString, options);
    Import import;
    for (const QString& file : files.split(QLatin1Char(' ')))
        import.host.write(QStringLiteral("pen/") + file,
                          file.endsWith(QLatin1String(".txt")) ? "mine" : piece);
    PseudoTerminal terminal;
    if (!typed.isNull()) {
        QVERIFY(terminal.write(typed));
        import.process.setStandardInputFile(terminal.path());
    }
    const auto result = import.process.run(
        import.arguments(QStringLiteral("DIR --driver Pen --format csv ") + options));
    errors.replace(QLatin1Char('$'), QLatin1String("digitizer: "));
    QCOMPARE(result.errors, errors.replace(QLatin1Char('|'), QLatin1Char('\n')));
    QTEST(result.exitStatus, "exitStatus");
    QTEST(import.names(), "names");
    QCOMPARE(result.output, errors.contains(QLatin1String("points:"))
                                ? QLatin1String(pieceReports)
                                : QLatin1String("number,x_cm,y_cm,button,kind\n"));
}

void ImportCommandTest::aWrongCommandLineChangesNothing_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<int>("exitStatus");
    QTest::addColumn<QString>("message");
    const auto row = [](const char* words, int exitStatus, const char* message) {
        QTest::newRow(words) << QString::fromLatin1(words) << exitStatus
                             << QString::fromLatin1(message);
    };
    row("--driver Pen", 2, "DIR is missing");
    row("DIR/nowhere --driver Pen", 1, "there is no directory DIR/nowhere");
    row("DIR/a.dat --driver Pen", 1, "DIR/a.dat is not a directory");
    row("DIR", 2, "--driver is missing; 'digitizer drivers' lists the names");
    row("DIR --driver Pem", 1, "did you mean \"Pen\"?");
    row("DIR --driver Other", 1, "driver \"Other\" gives the pen's button 3 the number 4");
    row("DIR --driver Unscaled", 1, "driver \"Unscaled\" cannot scale the pen's positions");
    row("DIR --driver Pen --answer imp", 2, "--answer is 'imp', but must be one of import");
    row("DIR --driver Pen --settle 60001", 2,
        "--settle is '60001', but must be a number from 0 to");
    row("DIR --driver Pen --mode -1", 2, "--mode is '-1', but must be a number from 0");
    row("DIR --driver Pen --picture a.jpg", 2, "must end in .svg or .png");
}

void ImportCommandTest::aWrongCommandLineChangesNothing()
{
    QFETCH(QString, words);
    QFETCH(QString, message);
    Import import;
    import.host.write(QStringLiteral("pen/a.dat"), piece);
    QStringList arguments = import.arguments(words);
    if (!words.contains(QLatin1String("--answer")))
        arguments << QStringLiteral("--answer") << QStringLiteral("import");
    const auto result = import.process.run(arguments);
    QVERIFY2(result.errors.contains(
                 message.replace(QLatin1String("DIR/"), import.directory + QLatin1Char('/'))),
             qPrintable(result.errors));
    QCOMPARE(result.errors.count(QLatin1Char('\n')), 1);
    QTEST(result.exitStatus, "exitStatus");
    QCOMPARE(result.output, QString());
    QCOMPARE(import.names(), QStringLiteral("a.dat"));
}

void ImportCommandTest::theDriverMayComeFromTheSettings()
{
    Import import;
    import.host.write(QStringLiteral("home/DigitizerGeneric/digitizer.conf"),
                      "[General]\ndriver=Pen\n");
    // The buttons of the extended family, in the internal mode: a hole and a line at one place.
    import.host.write(QStringLiteral("pen/a.dat"), "A- 3\nA- 1\nX:100:200\nA- 4\nX:0:0\n");
    const auto result = import.process.run(
        import.arguments(QStringLiteral("DIR --answer import --extended --mode 55 --format csv")));
    QCOMPARE(result.output.section(QLatin1Char('\n'), 1, 3),
             QStringLiteral("1,1,2,3,hole\n2,1,2,1,corner\n3,0,0,4,end"));
    QCOMPARE(result.exitStatus, 0);
    const QSettings settings(
        import.host.path(QStringLiteral("home/DigitizerGeneric/digitizer.conf")),
        QSettings::IniFormat);
    QCOMPARE(settings.value(QStringLiteral("digitizer_file_directory")).toString(),
             import.directory);
    QCOMPARE(settings.allKeys().size(), 2);
}

void ImportCommandTest::aPictureIsDrawn()
{
    Import import;
    import.host.write(QStringLiteral("pen/a.dat"), "X:0:0\nX:900:0\nX:0:900\nA- 4\nX:0:0\n");
    const QString picture = import.host.path(QStringLiteral("picture.svg"));
    const auto result = import.process.run(
        import.arguments(QStringLiteral("DIR --driver Pen --answer import --picture ") + picture));
    QCOMPARE(result.exitStatus, 0);
    QFile file(picture);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().contains("<path"));
}

void ImportCommandTest::aDirectoryIsWatchedUntilTheEnd_data()
{
    QTest::addColumn<bool>("removed"); // the directory
    QTest::addColumn<QString>("settle");
    QTest::addColumn<int>("exitStatus");
    QTest::newRow("signal") << false << QStringLiteral("500") << 0;
    QTest::newRow("directory removed") << true << QStringLiteral("0") << 1;
    QTest::newRow("directory comes back") << true << QStringLiteral("500") << 0;
}

void ImportCommandTest::aDirectoryIsWatchedUntilTheEnd()
{
    QFETCH(bool, removed);
    QFETCH(QString, settle);
    const bool comesBack = removed && settle != QLatin1String("0");
    Import import;
    import.host.write(QStringLiteral("pen/a.dat"), "A- 4\nX:0:0\n");
    DigitizerProcess& process = import.process;
    process.setArguments(
        import.arguments(QStringLiteral("DIR --driver Pen --answer import --watch --format csv "
                                        "--settle ") +
                         settle));
    process.start();
    QByteArray errors;
    QTRY_VERIFY2_WITH_TIMEOUT((errors += process.readAllStandardError()).contains("watching"),
                              errors.constData(), 20000);
    QFile::rename(import.host.write(QStringLiteral("b"), piece),
                  import.directory + QStringLiteral("/b.dat"));
    QByteArray output;
    QTRY_VERIFY2_WITH_TIMEOUT((output += process.readAllStandardOutput()).contains("\n3,"),
                              output.constData(), 20000);
    QTRY_COMPARE(import.names(), QStringLiteral("a.txt b.txt"));
    if (removed)
        QVERIFY(QDir(import.directory).removeRecursively());
    if (comesBack) {
        QTRY_VERIFY2((errors += process.readAllStandardError()).contains("is gone; waiting"),
                     errors.constData());
        import.host.write(QStringLiteral("pen/c.dat"), piece);
        QTRY_VERIFY2((errors += process.readAllStandardError()).contains("is back\n"),
                     errors.constData());
        QTRY_COMPARE(import.names(), QStringLiteral("c.txt"));
    }
    if (!removed || comesBack)
        ::kill(pid_t(process.processId()), SIGINT);
    const auto result = process.end();
    QTEST(result.exitStatus, "exitStatus");
    errors += result.errors.toUtf8();
    QVERIFY2(errors.contains(comesBack ? ", 5 points" : ", 3 points"), errors.constData());
    QCOMPARE(errors.contains("is gone\n"), removed && !comesBack);
}

void ImportCommandTest::aFileIsWaitedFor()
{
    Import import;
    QFile file(import.host.write(QStringLiteral("pen/a.dat"), "A- 1\n"));
    PseudoTerminal terminal;
    import.process.setStandardErrorFile(terminal.path());
    import.process.setStandardOutputFile(import.host.path(QStringLiteral("out")));
    import.process.setArguments(import.arguments(
        QStringLiteral("DIR --driver Pen --answer import --format csv --settle 2000")));
    import.process.start();
    QByteArray shown;
    QTRY_VERIFY2_WITH_TIMEOUT((shown += terminal.read()).contains("waiting for a.dat to be"),
                              shown.constData(), 20000);
    QVERIFY(file.open(QIODevice::Append) && file.write("X:100:200\nA- 4\nX:1:1\n") > 0);
    file.close();
    QTRY_VERIFY2_WITH_TIMEOUT((shown += terminal.read()).contains("1 file imported, 2 points"),
                              shown.constData(), 20000);
    QTRY_COMPARE(import.process.state(), QProcess::NotRunning);
    QCOMPARE(import.process.exitCode(), 0);
    QFile out(import.host.path(QStringLiteral("out")));
    QVERIFY(out.open(QIODevice::ReadOnly));
    QCOMPARE(out.readAll(), QByteArray(pieceReports));
}

void ImportCommandTest::nothingIsLostWhenTheOutputFails()
{
    Import import;
    import.host.write(QStringLiteral("pen/a.dat"), piece);
    import.process.setStandardOutputFile(QStringLiteral("/dev/full"));
    const auto result = import.process.run(
        import.arguments(QStringLiteral("DIR --driver Pen --answer import --format json")));
    QCOMPARE(result.exitStatus, 1);
    QCOMPARE(result.errors, QStringLiteral("digitizer: cannot write to standard output; this pen "
                                           "file and those after it are left unchanged\n"));
    QCOMPARE(import.names(), QStringLiteral("a.dat"));
}

void ImportCommandTest::progressIsShownAtATerminal()
{
    Import import;
    // Long enough for any machine to take the time after which progress is shown.
    import.host.write(QStringLiteral("pen/a.dat"), QByteArray("X:1:1\n").repeated(500000));
    PseudoTerminal terminal;
    import.process.setStandardErrorFile(terminal.path());
    import.process.setStandardOutputFile(QProcess::nullDevice());
    import.process.setArguments(
        import.arguments(QStringLiteral("DIR --driver Pen --answer import --settle 0")));
    import.process.start();
    QByteArray shown;
    QTRY_VERIFY2_WITH_TIMEOUT((shown += terminal.read()).contains("imported,"), shown.constData(),
                              60000);
    const QRegularExpression lines(
        QStringLiteral("^\r\x1b\\[K0 of 1 files, \\d+ points(.*)\r\x1b\\[K"
                       "digitizer: 1 file imported, 500001 points"));
    QVERIFY2(lines.match(QString::fromLatin1(shown)).hasMatch(), shown.constData());
    QTRY_COMPARE(import.process.state(), QProcess::NotRunning);
}

void ImportCommandTest::reasonsForFilesThatStay()
{
    TestHost host;
    const QString folder = host.path(QStringLiteral("pen"));
    for (const char* name : {"a.dat", "B.DAT", "b.txt", "c.dat", ".d.dat"})
        host.write(QStringLiteral("pen/") + QLatin1String(name), {});
    QVERIFY(QFile::link(QStringLiteral("nowhere"), folder + QStringLiteral("/c.txt")));
    QVERIFY(QFile::setPermissions(folder + QStringLiteral("/a.dat"), QFile::WriteOwner));
    QVERIFY(QFile::setPermissions(host.path(QString()), QFile::Permissions(0x7777)));
    QVERIFY(QFile::setPermissions(folder, QFile::Permissions(0x5555)));
    const bool root = geteuid() == 0;
    // The real user too, whom access(2) asks about.
    QVERIFY(!root || setresuid(65534, 65534, 0) == 0);
    const PenDirectory directory(folder);
    QMap<QString, QString> reasons;
    for (const PenDirectory::Left& left : directory.left())
        reasons.insert(left.name, left.reason);
    const QStringList unreadable = directory.unreadable();
    QVERIFY(!root || setresuid(0, 0, 0) == 0);
    QVERIFY(QFile::setPermissions(folder, QFile::Permissions(0x7777)));
    QCOMPARE(directory.waiting(), 3);
    QCOMPARE(directory.imported(), 1);
    QCOMPARE(unreadable, QStringList(QStringLiteral("a.dat")));
    QCOMPARE(reasons.size(), 3);
    QVERIFY(reasons.value(QStringLiteral("a.dat")).contains(QLatin1String("not writable")));
    QVERIFY(reasons.value(QStringLiteral("B.DAT")).contains(QLatin1String("not writable")));
    QVERIFY(reasons.value(QStringLiteral("c.dat")).contains(QLatin1String("c.txt already exists")));
}

QTEST_GUILESS_MAIN(ImportCommandTest)
#include "ImportCommandTest.moc"
