// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/File_Digital/DigipenFileDigitalization.h"
#include "support/PenRoad.h"
#include "support/RecordedMessages.h"
#include "support/Unprivileged.h"

#include <QTranslator>
#include <QtTest>

using namespace MavSystem;

namespace {

struct NotOfTheStandardFamily
{};

void throwStandard(int number)
{
    if (number == 1)
        throw std::runtime_error("Gr\xc3\xb6\xc3\x9f"
                                 "e");
}

void throwOther(int number)
{
    if (number == 1)
        throw NotOfTheStandardFamily();
}

} // namespace

/// The pen road from the directory to the handler.
class PenImportTest : public QObject
{
    Q_OBJECT

private slots:
    void waitingFilesAreImported_data();
    void waitingFilesAreImported();
    void sampleFilesGiveTheReportsBesideThem_data();
    void sampleFilesGiveTheReportsBesideThem();
    void theDirectoryComesFromTheSettings_data();
    void theDirectoryComesFromTheSettings();
    void filesChangeWhileTheQuestionIsShown();
    void textsAreTranslatedInTheirContexts();
    void aDirectoryIsWatched();
    void manyFilesAtOnceAreEachDeliveredOnce();
    void filesThatArriveDuringAnErrorBoxWaitForTheEnd_data();
    void filesThatArriveDuringAnErrorBoxWaitForTheEnd();
    void aHostMayDoAnythingInItsHandler_data();
    void aHostMayDoAnythingInItsHandler();
    void aTakenLinkIsNotWrittenThrough();
    void anUnreadableFileIsPassedOver();
    void exportedOperations();
};

