// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/File_Digital/RenameWithoutReplacing.h"
#include "DigitizerGeneric/File_Digital/WatcherReads.h"
#include "support/PenRoad.h"
#include "support/RecordedMessages.h"
#include "support/SmallDisk.h"
#include "support/Unprivileged.h"

#include <QSocketNotifier>
#include <QtTest>

#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstring>

#include <fcntl.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace MavSystem;

namespace {

using Step = std::function<void(PenRoad&)>;

void write(const QString& path, const QByteArray& content,
           QIODevice::OpenMode mode = QIODevice::WriteOnly)
{
    QFile file(path);
    QVERIFY2(file.open(mode) && file.write(content) == content.size(), qPrintable(path));
}

void setDirectory(const QString& directory)
{
    QSettings().setValue(QStringLiteral("digitizer_file_directory"), directory);
}

/// Lets everybody reach the pen directory and read the settings, and gives the directory \a rights.
Step rights(mode_t rights)
{
    return [=](PenRoad& road) {
        QSettings settings;
        settings.sync();
        for (const QString& path :
             {road.host.path(QString()), settings.fileName(), QFileInfo(settings.fileName()).path(),
              road.host.path(QStringLiteral("settings"))})
            QCOMPARE(::chmod(QFile::encodeName(path).constData(), 0755), 0);
        QCOMPARE(::chmod(QFile::encodeName(road.folder).constData(), rights), 0);
    };
}

void fillDisk(PenRoad& road)
{
    QFile filler(road.pathOf(QStringLiteral("filler")));
    QVERIFY(filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    while (filler.write(QByteArray(512, ' ')) > 0) {
    }
}

const char undecodable[] = "/\xff.dat";

void makeUndecodable(PenRoad& road)
{
    const QByteArray path = QFile::encodeName(road.folder) + undecodable;
    QVERIFY(::close(::open(path.constData(), O_CREAT | O_WRONLY, 0644)) == 0);
}

void makePipeBehindLink(PenRoad& road)
{
    QCOMPARE(::mkfifo(QFile::encodeName(road.pathOf(QStringLiteral("pipe"))).constData(), 0666), 0);
    road.put(QStringLiteral("c.dat->pipe"));
}

void reachThroughLink(PenRoad& road)
{
    QVERIFY(QDir().mkpath(road.host.path(QStringLiteral("other/deep"))));
    QVERIFY(QDir().rename(road.folder, road.host.path(QStringLiteral("other/pens"))));
    QVERIFY(QFile::link(QStringLiteral("other/deep"), road.host.path(QStringLiteral("link"))));
    QVERIFY(QDir().mkpath(road.host.path(QStringLiteral("pens"))));
    setDirectory(road.host.path(QStringLiteral("link/../pens")));
    road.folder = road.host.path(QStringLiteral("other/pens"));
}

void reachRelatively(PenRoad& road)
{
    QDir::setCurrent(road.host.path(QString()));
    setDirectory(QStringLiteral("pen/"));
}

void reachByColon(PenRoad& road)
{
    reachRelatively(road);
    road.folder = road.host.path(QString()) + QStringLiteral("/:pen");
    QVERIFY(QDir().rename(road.host.path(QStringLiteral("pen")), road.folder));
    setDirectory(QStringLiteral(":pen"));
}

/// Puts another file in the place of a.dat that differs in nothing but its content.
void replaceByTwin(PenRoad& road)
{
    const QByteArray path = QFile::encodeName(road.pathOf(QStringLiteral("a.dat")));
    struct stat status = {};
    QCOMPARE(::stat(path.constData(), &status), 0);
    const QByteArray twin = QFile::encodeName(
        road.host.write(QStringLiteral("twin"),
                        QByteArray("A- 4\nX:7:7\n").leftJustified(int(status.st_size), '\n')));
    const timespec times[] = {status.st_atim, status.st_mtim};
    QCOMPARE(::utimensat(AT_FDCWD, twin.constData(), times, 0), 0);
    QCOMPARE(std::rename(twin.constData(), path.constData()), 0);
}

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
int renameInChild(const PenRoad& road, int kernelError)
{
    const pid_t child = ::fork();
    if (child == 0) {
        if (kernelError != 0)
            forbidExclusiveRename(kernelError);
        const QString problem = renameWithoutReplacing(road.pathOf(QStringLiteral("from")),
                                                       road.pathOf(QStringLiteral("to")));
        ::_exit(problem.isEmpty() ? 0 : 1);
    }
    int status = -1;
    return ::waitpid(child, &status, 0) == child && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace

Q_DECLARE_METATYPE(Step)

/// What goes wrong around a pen directory, its files and its host.
class PenFaultsTest : public QObject
{
    Q_OBJECT

private slots:
    void init() { QDir::setCurrent(QDir::rootPath()); }
    void faults_data();
    void faults();
    void boxesMayThrow_data();
    void boxesMayThrow();
    void aReplacedImporterQueuesNothing();
    void aNestedLoopMayReadTheChangeFirst();
    void renamingReplacesNothing_data();
    void renamingReplacesNothing();
};

void PenFaultsTest::faults_data()
{
    QTest::addColumn<QString>("entries");
    QTest::addColumn<QString>("options");
    QTest::addColumn<bool>("settle");
    QTest::addColumn<Step>("before");
    QTest::addColumn<Step>("during"); // the first report
    QTest::addColumn<QString>("reports");
    QTest::addColumn<QString>("names");
    QTest::addColumn<QString>("told"); // to those who ask
    const Step nothing = [](PenRoad& /*road*/) {};
    // Each with the settle time off and on, unless "plain" or "settling" says otherwise.
    const auto row = [&](const char* name, const char* entries, const char* options,
                         const Step& before, const char* reports, const char* names,
                         const char* told = "", const Step& during = {}) {
        for (const bool settle : {false, true}) {
            if (QByteArray(options).contains(settle ? "plain" : "settling"))
                continue;
            QTest::addRow("%s%s", name, settle ? ", settling" : "")
                << QString::fromLatin1(entries) << QString::fromLatin1(options) << settle << before
                << (during ? during : nothing) << QString::fromLatin1(reports)
                << QString::fromLatin1(names) << QString::fromLatin1(told);
        }
    };
    const char one[] = "a.dat=A- 4|X:1:1|";
    const char two[] = "a.dat=X:1:1|A- 4|X:2:2|";
    row("sticky directory of somebody else", one, "root user watched", rights(01777), "4:1,1",
        "a.dat", "Operation not permitted");
    row("read-only directory", one, "root user watched", rights(0555), "4:1,1", "a.dat",
        "Permission denied");
    row("directory that may not be read", "", "user closed plain", rights(0333), "", "",
        "cannot be watched: Permission denied");
    row("directory that may not be read", "", "user settling", rights(0333), "", "");
    row("full disk", one, "disk", fillDisk, "4:1,1", "a.txt filler");
    row("name that is not UTF-8", one, "", makeUndecodable, "4:1,1", "a.txt");
    row("link to a pipe", "b.dat=A- 4|X:2:2|", "", makePipeBehindLink, "4:2,2", "b.txt c.txt pipe",
        "c.dat cannot be opened: not a regular file");
    row("name that begins with a colon", ":c.dat=A- 4|X:1:1|", "", nothing, "4:1,1", ":c.txt");
    row("the same, deleted", ":c.dat=A- 4|X:1:1|", "delete closed", nothing, "", "");
    row("directory through a link", one, "", reachThroughLink, "4:1,1", "a.txt");
    row("relative directory", one, "", reachRelatively, "4:1,1", "a.txt");
    row("directory that begins with a colon", one, "", reachByColon, "4:1,1", "a.txt");
    const auto path = [](PenRoad& road) { return road.pathOf(QStringLiteral("a.dat")); };
    row("vanishes while it is read", two, "", nothing, "1:1,1 4:2,2", "", "",
        [=](PenRoad& road) { QFile::remove(path(road)); });
    row("grows while it is read", two, "", nothing, "1:1,1 4:2,2 1:3,3", "a.txt", "",
        [=](PenRoad& road) { write(path(road), "X:3:3\n", QIODevice::Append); });
    row("is truncated while it is read", two, "", nothing, "1:1,1 4:2,2", "a.txt", "",
        [=](PenRoad& road) { QFile::resize(path(road), 0); });
    row("the new name appears meanwhile", one, "", nothing, "4:1,1", "a.dat a.txt", "a.txt",
        [](PenRoad& road) { road.put(QStringLiteral("a.txt->nothing")); });
    row("another grows while one is read", "a.dat=A- 4|X:1:1|;b.dat=A- 4|X:2:2|;c.dat=A- 4|X:3:3|",
        "settling", nothing, "4:1,1 4:3,3 4:2,2 4:9,9", "a.txt b.txt c.txt", "", [](PenRoad& road) {
            write(road.pathOf(QStringLiteral("b.dat")), "A- 4\nX:9:9\n", QIODevice::Append);
        });
    // Marking the new file as imported is what a rename by name does.
    row("is replaced while it is read", two, "plain", nothing, "1:1,1 4:2,2", "a.txt", "",
        replaceByTwin);
    row("is replaced while it is read", two, "settling", nothing, "1:1,1 4:2,2 4:7,7", "a.txt",
        "replaced by another file", replaceByTwin);
}

void PenFaultsTest::faults()
{
    QFETCH(QString, entries);
    QFETCH(QString, options);
    QFETCH(bool, settle);
    QFETCH(Step, before);
    QFETCH(Step, during);
    QFETCH(QString, reports);
    QFETCH(QString, told);
    const auto has = [&](const char* option) { return options.contains(QLatin1String(option)); };
    if (has("root") && geteuid() != 0)
        QSKIP("only root can leave somebody else a file");
    PenRoad road;
    boost::scoped_ptr<SmallDisk> disk(has("disk") ? new SmallDisk(road.folder, 64) : nullptr);
    if (disk && !disk->problem().isEmpty())
        QSKIP(qPrintable(disk->problem()));
    const QStringList files = entries.split(QLatin1Char(';'), Qt::SkipEmptyParts);
    if (!has("watched"))
        std::for_each(files.begin(), files.end(), [&](const QString& file) { road.put(file); });
    before(road);
    road.digitizer->setPenFileSettleTime(settle ? 50 : 0);
    road.host.answer = has("delete") ? 1 : 0;
    road.atReport = [&](int number) {
        if (number == 1)
            during(road);
    };
    const RecordedMessages messages(true);
    {
        const Unprivileged user(has("user"));
        QCOMPARE(road.digitizer->open(), !has("closed"));
        QCOMPARE(road.digitizer->active(), !has("closed"));
    }
    if (has("watched"))
        std::for_each(files.begin(), files.end(), [&](const QString& file) { road.put(file); });
    const Unprivileged user(has("user"));
    QTRY_COMPARE(road.delivered(), reports);
    // An import must not be what starts the next one.
    QVERIFY2(!QTest::qWaitFor([&] { return road.delivered() != reports; }, 150),
             qPrintable(road.delivered().left(80)));
    QCOMPARE(road.digitizer->unsettledPenFiles(), 0);
    QTEST(road.names(), "names");
    // Qt cannot remove it.
    ::unlink((QFile::encodeName(road.folder) + undecodable).constData());
    QVERIFY2(told.isEmpty() || RecordedMessages::hold(qPrintable(told)),
             qPrintable(RecordedMessages::texts().join(QLatin1Char('\n'))));
}

void PenFaultsTest::boxesMayThrow_data()
{
    QTest::addColumn<bool>("atQuestion"); // else in the error box
    QTest::addColumn<QString>("reports");
    QTest::addColumn<QString>("names");
    QTest::newRow("question") << true << QString() << "a.dat b.dat";
    QTest::newRow("error") << false << "1:1,1 4:2,2 1:3,3 4:4,4 4:5,5"
                           << "a.txt b.txt c.txt";
}

void PenFaultsTest::boxesMayThrow()
{
    QFETCH(bool, atQuestion);
    PenRoad road;
    road.put(QStringLiteral("a.dat=X:1:1|A- 4|X:2:2|"));
    road.put(QStringLiteral("b.dat=X:3:3|A- 4|X:4:4|"));
    bool opened = false;
    road.atReport = [&](int number) {
        if (number == 3) {
            road.put(QStringLiteral("c.dat=A- 4|X:5:5|"));
            opened = road.digitizer->open();
        }
        if (number == 1 || number == 3)
            throw std::runtime_error("thrown");
    };
    int errors = 0;
    road.host.duringDialog = [&] {
        const bool isQuestion = road.host.errors.size() == errors;
        errors = road.host.errors.size();
        if (isQuestion == atQuestion)
            throw 1;
    };
    QVERIFY(!road.digitizer->open());
    QCOMPARE(road.digitizer->active(), opened);
    QTEST(road.delivered(), "reports");
    QTEST(road.names(), "names");
}

// An importer whose question stands is replaced, and only then answered.
void PenFaultsTest::aReplacedImporterQueuesNothing()
{
    PenRoad road;
    road.put(QStringLiteral("a.dat=X:1:1|X:2:2|A- 4|X:3:3|"));
    road.host.duringDialog = [&] {
        const auto questions = road.host.questions.size();
        if (questions == 2)
            road.digitizer->open();
        road.host.answer = questions == 3 ? 2 : 0;
    };
    road.atReport = [&](int number) {
        if (number == 1) {
            road.put(QStringLiteral("b.dat=X:4:4|A- 4|X:5:5|"));
            QVERIFY(!road.digitizer->open());
        }
        if (number > 3)
            QTest::qWait(1); // during a turn that must not be
    };
    QVERIFY(!road.digitizer->open());
    QCOMPARE(road.delivered(), QStringLiteral("1:1,1 1:2,2 4:3,3"));
    QCOMPARE(road.names(), QStringLiteral("a.txt b.dat"));
}

// What a loop does that was about to read and comes second.
void PenFaultsTest::aNestedLoopMayReadTheChangeFirst()
{
    const PenRoad road;
    const QFileSystemWatcher watcher({road.folder});
    neverWaitForChanges(watcher);
    const auto notifiers = watcher.findChildren<QSocketNotifier*>();
    QCOMPARE(notifiers.size(), 1);
    QEvent activation(QEvent::SockAct);
    QVERIFY(QCoreApplication::sendEvent(notifiers.first(), &activation));
}

void PenFaultsTest::renamingReplacesNothing_data()
{
    QTest::addColumn<QString>("entries");
    QTest::addColumn<int>("kernelError");
    QTest::addColumn<QString>("names");
    for (const int error : {0, ENOSYS, EINVAL, EOPNOTSUPP}) {
        const auto row = [&](const char* name, const char* entries, const char* names) {
            QTest::addRow("%s, %s", name, error == 0 ? "known" : std::strerror(error))
                << QString::fromLatin1(entries) << error << QString::fromLatin1(names);
        };
        row("free", "from=1", "to");
        row("file", "from=1;to=2", "from to");
        row("folder", "from=1;to/", "from to");
        row("link", "from=1;x=2;to->x", "from to x");
        row("link to nothing", "from=1;to->nothing", "from to");
        row("nothing to rename", "x=", "x");
    }
}

void PenFaultsTest::renamingReplacesNothing()
{
    QFETCH(QString, entries);
    QFETCH(int, kernelError);
    PenRoad road;
    for (const QString& entry : entries.split(QLatin1Char(';')))
        road.put(entry);
    QFETCH(QString, names);
    QCOMPARE(renameInChild(road, kernelError), names == QLatin1String("to") ? 0 : 1);
    QCOMPARE(road.names(), names);
    QFile target(road.pathOf(QStringLiteral("to")));
    if (target.open(QIODevice::ReadOnly))
        QCOMPARE(target.readAll(), QByteArray(names == QLatin1String("to") ? "1" : "2"));
}

QTEST_GUILESS_MAIN(PenFaultsTest)
#include "PenFaultsTest.moc"
