// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/File_Digital/DigipenFileDigitalization.h"
#include "DigitizerGeneric/File_Digital/PenFileSettling.h"
#include "DigitizerGeneric/File_Digital/RenameWithoutReplacing.h"
#include "DigitizerGeneric/File_Digital/WatcherReads.h"
#include "support/PenSteps.h"
#include "support/RecordedMessages.h"
#include "support/SmallDisk.h"
#include "support/TextRows.h"

#include <QSocketNotifier>
#include <QTranslator>
#include <QtTest>

#include <cerrno>
#include <cstddef>
#include <cstring>

#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace MavSystem;

namespace {
// The process then has a kernel, or a file system, that answers \a error.
void forbidExclusiveRename(int error)
{
    sock_filter rules[] = {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_renameat2, 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | unsigned(error)),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    };
    const sock_fprog program = {4, rules};
    if (::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 ||
        ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) != 0)
        ::_exit(99);
}

/// The end of a process that renames "from" to "to": 0 if it could.
int renameInChild(const PenInput& pen, int kernelError)
{
    const pid_t child = ::fork();
    if (child == 0) {
        if (kernelError != 0)
            forbidExclusiveRename(kernelError);
        const QString problem = renameWithoutReplacing(pen.pathOf("from"), pen.pathOf("to"));
        ::_exit(problem.isEmpty() ? 0 : 1);
    }
    int status = -1;
    return ::waitpid(child, &status, 0) == child && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// "name:size.modified", a file of pen-looks.txt.
PenFileSettling::File fileOf(const QString& text)
{
    PenFileStamp stamp;
    stamp.size = text.section(':', 1).section('.', 0, 0).toLongLong();
    stamp.modified = text.section('.', 1).toLongLong();
    return {text.section(':', 0, 0), stamp};
}

} // namespace

/// The pen input from the directory to the handler: what is imported, what goes wrong, what a host
/// may do meanwhile, and files that are still being written. The tables are Rows/pen-*.txt.
class PenImportTest : public QObject
{
    Q_OBJECT

private slots:
    void init() { QDir::setCurrent(QDir::rootPath()); }

    void sampleFilesGiveTheReportsBesideThem_data()
    {
        QTest::addColumn<QString>("file"); // without its extension
        QDirIterator files(SOURCE_DIRECTORY "/Examples/pen", {"*.dat"}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext())
            QTest::newRow(qPrintable(QFileInfo(files.next()).baseName()))
                << files.filePath().chopped(4);
    }

    void sampleFilesGiveTheReportsBesideThem()
    {
        QFETCH(QString, file);
        PenInput pen;
        pen.host.writeDescription("pen.xml",
                                  bytesOf(SOURCE_DIRECTORY "/Examples/pen/example-pen.xml"));
        pen.host.write("pen/a.dat", bytesOf(file + ".dat"));
        pen.digitizer->selectDevice("Example Pen", "File:");
        pen.digitizer->setExtended4Buttons(file.contains("/extended/"));
        QByteArray reports;
        DigitalReport::registerHandle([&](const DigitalReport& report) {
            reports += QByteArray::number(report.coordinate().x(), 'f', 4) + ' ' +
                       QByteArray::number(report.coordinate().y(), 'f', 4) + ' ' +
                       QByteArray::number(report.m_button_number) + '\n';
        });
        QVERIFY(pen.digitizer->open());
        QCOMPARE(reports, bytesOf(file + ".reports"));
    }

    void scenarios_data()
    {
        QTest::addColumn<QByteArray>("steps");
        for (const TextRow& row : textRows("pen-imports.txt", 4))
            QTest::newRow(row.name)
                << "put " + row.fields.at(0) + " & " + row.fields.at(1) +
                       (row.fields.at(1).contains("errors") ? "" : " & errors") +
                       " & close & reports " + row.fields.at(2) + " & names " + row.fields.at(3);
        const QByteArray text = bytesOf(SOURCE_DIRECTORY "/Tests/Rows/pen-scenarios.txt");
        QByteArrayList steps;
        for (const QByteArray& line : text.split('\n')) {
            if (line.isEmpty() && !steps.isEmpty())
                QTest::newRow(steps.takeFirst()) << unescaped(steps.join(" & "));
            if (line.isEmpty())
                steps.clear();
            else if (!line.startsWith('#'))
                steps << line;
        }
    }

    void scenarios()
    {
        QFETCH(QByteArray, steps);
        PenInput pen;
        PenSteps::runAll(pen, steps);
    }