void PenImportTest::waitingFilesAreImported_data()
{
    QTest::addColumn<QStringList>("entries");
    QTest::addColumn<QString>("options");
    QTest::addColumn<QString>("reports");
    QTest::addColumn<QString>("names");
    const auto row = [](const char* name, const QStringList& entries, const char* reports,
                        const char* names, const char* options = "") {
        QTest::newRow(name) << entries << QString::fromLatin1(options)
                            << QString::fromLatin1(reports) << QString::fromLatin1(names);
    };
    const auto entries = [](const char* text) {
        return QString::fromLatin1(text).split(QLatin1Char(';'), Qt::SkipEmptyParts);
    };
    const char piece[] = "p.dat=A- 2|X:1:2|A- 4|X:3:4|";
    row("no files", {}, "", "", "unasked");
    row("other files", entries("a.txt=X:1:1;a.dat2=;dat=;.dat="), "", ".dat a.dat2 a.txt dat",
        "unasked");
    row("one piece", entries(piece), "2:1,2 4:3,4", "p.txt");
    row("delete", entries("a.dat=;B.DAT=;c.txt=;d.dat/;.e.dat="), "", ".e.dat c.txt d.dat",
        "delete");
    row("cancel", entries(piece), "", "p.dat", "cancel");
    row("any other answer", entries(piece), "", "p.dat", "dismissed");
    row("in name order", entries("c.dat=X:3:3;B.DAT=X:2:2;a.dat=X:1:1"), "1:1,1 4:0,0 1:2,2 1:3,3",
        "a.txt B.txt c.txt");
    row("last suffix", entries("pen.01.dat="), "4:0,0", "pen.01.txt");
    row("hidden", entries(".h.dat=X:1:1"), "", ".h.dat", "unasked");
    row("a folder", entries("x.dat/"), "", "x.dat");
    row("a link to a file", entries("other=X:1:1;x.dat->other"), "1:1,1 4:0,0", "other x.txt");
    row("a link to nothing", entries("x.dat->nothing"), "", "x.dat", "unasked");
    row("name taken by a file", entries("p.txt=mine;p.dat=A- 4|X:1:1"), "4:1,1", "p.dat p.txt");
    row("name taken by a folder", entries("p.txt/;p.dat=A- 4|X:1:1"), "4:1,1", "p.dat p.txt");
    row("name taken by a link", entries("x=;p.txt->x;p.dat=A- 4|X:1:1"), "4:1,1", "p.dat p.txt x");
    row("two of one base name", entries("p.dat=A- 4|X:1:1;p.DAT=A- 4|X:2:2"), "4:2,2 4:1,1",
        "p.dat p.txt");
    row("empty file", entries("a.dat="), "4:0,0", "a.txt");
    row("two empty files", entries("a.dat=;b.dat="), "4:0,0", "a.txt b.txt");
    row("nothing but other lines", entries("a.dat=x: 1 y: 2||# A- 4|"), "4:0,0", "a.txt");
    row("without a last line end", entries("a.dat=A- 4|X:1:1"), "4:1,1", "a.txt");
    row("line starting with a zero byte", entries("a.dat=X:1:1|@ X:9:9|X:2:2|"),
        "1:1,1 4:0,0 1:2,2", "a.txt");
    row("zero byte, nothing to close", entries("a.dat=A- 4|X:1:1|@|X:2:2|;b.dat=X:3:3"),
        "4:1,1 1:3,3", "a.txt b.txt");
    row("zero byte in a line", entries("a.dat=X:1@:9|A- 4@4|X:2:2@|"), "1:1,0 4:2,2", "a.txt");
    row("megabyte of a line",
        {QStringLiteral("a.dat=X%1:7:8|A- 4|X:1:1|").arg(QString(1 << 20, QLatin1Char('.')))},
        "1:7,8 4:1,1", "a.txt");
    row("negative", entries("a.dat=X:-5:7|A- 4|X:5:-7|"), "1:0,7 4:5,0", "a.txt");
    row("state starts anew with each file", entries("a.dat=A- 2|X:1:1|;b.dat=X:2:2|"),
        "2:1,1 4:0,0 1:2,2", "a.txt b.txt");
    row("curve lives on",
        entries("a.dat=A- 2|X:1:1|A- 4|X:2:2|;b.dat=A- 3|A- 1|X:3:3|X:4:4|X:5:5|"),
        "2:1,1 4:2,2 3:3,3 1:4,4 2:5,5 4:0,0", "a.txt b.txt", "extended");
    row("recorded button lives on", entries("a.dat=A- 4|X:1:1|;b.dat=X:2:2|"), "4:1,1 1:2,2",
        "a.txt b.txt");
    row("internal mode", entries("a.dat=A- 3|A- 1|X:1:1|;b.dat=X:2:2|"),
        "3:1,1 1:1,1 4:0,0 4:0,0 1:2,2 4:0,0 4:0,0", "a.txt b.txt", "extended internal");
    row("handler throws", entries("a.dat=X:1:1|A- 4|X:2:2|"), "1:1,1 4:2,2", "a.txt", "throw");
    row("handler throws something else", entries("a.dat=X:1:1|A- 4|X:2:2|"), "1:1,1 4:2,2", "a.txt",
        "throw other");
    row("handler throws while commands are pending", entries("a.dat=A- 3|A- 1|X:1:1|A- 4|X:2:2|"),
        "3:1,1 1:1,1 4:2,2 4:0,0 4:0,0", "a.txt", "extended internal throw");
}

void PenImportTest::waitingFilesAreImported()
{
    QFETCH(QStringList, entries);
    QFETCH(QString, options);
    const auto has = [&](const char* option) { return options.contains(QLatin1String(option)); };
    PenRoad road;
    for (const QString& entry : entries)
        road.put(entry);
    road.digitizer->setExtended4Buttons(has("extended"));
    road.digitizer->m_host_mode = has("internal") ? 50 : 0;
    road.host.answer = has("delete") ? 1 : has("cancel") ? 2 : has("dismissed") ? -1 : 0;
    if (has("throw"))
        road.atReport = has("other") ? throwOther : throwStandard;

    const bool imported = road.host.answer == 0;
    QCOMPARE(road.digitizer->open(), imported);
    QCOMPARE(road.digitizer->active(), imported);
    QTEST(road.delivered(), "reports");
    QTEST(road.names(), "names");
    QCOMPARE(road.host.questions,
             has("unasked") ? QStringList()
                            : QStringList(QStringLiteral("Digitizer files are ready to be imported."
                                                         "|Import|Import|Delete|Cancel")));
    QCOMPARE(road.host.errors, !has("throw")
                                   ? QStringList()
                                   : QStringList(has("other") ? QStringLiteral("Unexpected Error")
                                                              : QStringLiteral("Gr\u00f6\u00dfe")));
    road.reports.clear();
    QVERIFY(!road.digitizer->close());
    QVERIFY(!road.digitizer->active());
    QVERIFY(road.reports.isEmpty());
}

