// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "ReferenceHost/Serial/PseudoTerminal.h"
#include "support/VirtualScreen.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>
#include <unistd.h>

using namespace ReferenceHost;

/// The installed package as a stranger uses it: installed, moved, and the example hosts built from
/// what is there. Each host runs with a new home, the one with a window on a screen of its own.
class InstalledPackageTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void hostsPrintThePointsOfTheTablet_data();
    void hostsPrintThePointsOfTheTablet();
    void aProblemIsOneLine_data();
    void aProblemIsOneLine();
    void headersSuitAnyHost();
    void filesAreInstalled_data();
    void filesAreInstalled();

private:
    QString path(const QString& name) const { return m_place.filePath(name); }
    QProcessEnvironment environment(const QString& home) const;
    QString shell(const QString& commands) const;
    QString build(const QString& host, const QString& way) const;

    QTemporaryDir m_place;
    VirtualScreen m_screen;
};

namespace {

constexpr int patience = 20000;          // milliseconds
constexpr int compilerPatience = 100000; // milliseconds
constexpr uid_t nobody = 65534;
const QString driver = QStringLiteral("Generic 5-5-1 (ASCII)");

// Whole steps of the driver's resolution, with the digits that the hosts print.
const char script[] = "2.5397 5.0794 1\n"
                      "0.0000 0.0025 2\n"
                      "31.3524 17.2419 3\n"
                      "253.9657 0.0000 4\n";

QString scriptAsPoints()
{
    static const QRegularExpression press(QStringLiteral("(\\S+) (\\S+) (\\d)"));
    return QString::fromLatin1(script).replace(press, QStringLiteral("\\1 cm, \\2 cm, button \\3"));
}

void write(const QString& path, const QByteArray& content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(path));
}

QString programOf(const QString& host)
{
    return host == QLatin1String("host") ? QStringLiteral("example-host") : host;
}

} // namespace

QProcessEnvironment InstalledPackageTest::environment(const QString& home) const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "LD_LIBRARY_PATH"})
        environment.remove(QLatin1String(name));
    environment.insert(QStringLiteral("HOME"), home);
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), home);
    environment.insert(QStringLiteral("DISPLAY"), m_screen.display());
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    // The 3D driver, which no host needs, is unloaded with memory of its own.
    environment.insert(QStringLiteral("QT_XCB_GL_INTEGRATION"), QStringLiteral("none"));
    return environment;
}

// Runs the commands where the package is; returns an empty text, or what a failure has printed.
QString InstalledPackageTest::shell(const QString& commands) const
{
    QProcess process;
    process.setProcessEnvironment(environment(m_place.path()));
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.setWorkingDirectory(m_place.path());
    process.start(QStringLiteral("bash"), {QStringLiteral("-ec"), commands}, QIODevice::ReadOnly);
    const bool ended = process.waitForFinished(compilerPatience);
    return ended && process.exitCode() == 0
               ? QString()
               : commands + QLatin1Char('\n') + QString::fromUtf8(process.readAll());
}

// Builds the example to WAY/HOST below the place, once.
QString InstalledPackageTest::build(const QString& host, const QString& way) const
{
    const QString folder = way + QLatin1Char('/') + host;
    if (QFile::exists(path(folder)))
        return {};
    const QString sources = QStringLiteral("moved/share/DigitizerGeneric/examples/") + host;
    if (way == QLatin1String("CMake"))
        return shell(QStringLiteral("cmake -S %1 -B %2 " CMAKE_OPTIONS "\ncmake --build %2")
                         .arg(sources, folder));
    const QString modules = host == QLatin1String("host")
                                ? QStringLiteral("DigitizerGeneric")
                                : QStringLiteral("DigitizerGeneric Qt5Widgets");
    return shell(QStringLiteral("mkdir -p %1\nexport PKG_CONFIG_PATH=moved/" LIBRARY_FOLDER
                                "/pkgconfig\n" COMPILER " %2/*.cpp -o %1/%3 $(pkg-config --cflags "
                                "--libs %4) -Wl,-rpath,$PWD/moved/" LIBRARY_FOLDER)
                     .arg(folder, sources, programOf(host), modules));
}