    void aHostMayDoAnythingInItsHandler_data()
    {
        QTest::addColumn<TextRow>("row");
        QTest::addColumn<QByteArray>("starter"); // of the import
        for (const TextRow& row : textRows("pen-handlers.txt", 4)) {
            for (const char* starter : {"open()", "the watcher", "the timer"})
                QTest::addRow("%s, import started by %s", row.name.constData(), starter)
                    << row << QByteArray(starter);
        }
    }

    void aHostMayDoAnythingInItsHandler()
    {
        QFETCH(TextRow, row);
        QFETCH(QByteArray, starter);
        PenInput pen;
        pen.digitizer->setPenFileSettleTime(starter == "the timer" ? 50 : 0);
        PenSteps::runAll(pen, "report 1: " +
                                  QByteArray(row.fields.at(0)).replace(" & ", " & report 1: "));
        const bool byOpen = starter == "open()";
        QVERIFY(byOpen || pen.digitizer->open());
        // Both before the first notification.
        pen.put("b.dat=X:4:4\nA- 4\nX:5:5\n|a.dat=X:1:1\nX:2:2\nA- 4\nX:3:3\n");
        // An importer that was replaced meanwhile does not watch.
        const bool replaced = row.fields.at(2) == "replaced";
        if (byOpen)
            QCOMPARE(pen.digitizer->open(), !replaced);
        QTRY_COMPARE(pen.names(), QByteArray("a.txt b.txt"));
        // Whatever was replaced goes now, and what was deferred is through.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
        const QByteArray reports = row.fields.at(3);
        QCOMPARE(pen.delivered(), reports.isEmpty() ? "1:1,1 1:2,2 4:3,3 1:4,4 4:5,5" : reports);
        // One that was closed inside its own open() starts to watch after that.
        const bool active = row.fields.at(1) == "yes" || (byOpen && !replaced);
        QCOMPARE(pen.digitizer->active(), active);
        if (!active || row.name == "unregister")
            return;
        // What comes later is delivered, once.
        pen.reports.clear();
        pen.hooks.clear();
        PenSteps::runAll(pen, "select A File: & put later.dat=A- 4\nX:6:6\n & "
                              "names a.txt b.txt later.txt & reports 4:6,6");
    }

    void faults_data()
    {
        QTest::addColumn<TextRow>("row");
        QTest::addColumn<bool>("settle");
        for (const TextRow& row : textRows("pen-faults.txt", 5)) {
            for (const bool settle : {false, true}) {
                if (!row.fields.at(0).contains(settle ? "plain" : "settling"))
                    QTest::addRow("%s%s", row.name.constData(), settle ? ", settling" : "")
                        << row << settle;
            }
        }
    }

    void faults()
    {
        QFETCH(TextRow, row);
        QFETCH(bool, settle);
        if (row.fields.at(0) == "root" && geteuid() != 0)
            QSKIP("only root can leave somebody else a file");
        PenInput pen;
        const bool small = row.fields.at(0) == "disk";
        boost::scoped_ptr<SmallDisk> disk(small ? new SmallDisk(pen.folder, 64) : nullptr);
        if (disk && !disk->problem().isEmpty())
            QSKIP(qPrintable(disk->problem()));
        const auto same = qScopeGuard([] { QCOMPARE(::seteuid(::getuid()), 0); });
        const RecordedMessages messages(true);
        pen.digitizer->setPenFileSettleTime(settle ? 50 : 0);
        PenSteps::runAll(pen, row.fields.at(1));
        // An import must not be what starts the next one.
        PenSteps::runAll(pen, "reports " + row.fields.at(2) + " & quiet & waiting 0 & names " +
                                  row.fields.at(3) + " & " + row.fields.at(4));
    }

    void textsAreTranslatedInTheirContexts()
    {
        struct Translator : QTranslator
        {
            bool isEmpty() const override { return false; }
            QString translate(const char* context, const char* source,
                              const char* /*disambiguation*/, int /*n*/) const override
            {
                return QLatin1String(context).mid(11) + '/' + QLatin1String(source);
            }
        } translator;
        QCoreApplication::installTranslator(&translator);
        PenInput pen;
        PenSteps::runAll(pen, "put a.dat=X:1:1 & report 1: throw & open yes & "
                              "errors MavApplication/Unexpected Error");
        QCOMPARE(pen.host.questions.value(0),
                 "DigipenFileDigitalization/Digitizer files are ready to be imported.|"
                 "DigipenFileDigitalization/Import|DigipenFileDigitalization/Import|"
                 "DigipenFileDigitalization/Delete|DigipenFileDigitalization/Cancel");
    }