void PenImportTest::sampleFilesGiveTheReportsBesideThem_data()
{
    QTest::addColumn<QString>("file"); // without its extension
    QDirIterator files(QStringLiteral(SOURCE_DIRECTORY "/Examples/pen"), {QStringLiteral("*.dat")},
                       QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext())
        QTest::newRow(qPrintable(QFileInfo(files.next()).baseName()))
            << files.filePath().chopped(4);
}

void PenImportTest::sampleFilesGiveTheReportsBesideThem()
{
    QFETCH(QString, file);
    PenRoad road;
    const auto contentOf = [](const QString& path) {
        QFile opened(path);
        return opened.open(QIODevice::ReadOnly) ? opened.readAll() : QByteArray("not there");
    };
    road.host.writeDescription(
        QStringLiteral("pen.xml"),
        contentOf(QStringLiteral(SOURCE_DIRECTORY "/Examples/pen/example-pen.xml")));
    road.host.write(QStringLiteral("pen/a.dat"), contentOf(file + QStringLiteral(".dat")));
    road.digitizer->selectDevice(QStringLiteral("Example Pen"), QStringLiteral("File:"));
    road.digitizer->setExtended4Buttons(file.contains(QLatin1String("/extended/")));
    QByteArray reports;
    DigitalReport::registerHandle([&](const DigitalReport& report) {
        reports += QByteArray::number(report.coordinate().x(), 'f', 4) + ' ' +
                   QByteArray::number(report.coordinate().y(), 'f', 4) + ' ' +
                   QByteArray::number(report.m_button_number) + '\n';
    });
    QVERIFY(road.digitizer->open());
    QCOMPARE(QString::fromLatin1(reports),
             QString::fromLatin1(contentOf(file + QStringLiteral(".reports"))));
}

void PenImportTest::theDirectoryComesFromTheSettings_data()
{
    QTest::addColumn<QVariant>("setting"); // invalid: absent
    QTest::addColumn<bool>("opens");
    QTest::newRow("absent: the root of the file system") << QVariant() << true;
    QTest::newRow("empty") << QVariant(QString()) << false;
    QTest::newRow("missing") << QVariant(QStringLiteral("/does/not/exist")) << false;
}

void PenImportTest::theDirectoryComesFromTheSettings()
{
    QFETCH(QVariant, setting);
    PenRoad road;
    road.host.answer = 2;
    const QString key = QStringLiteral("digitizer_file_directory");
    if (setting.isValid())
        QSettings().setValue(key, setting);
    else
        QSettings().remove(key);
    QTEST(road.digitizer->open(), "opens");
    QTEST(road.digitizer->active(), "opens");
    QCOMPARE(road.host.questions + road.host.errors + road.host.warnings, QStringList());
}

void PenImportTest::filesChangeWhileTheQuestionIsShown()
{
    PenRoad road;
    road.put(QStringLiteral("gone.dat=X:1:1"));
    road.host.duringDialog = [&] {
        QVERIFY(QFile::remove(road.pathOf(QStringLiteral("gone.dat"))));
        road.put(QStringLiteral("new.dat=A- 4|X:2:2"));
    };
    QVERIFY(road.digitizer->open());
    QCOMPARE(road.delivered(), QStringLiteral("4:2,2"));
    // And one that goes after the directory has been listed.
    road.reports.clear();
    road.put(QStringLiteral("a.dat=A- 4|X:3:3"));
    road.put(QStringLiteral("b.dat=A- 4|X:4:4"));
    road.put(QStringLiteral("c.dat=A- 4|X:5:5"));
    road.host.duringDialog = [] {};
    road.atReport = [&](int number) {
        if (number == 1)
            QFile::remove(road.pathOf(QStringLiteral("b.dat")));
    };
    QVERIFY(road.digitizer->open());
    QCOMPARE(road.delivered(), QStringLiteral("4:3,3 4:5,5"));
    QCOMPARE(road.names(), QStringLiteral("a.txt c.txt new.txt"));
    QVERIFY(road.host.errors.isEmpty());
}