void InstalledPackageTest::initTestCase()
{
    QVERIFY2(!m_screen.display().isEmpty(), "there is no Xvfb");
    QCOMPARE(chmod(qPrintable(m_place.path()), 0755), 0); // somebody else runs hosts, too
    const QString problem = shell(
        QStringLiteral("cmake --install " BUILD_DIRECTORY " --prefix $PWD/first\nmv first moved"));
    QVERIFY2(problem.isEmpty(), qPrintable(problem));
}

void InstalledPackageTest::hostsPrintThePointsOfTheTablet_data()
{
    QTest::addColumn<QString>("host");
    QTest::addColumn<QString>("way");
    for (const char* host : {"host", "dialog-host"}) {
        for (const char* way : {"CMake", "pkg-config"})
            QTest::addRow("%s, %s", host, way)
                << QString::fromLatin1(host) << QString::fromLatin1(way);
    }
}

void InstalledPackageTest::hostsPrintThePointsOfTheTablet()
{
    QFETCH(QString, host);
    QFETCH(QString, way);
    const QString problem = build(host, way);
    QVERIFY2(problem.isEmpty(), qPrintable(problem));
    const QTemporaryDir home;
    const QString port = home.filePath(QStringLiteral("port"));
    write(home.filePath(QStringLiteral("script")), script);
    QProcess tablet;
    tablet.setProcessEnvironment(environment(home.path()));
    tablet.start(path(QStringLiteral("moved/bin/tablet-simulator")),
                 {QStringLiteral("--driver"), driver, QStringLiteral("--link"), port,
                  QStringLiteral("--script"), home.filePath(QStringLiteral("script"))});
    QVERIFY2(tablet.waitForReadyRead(patience), tablet.readAllStandardError().constData());

    QProcess program;
    program.setProcessEnvironment(environment(home.path()));
    program.start(path(way + QLatin1Char('/') + host + QLatin1Char('/') + programOf(host)),
                  {driver, port});
    QString output;
    while (output.size() < scriptAsPoints().size() && program.waitForReadyRead(patience))
        output += QString::fromUtf8(program.readAllStandardOutput());
    QVERIFY2(output == scriptAsPoints(),
             qPrintable(output + QString::fromUtf8(program.readAllStandardError())));
    QVERIFY(tablet.waitForFinished(patience));
    QCOMPARE(tablet.exitCode(), 0);
    if (host == QLatin1String("dialog-host"))
        program.terminate(); // its window stays open without a tablet
    QVERIFY(program.waitForFinished(patience));
    QCOMPARE(program.readAllStandardOutput(), QByteArray()); // no closing report
}

void InstalledPackageTest::aProblemIsOneLine_data()
{
    QTest::addColumn<QString>("host");
    QTest::addColumn<QString>("driver");
    QTest::addColumn<QString>("port"); // empty for one that nobody may use
    QTest::addColumn<QString>("problem");
    for (const char* host : {"host", "dialog-host"}) {
        const QString name = QString::fromLatin1(host);
        QTest::addRow("%s, unknown driver", host)
            << name << QStringLiteral("My Tablet") << QStringLiteral("/dev/null")
            << QStringLiteral("no description in HOME/.local/share/Examples/PROGRAM/generated has "
                              "the name \"My Tablet\"");
        QTest::addRow("%s, no port", host)
            << name << driver << QStringLiteral("/dev/no-such-port")
            << QStringLiteral("there is no port /dev/no-such-port; check the name, and whether the "
                              "cable is plugged in");
        QTest::addRow("%s, no rights", host)
            << name << driver << QString()
            << QStringLiteral(
                   "you may not use %1: only its owner %2 may (permissions 0452); ask an "
                   "administrator to give a group, such as dialout, read and write permission");
    }
}