    void filesThatArriveDuringAnErrorBox_data()
    {
        QTest::addColumn<QByteArray>("steps"); // with MANY files, before another one
        QTest::addColumn<QByteArray>("error");
        QTest::addColumn<bool>("imported");
        // The file at hand goes, so that its renaming announces nothing after the box.
        const QByteArray box =
            "report 1: throw thrown & error 1: sh rm pen/a.dat & error 1: MANY & "
            "error 1: told waits for its end & error 1: reports 4:1,1";
        QTest::newRow("wait for the end") << box << QByteArray("thrown") << true;
        QTest::newRow("are not imported if the host closes")
            << box + " & error 1: close" << QByteArray("thrown") << false;
        QTest::newRow("without a box are imported at once")
            << QByteArray("MANY") << QByteArray() << true;
    }

    void filesThatArriveDuringAnErrorBox()
    {
        QFETCH(QByteArray, steps);
        QFETCH(QByteArray, error);
        QFETCH(bool, imported);
        const RecordedMessages messages(true);
        PenInput pen;
        QByteArray many = "put ";
        QByteArray reports = "4:1,1 4:2,2";
        for (int number = 1000; number < 1300; ++number) {
            const QByteArray text = QByteArray::number(number);
            // In descending order, so that the import has to sort them.
            many.insert(4, "p" + text + ".dat=A- 4\nX:" + text + ":0|");
            reports += imported ? " 4:" + text + ",0" : "";
        }
        PenSteps::runAll(pen, "open yes & " + steps.replace("MANY", many) +
                                  " & put a.dat=A- 4\nX:1:1\nA- 4\nX:2:2 & reports " + reports +
                                  " & quiet & errors " + error);
        QCOMPARE(pen.names().count(".dat"), imported ? 0 : 300);
    }

    void anImporterInUseIsDeletedAtItsEnd()
    {
        PenInput pen;
        pen.put("a.dat=X:1:1\nA- 4\nX:2:2\n");
        const QPointer<DigipenFileDigitalization> importer =
            new DigipenFileDigitalization(pen.digitizer.get(), false);
        pen.hooks["report 1"] << [&] { importer->release(); };
        importer->analyzerDigitPenFile(pen.folder);
        QVERIFY(importer);
        QCOMPARE(pen.delivered(), QByteArray("1:1,1 4:2,2"));
        QCoreApplication::sendPostedEvents(importer, QEvent::DeferredDelete);
        QVERIFY(!importer);
        const QPointer<DigipenFileDigitalization> unused =
            new DigipenFileDigitalization(pen.digitizer.get(), false);
        unused->release();
        QVERIFY(!unused);
    }

    // What a loop does that was about to read and comes second.
    void aNestedLoopMayReadTheChangeFirst()
    {
        const PenInput pen;
        const QFileSystemWatcher watcher({pen.folder});
        neverWaitForChanges(watcher);
        const auto notifiers = watcher.findChildren<QSocketNotifier*>();
        QCOMPARE(notifiers.size(), 1);
        QEvent activation(QEvent::SockAct);
        QVERIFY(QCoreApplication::sendEvent(notifiers.first(), &activation));
    }

    void renamingReplacesNothing_data()
    {
        QTest::addColumn<int>("kernelError");
        for (const int error : {0, ENOSYS, EINVAL, EOPNOTSUPP})
            QTest::newRow(error == 0 ? "known" : std::strerror(error)) << error;
    }

    void renamingReplacesNothing()
    {
        QFETCH(int, kernelError);
        const char* const rows[][2] = {
            {"from=1", "to"},
            {"from=1|to=2", "from to"},
            {"from=1|to/", "from to"},
            {"from=1|x=2|to->x", "from to x"},
            {"from=1|to->nothing", "from to"},
            {"x=", "x"},
        };
        for (const auto& [entries, names] : rows) {
            PenInput pen;
            pen.put(entries);
            const bool renamed = QByteArray(names) == "to";
            QCOMPARE(renameInChild(pen, kernelError), renamed ? 0 : 1);
            QCOMPARE(pen.names(), QByteArray(names));
            if (QFileInfo(pen.pathOf("to")).isFile())
                QCOMPARE(bytesOf(pen.pathOf("to")), QByteArray(renamed ? "1" : "2"));
        }
    }