void PenImportTest::textsAreTranslatedInTheirContexts()
{
    struct Translator : QTranslator
    {
        bool isEmpty() const override { return false; }
        QString translate(const char* context, const char* source, const char* /*disambiguation*/,
                          int /*n*/) const override
        {
            return QLatin1String(context) + QLatin1Char('/') + QLatin1String(source);
        }
    } translator;
    QCoreApplication::installTranslator(&translator);
    PenRoad road;
    road.put(QStringLiteral("a.dat=X:1:1"));
    road.atReport = throwOther;
    QVERIFY(road.digitizer->open());
    const QString prefix = QStringLiteral("MavSystem::DigipenFileDigitalization/");
    QCOMPARE(road.host.questions.value(0),
             QString(prefix + QStringLiteral("Digitizer files are ready to be imported.|") +
                     prefix + QStringLiteral("Import|") + prefix + QStringLiteral("Import|") +
                     prefix + QStringLiteral("Delete|") + prefix + QStringLiteral("Cancel")));
    QCOMPARE(road.host.errors,
             QStringList(QStringLiteral("MavSystem::MavApplication/Unexpected Error")));
}

void PenImportTest::aDirectoryIsWatched()
{
    PenRoad road;
    QVERIFY(road.digitizer->open());
    road.put(QStringLiteral("a.dat=A- 4|X:1:1"));
    QTRY_COMPARE(road.delivered(), QStringLiteral("4:1,1"));
    QTRY_COMPARE(road.names(), QStringLiteral("a.txt"));
    // A taken name leaves the file, which is imported again at the next change.
    road.put(QStringLiteral("b.txt=mine"));
    road.put(QStringLiteral("b.dat=A- 4|X:2:2"));
    QTRY_COMPARE(road.delivered(), QStringLiteral("4:1,1 4:2,2"));
    QVERIFY(QFile::remove(road.pathOf(QStringLiteral("b.txt"))));
    QTRY_COMPARE(road.delivered(), QStringLiteral("4:1,1 4:2,2 4:2,2"));
    QTRY_COMPARE(road.names(), QStringLiteral("a.txt b.txt"));
    // Closed, nothing is imported; a watcher of the test's own tells that the change is announced.
    road.digitizer->close();
    QFileSystemWatcher watcher({road.folder});
    QSignalSpy announced(&watcher, &QFileSystemWatcher::directoryChanged);
    road.put(QStringLiteral("c.dat=A- 4|X:3:3"));
    QVERIFY(announced.wait());
    QCOMPARE(road.reports.size(), 3);
    QCOMPARE(road.host.questions.size(), 0);
}

void PenImportTest::manyFilesAtOnceAreEachDeliveredOnce()
{
    PenRoad road;
    QVERIFY(road.digitizer->open());
    QStringList expected;
    for (int number = 199; number >= 0; --number) {
        road.put(QStringLiteral("p%1.dat=A- 4|X:%1:0").arg(number));
        expected << QStringLiteral("4:%1,0").arg(number);
    }
    QTRY_VERIFY2(!road.names().contains(QLatin1String(".dat")), qPrintable(road.names()));
    QCoreApplication::processEvents();
    expected.sort();
    road.reports.sort();
    QCOMPARE(road.reports, expected);
}

void PenImportTest::filesThatArriveDuringAnErrorBoxWaitForTheEnd_data()
{
    QTest::addColumn<bool>("closes"); // the host, in the error box
    QTest::newRow("goes on") << false;
    QTest::newRow("closes") << true;
}