void InstalledPackageTest::aProblemIsOneLine()
{
    QFETCH(QString, host);
    QFETCH(QString, driver);
    QFETCH(QString, port);
    QFETCH(QString, problem);
    const QString unbuilt = build(host, QStringLiteral("CMake"));
    QVERIFY2(unbuilt.isEmpty(), qPrintable(unbuilt));
    const PseudoTerminal tablet;
    if (port.isEmpty()) {
        port = tablet.path();
        QCOMPARE(chmod(qPrintable(port), 0452), 0);
        problem = problem.arg(port, QFileInfo(port).owner());
    }
    const QTemporaryDir home;
    problem.replace(QLatin1String("HOME"), home.path());
    problem.replace(QLatin1String("PROGRAM"), programOf(host));
    QStringList command = {path(QStringLiteral("CMake/%1/%2").arg(host, programOf(host))), driver,
                           port};
    // Rights mean nothing to root.
    if (geteuid() == 0) {
        QCOMPARE(chown(qPrintable(home.path()), nobody, nobody), 0);
        command = QStringList{QStringLiteral("setpriv"), QStringLiteral("--reuid=%1").arg(nobody),
                              QStringLiteral("--regid=%1").arg(nobody),
                              QStringLiteral("--clear-groups")} +
                  command;
    }
    QProcess program;
    program.setProcessEnvironment(environment(home.path()));
    program.start(command.takeFirst(), command);
    QVERIFY(program.waitForFinished(patience));
    QCOMPARE(QString::fromUtf8(program.readAllStandardError()), problem + QLatin1Char('\n'));
    QCOMPARE(program.readAllStandardOutput(), QByteArray());
    QCOMPARE(program.exitCode(), 1);
}

// Every header, in a host that keeps "signals" for itself and is itself older C++.
void InstalledPackageTest::headersSuitAnyHost()
{
    const QDir include(path(QStringLiteral("moved/include/DigitizerGeneric")));
    QDirIterator headers(include.path(), {QStringLiteral("*.h")}, QDir::Files,
                         QDirIterator::Subdirectories);
    QByteArray source;
    while (headers.hasNext())
        source += "#include \"" + include.relativeFilePath(headers.next()).toLatin1() + "\"\n";
    QVERIFY(QDir(m_place.path()).mkdir(QStringLiteral("headers")));
    write(path(QStringLiteral("headers/headers.cpp")),
          source + "int signals, slots, emit;\n"
                   "static_assert(__cplusplus >= 201703L, \"the library asks for C++17\");\n");
    write(path(QStringLiteral("headers/CMakeLists.txt")), R"(
cmake_minimum_required(VERSION 3.18)
project(Headers CXX)
find_package(DigitizerGeneric 1.0 REQUIRED)
set(CMAKE_CXX_STANDARD 14)
add_library(headers STATIC headers.cpp)
target_compile_definitions(headers PRIVATE QT_NO_KEYWORDS)
target_link_libraries(headers PRIVATE MavSystem::DigitizerGeneric)
)");
    const QString problem = shell(QStringLiteral("cmake -S headers -B headers/build " CMAKE_OPTIONS
                                                 "\ncmake --build headers/build"));
    QVERIFY2(problem.isEmpty(), qPrintable(problem));
}

void InstalledPackageTest::filesAreInstalled_data()
{
    QTest::addColumn<QByteArray>("beginning");
    QTest::newRow("share/man/man1/digitizer.1") << QByteArray(".TH ");
    QTest::newRow("share/man/man1/tablet-simulator.1") << QByteArray(".TH ");
    QTest::newRow("share/DigitizerGeneric/Plugins/digitizer/generated/generic-5-5-1.xml")
        << QByteArray("<?xml ");
}

void InstalledPackageTest::filesAreInstalled()
{
    QFETCH(QByteArray, beginning);
    QFile file(path(QStringLiteral("moved/") + QLatin1String(QTest::currentDataTag())));
    QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(file.errorString()));
    QCOMPARE(file.read(beginning.size()), beginning);
}

QTEST_GUILESS_MAIN(InstalledPackageTest)
#include "InstalledPackageTest.moc"