    void exportedOperations()
    {
        PenInput pen;
        const QMetaObject& meta = DigipenFileDigitalization::staticMetaObject;
        QCOMPARE(meta.className(), "MavSystem::DigipenFileDigitalization");
        QCOMPARE(meta.methodCount() - meta.methodOffset(), 1);
        DigipenFileDigitalization importer(pen.digitizer.get(), false);
        QVERIFY(importer.close());
        QVERIFY(!importer.active());

        // The slot by its index; and the step with maps, which takes its command from the import.
        ButtonValue button{{' ', ' ', '\0'}};
        QMap<int, char> x;
        QMap<int, char> y;
        QVERIFY(QDir::setCurrent(pen.host.path(QString())));
        pen.hooks["report 1"] << [&] {
            QVERIFY(importer.readingDigitizingCommand(button, x, y));
            QDir::setCurrent(QDir::rootPath());
        };
        // The step that finds the end of the file renames it.
        pen.hooks["report 2"] << [&] {
            QVERIFY(!importer.readingDigitizingCommand(button, x, y));
            QCOMPARE(pen.names(), QByteArray("a.txt"));
        };
        pen.put("a.dat=X:1:1\nX:23:45\nA- 4\nX:3:3\n");
        QVERIFY(meta.method(meta.methodOffset()).invoke(&importer, Q_ARG(QString, "pen")));
        QCOMPARE(pen.delivered(), QByteArray("1:1,1 4:3,3"));
        QCOMPARE(button.m_code[0], '1');
        QCOMPARE(x, (QMap<int, char>{{1, '2'}, {2, '3'}}));
        QCOMPARE(y, (QMap<int, char>{{4, '4'}, {5, '5'}}));
        QVERIFY(!importer.readingDigitizingCommand(button, x, y));

        pen.put("a.one=|B.ONE=|c.two=|d.three=|.e.one=|f.one/");
        importer.removeAllFileFromDirectory(pen.folder, {"*.one", "*.two"});
        importer.removeAllFileFromDirectory(pen.folder, {});
        QCOMPARE(pen.names(), QByteArray(".e.one a.txt d.three f.one"));
    }

    void looks_data() { addTextRows("pen-looks.txt", 1); }

    void looks()
    {
        QFETCH(TextRow, row);
        PenFileSettling settling;
        settling.setSettleTime(100);
        for (const QString& step : row.text(0).split(" | ")) {
            const QString before = step.section(" >", 0, 0);
            const QString times = before.section(' ', 0, 0);
            QVector<PenFileSettling::File> found;
            for (const QString& file : before.split(' ').filter(":"))
                found << fileOf(file);
            QString result = before + QStringLiteral(" >");
            for (const auto& file : settling.look(found, times.section('-', 0, 0).toLongLong(),
                                                  times.section('-', -1).toLongLong())) {
                result += ' ' + file.name;
                if (before.endsWith('!'))
                    settling.setImported(file);
                if (before.endsWith('?'))
                    settling.forget(file.name);
            }
            QCOMPARE(result + QStringLiteral(" / %1").arg(settling.waiting()), step);
        }
    }

    void theSettleTimeIsNotSaved()
    {
        PenInput pen;
        pen.digitizer->setPenFileSettleTime(70);
        pen.digitizer->saveConfig();
        QCOMPARE(Digitizer().penFileSettleTime(), 0);
        pen.digitizer->setPenFileSettleTime(-1);
        QCOMPARE(pen.digitizer->penFileSettleTime(), 0);
    }

    // The writer's timer always comes between two looks, however slow the machine.
    void aGrowingFileIsImportedWhole()
    {
        PenInput pen;
        pen.digitizer->setPenFileSettleTime(200);
        QVERIFY(pen.digitizer->open());
        QFile file(pen.pathOf("a.dat"));
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        QByteArrayList expected;
        QTimer writer;
        connect(&writer, &QTimer::timeout, this, [&] {
            file.write("A- 4\nX:1:1\n");
            expected << "4:1,1";
            if (expected.size() == 40)
                writer.stop();
        });
        writer.start(20);
        QTRY_COMPARE(pen.digitizer->unsettledPenFiles(), 1);
        QTRY_COMPARE(pen.names(), QByteArray("a.txt"));
        QCOMPARE(expected.size(), 40);
        QCOMPARE(pen.reports, expected);
    }
};

QTEST_GUILESS_MAIN(PenImportTest)
#include "PenImportTest.moc"