void PenImportTest::filesThatArriveDuringAnErrorBoxWaitForTheEnd()
{
    QFETCH(bool, closes);
    const RecordedMessages messages(true);
    PenRoad road;
    QVERIFY(road.digitizer->open());
    QStringList expected = {QStringLiteral("4:1,1"), QStringLiteral("4:2,2")};
    for (int number = 0; number < 300 && !closes; ++number)
        expected << QStringLiteral("4:%1,0").arg(number + 1000);
    bool boxEnded = false;
    road.host.duringDialog = [&] {
        // The file at hand goes, so that its renaming announces nothing after the box.
        QVERIFY(QFile::remove(road.pathOf(QStringLiteral("z.dat"))));
        for (int number = 299; number >= 0; --number)
            road.put(QStringLiteral("p%1.dat=A- 4|X:%1:0").arg(number + 1000));
        QTRY_VERIFY(RecordedMessages::hold("waits for its end"));
        QCOMPARE(road.reports.size(), 1);
        if (closes)
            road.digitizer->close();
        boxEnded = true;
    };
    road.atReport = throwStandard;
    road.put(QStringLiteral("z.dat=A- 4|X:1:1|A- 4|X:2:2"));
    QTRY_VERIFY(boxEnded && road.reports.size() >= expected.size());
    QCoreApplication::processEvents();
    QCOMPARE(road.reports, expected);
    QCOMPARE(road.names().count(QLatin1String(".dat")), closes ? 300 : 0);
    QCOMPARE(road.host.errors.size(), 1);
}

void PenImportTest::aHostMayDoAnythingInItsHandler_data()
{
    QTest::addColumn<QString>("action");  // at the first report
    QTest::addColumn<QString>("starter"); // of the import
    QTest::addColumn<bool>("active");     // afterwards
    QTest::addColumn<QString>("reports");
    const char all[] = "1:1,1 1:2,2 4:3,3 1:4,4 4:5,5";
    for (const char* starter : {"open()", "the watcher", "the timer"}) {
        const auto row = [&](const char* action, bool active, const char* reports) {
            QTest::addRow("%s, import started by %s", action, starter)
                << QString::fromLatin1(action) << QString::fromLatin1(starter) << active
                << QString::fromLatin1(reports);
        };
        row("close", QByteArray(starter) == "open()", all);
        row("open", true, all);
        row("close, open", true, all);
        row("open, answered cancel", false, all);
        row("open, close", false, all);
        row("open twice", true, all);
        row("open a serial port", true, all);
        row("select", true, "1:1,1 1:0.2,0.2 4:0.3,0.3 1:0.4,0.4 4:0.5,0.5");
        row("event loop", true, all);
        row("unregister", true, "1:1,1");
        row("throw", true, all);
    }
}

void PenImportTest::aHostMayDoAnythingInItsHandler()
{
    QFETCH(QString, action);
    QFETCH(QString, starter);
    PenRoad road;
    road.digitizer->setPenFileSettleTime(starter == QLatin1String("the timer") ? 50 : 0);
    const QStringList files = {QStringLiteral("b.dat=X:4:4|A- 4|X:5:5|"),
                               QStringLiteral("a.dat=X:1:1|X:2:2|A- 4|X:3:3|")};
    road.atReport = [&](int number) {
        if (number != 1)
            return;
        if (action == QLatin1String("close") || action == QLatin1String("close, open"))
            road.digitizer->close();
        if (action.contains(QLatin1String("cancel")))
            road.host.answer = 2;
        if (action == QLatin1String("open a serial port"))
            road.digitizer->selectDevice(QStringLiteral("A"),
                                         QStringLiteral("/dev/does-not-exist"));
        if (action.contains(QLatin1String("open")))
            road.digitizer->open();
        if (action == QLatin1String("open twice"))
            road.digitizer->open();
        if (action == QLatin1String("open, close"))
            road.digitizer->close();
        if (action == QLatin1String("select"))
            road.digitizer->selectDevice(QStringLiteral("B"), QStringLiteral("File:"));
        if (action == QLatin1String("event loop"))
            QTest::qWait(1);
        if (action == QLatin1String("unregister"))
            DigitalReport::unregisterHandle();
        if (action == QLatin1String("throw"))
            throw std::runtime_error("thrown");
    };
    if (starter != QLatin1String("open()")) {
        QVERIFY(road.digitizer->open());
        // Both before the first notification.
        for (const QString& file : files)
            road.put(file);
        QTRY_COMPARE(road.names(), QStringLiteral("a.txt b.txt"));
    } else {
        for (const QString& file : files)
            road.put(file);
        // An importer that was replaced meanwhile does not watch.
        const bool replaced =
            action.contains(QLatin1String("open")) && action != QLatin1String("open a serial port");
        QCOMPARE(road.digitizer->open(), !replaced);
    }
    // Whatever was replaced goes now, and what was deferred is through.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    QTEST(road.delivered(), "reports");
    QCOMPARE(road.names(), QStringLiteral("a.txt b.txt"));
    QFETCH(bool, active);
    QCOMPARE(road.digitizer->active(), active);
    if (!active || action == QLatin1String("unregister"))
        return;
    // The road is still open: what comes later is delivered, once.
    road.reports.clear();
    road.digitizer->selectDevice(QStringLiteral("A"), QStringLiteral("File:"));
    road.put(QStringLiteral("later.dat=A- 4|X:6:6|"));
    road.atReport = [](int /*number*/) {};
    QTRY_COMPARE(road.names(), QStringLiteral("a.txt b.txt later.txt"));
    QCOMPARE(road.delivered(), QStringLiteral("4:6,6"));
}

void PenImportTest::aTakenLinkIsNotWrittenThrough()
{
    PenRoad road;
    road.put(QStringLiteral("p.txt->nothing"));
    road.put(QStringLiteral("p.dat=A- 4|X:1:1"));
    QVERIFY(road.digitizer->open());
    QCOMPARE(road.names(), QStringLiteral("p.dat p.txt"));
    QVERIFY(!QFile::exists(road.pathOf(QStringLiteral("nothing"))));
}

void PenImportTest::anUnreadableFileIsPassedOver()
{
    PenRoad road;
    road.put(QStringLiteral("a.dat=X:1:1"));
    road.put(QStringLiteral("b.dat=A- 4|X:2:2"));
    QVERIFY(QFile::setPermissions(road.pathOf(QStringLiteral("a.dat")), QFile::WriteOwner));
    for (const QString& folder : {road.host.path(QString()), road.folder})
        QVERIFY(QFile::setPermissions(folder, QFile::Permissions(0x7777)));
    // Without open(), whose settings only their owner reads.
    DigipenFileDigitalization importer(road.digitizer.get(), false);
    {
        const Unprivileged user;
        importer.analyzerDigitPenFile(road.folder);
    }
    QCOMPARE(road.delivered(), QStringLiteral("4:2,2"));
    QCOMPARE(road.names(), QStringLiteral("a.txt b.txt"));
    QVERIFY(road.host.errors.isEmpty());
}

void PenImportTest::exportedOperations()
{
    PenRoad road;
    const QMetaObject& meta = DigipenFileDigitalization::staticMetaObject;
    QCOMPARE(meta.className(), "MavSystem::DigipenFileDigitalization");
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 1);
    DigipenFileDigitalization importer(road.digitizer.get(), false);
    QVERIFY(importer.close());
    QVERIFY(!importer.active());

    // The slot by its index; and the step with maps, which takes its command from the import.
    ButtonValue button{{' ', ' ', '\0'}};
    QMap<int, char> x;
    QMap<int, char> y;
    QVERIFY(QDir::setCurrent(road.host.path(QString())));
    road.atReport = [&](int number) {
        if (number == 1)
            QVERIFY(importer.readingDigitizingCommand(button, x, y));
        QDir::setCurrent(QDir::rootPath());
    };
    road.put(QStringLiteral("a.dat=X:1:1|X:23:45|A- 4|X:3:3|"));
    QVERIFY(
        meta.method(meta.methodOffset()).invoke(&importer, Q_ARG(QString, QStringLiteral("pen"))));
    QCOMPARE(road.delivered(), QStringLiteral("1:1,1 4:3,3"));
    QCOMPARE(button.m_code[0], '1');
    QCOMPARE(x, (QMap<int, char>{{1, '2'}, {2, '3'}}));
    QCOMPARE(y, (QMap<int, char>{{4, '4'}, {5, '5'}}));
    QVERIFY(!importer.readingDigitizingCommand(button, x, y));

    for (const char* name : {"a.one=", "B.ONE=", "c.two=", "d.three=", ".e.one=", "f.one/"})
        road.put(QString::fromLatin1(name));
    DigipenFileDigitalization::removeAllFileFromDirectory(
        road.folder, {QStringLiteral("*.one"), QStringLiteral("*.two")});
    DigipenFileDigitalization::removeAllFileFromDirectory(road.folder, {});
    QCOMPARE(road.names(), QStringLiteral(".e.one a.txt d.three f.one"));
}

QTEST_GUILESS_MAIN(PenImportTest)
#include "PenImportTest.moc"
