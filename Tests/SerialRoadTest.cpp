// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "DigitizerGeneric/Digitizer/InputEvents.h"
#include "ReferenceHost/Serial/PseudoTerminal.h"
#include "support/DescriptionBuilder.h"
#include "support/RecordedMessages.h"
#include "support/TestHost.h"

#include <QSettings>
#include <QtTest>

#include <functional>
#include <limits>
#include <memory>
#include <utility>

#include <sys/resource.h>

using namespace MavSystem;
using namespace ReferenceHost;

namespace {

struct HostError
{};

int s_hostErrors = 0;

// An application that survives what a report handler throws, as hosts do.
class CatchingApplication : public QCoreApplication
{
public:
    using QCoreApplication::QCoreApplication;

    bool notify(QObject* receiver, QEvent* event) override
    {
        try {
            return QCoreApplication::notify(receiver, event);
        } catch (const HostError&) {
            ++s_hostErrors;
            return true;
        }
    }
};

QString textOf(const DigitalReport& report)
{
    return QStringLiteral("%1 %2 %3")
        .arg(report.coordinate().x())
        .arg(report.coordinate().y())
        .arg(report.m_button_number);
}

QStringList texts(std::initializer_list<const char*> list)
{
    QStringList result;
    for (const char* const text : list)
        result << QLatin1String(text);
    return result;
}

double processorSeconds()
{
    rusage usage;
    getrusage(RUSAGE_SELF, &usage);
    return double(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
           double(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}

const char closing5[] = "2.22507e-308 2.22507e-308 5";
const char closing14[] = "2.22507e-308 2.22507e-308 14";

} // namespace

/// The serial road from the line to the handler, through a real pseudo-terminal.
class SerialRoadTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void aPortThatDoesNotOpenWarns();
    void inputFromBeforeTheOpenIsDiscarded();
    void closingSendsOneReport_data();
    void closingSendsOneReport();
    void aChunkIsReadWhenItIsOneReport_data();
    void aChunkIsReadWhenItIsOneReport();
    void aPortErrorReportsTheClosingCode_data();
    void aPortErrorReportsTheClosingCode();
    void lectraChunksAreReadAtOnceAndLogged();
    void settingsAreSavedAndReadBack();
    void settingsOfAWrongKindCountAsAbsent();
    void selectingLeavesAnOpenDeviceOpen();
    void theHandlerMayDoAnything_data();
    void theHandlerMayDoAnything();
    void aHangUpStaysQuiet();
    void whatComesOfALine_data();
    void whatComesOfALine();
    void reportsCutAnywhereAreWhole();
    void reportsInLockStepAllArrive();

private:
    void take(const QString& step);
    void doDeed();
    bool openDriver(const char* driver);
    bool send(const QByteArray& chunk);
    bool arrived(int reports)
    {
        return QTest::qWaitFor([=] { return m_reports.size() >= reports; });
    }

    std::unique_ptr<TestHost> m_host;
    std::unique_ptr<PseudoTerminal> m_tablet;
    std::unique_ptr<RecordedMessages> m_messages;
    boost::shared_ptr<Digitizer> m_digitizer;
    QStringList m_reports;
    QString m_deed; // of the handler, at its first report
};

void SerialRoadTest::init()
{
    m_host = std::make_unique<TestHost>();
    const auto install = [this](const DescriptionBuilder& file, const char* name) {
        m_host->writeDescription(QLatin1String(name), file.xml());
    };
    install(DescriptionBuilder(), "a");
    install(DescriptionBuilder("lines").resolution(1, "LPMM").report("XXYYBC"), "c");
    install(DescriptionBuilder("free").resolution(1, "LPMM").report("XXYYB"), "d");
    install(DescriptionBuilder("sixteen").report("XXYYB").buttons("16", 1, {"0", "1", "2"}), "s");
    install(DescriptionBuilder("five").report("XXYYB"), "f");
    install(DescriptionBuilder("three").report("XXXXYYYYB" + QByteArray(18, 'U')), "t");
    install(DescriptionBuilder("long").report(QByteArray(508, 'U') + "XXYYXXYYB"), "l");
    install(DescriptionBuilder("lectra e92").report("XXYYB"), "e");
    m_tablet = std::make_unique<PseudoTerminal>();
    QVERIFY2(m_tablet->isOpen(), qPrintable(m_tablet->errorString()));
    m_messages = std::make_unique<RecordedMessages>(true);
    m_digitizer = Digitizer::instance();
    m_reports.clear();
    DigitalReport::registerHandle(
        [this](const DigitalReport& report) { m_reports << textOf(report); });
}

void SerialRoadTest::cleanup()
{
    DigitalReport::unregisterHandle();
    m_digitizer->close();
    m_digitizer->setCheckedReading(false);
    m_digitizer->inputEvents()->disconnect(this);
    m_messages.reset();
    m_host.reset(); // before the next one makes itself known
}

bool SerialRoadTest::openDriver(const char* driver)
{
    m_digitizer->selectDevice(QLatin1String(driver), m_tablet->path());
    const bool open = m_digitizer->open();
    m_digitizer->readReport();
    return open;
}

// Returns when the driver has looked at the chunk; what it saw is a diagnostic message.
bool SerialRoadTest::send(const QByteArray& chunk)
{
    const int before = RecordedMessages::texts().size();
    return m_tablet->write(chunk) &&
           QTest::qWaitFor([=] { return RecordedMessages::texts().size() > before; });
}

void SerialRoadTest::aPortThatDoesNotOpenWarns()
{
    const QString tablet = m_tablet->path();
    m_digitizer->selectDevice(QStringLiteral("A"), QStringLiteral("/nowhere/port"));
    QVERIFY(!m_digitizer->open());
    QCOMPARE(m_host->warnings, texts({"Cannot open digitizer, please check the connection."}));
    QVERIFY(!m_digitizer->active());
    m_digitizer->digitBeep();
    QVERIFY(m_digitizer->close()); // the port object is there, though unopened
    QCOMPARE(m_reports, texts({closing5}));
    QVERIFY(!m_digitizer->close());

    QVERIFY(openDriver("A"));
    m_digitizer->selectDevice(QStringLiteral("A"), QStringLiteral("file:"));
    QVERIFY(!m_digitizer->open());
    QVERIFY(m_digitizer->active()); // it keeps what it was
    QCOMPARE(m_host->warnings.size(), 2);
}

void SerialRoadTest::inputFromBeforeTheOpenIsDiscarded()
{
    QVERIFY(m_tablet->write("111111111"));
    QTRY_VERIFY(!m_tablet->drained());
    QVERIFY(openDriver("A"));
    QVERIFY(send("123456782"));
    QVERIFY(arrived(1));
    QCOMPARE(m_reports, texts({"12.34 56.78 2"}));
}

void SerialRoadTest::closingSendsOneReport_data()
{
    QTest::addColumn<QByteArray>("driver");
    QTest::addColumn<int>("code");
    QTest::newRow("four buttons") << QByteArray("A") << 5;
    QTest::newRow("sixteen buttons") << QByteArray("sixteen") << 14;
    QTest::newRow("unknown driver") << QByteArray("nobody") << 14;
}

void SerialRoadTest::closingSendsOneReport()
{
    QFETCH(QByteArray, driver);
    QFETCH(int, code);
    QVERIFY(!m_digitizer->close());
    QVERIFY(!m_digitizer->active());
    QVERIFY(openDriver(driver));
    QVERIFY(m_digitizer->active());
    int reports = 0;
    DigitalReport::registerHandle([&](const DigitalReport& report) {
        ++reports;
        QCOMPARE(report.coordinate().x(), 2.2250738585072014e-308);
        QVERIFY(report.coordinate().y() == std::numeric_limits<double>::min());
        QCOMPARE(report.m_button_number, code);
        // The port is gone by now.
        QVERIFY(!m_digitizer->active());
        QVERIFY(!m_digitizer->close());
    });
    QVERIFY(m_digitizer->close());
    QCOMPARE(reports, 1);
    QVERIFY(!m_digitizer->close());
    QCOMPARE(reports, 1);
}

void SerialRoadTest::aChunkIsReadWhenItIsOneReport_data()
{
    QTest::addColumn<QByteArray>("driver");
    QTest::addColumn<QByteArrayList>("chunks");
    QTest::addColumn<QStringList>("reports");

    const auto row = [](const char* name, const char* driver, const QByteArrayList& chunks,
                        const QStringList& reports) {
        QTest::newRow(name) << QByteArray(driver) << chunks << reports;
    };
    const QString first = QStringLiteral("12.34 56.78 2");
    const QString second = QStringLiteral("90 12.34 3");
    row("one report", "A", {"123456782"}, {first});
    row("lock step", "A", {"123456782", "900012343", "123456782"}, {first, second, first});
    row("split in two", "A", {"1234", "56782"}, {first});
    row("split in nine", "A", {"1", "2", "3", "4", "5", "6", "7", "8", "2"}, {first});
    row("split after a whole one", "A", {"123456782", "9", "00012343"}, {first, second});
    row("two merged stay unread", "A", {"123456782900012343"}, {});
    row("so do those after them", "A", {"123456782900012343", "123456782"}, {});
    row("one character too many", "A", {"1234567829"}, {});
    row("nothing was lost of what waits", "three", {"123456782900012343", "900012343"}, {first});
    row("an unknown driver reads nothing", "nobody", {"123456782"}, {});
    row("longer than the buffer", "long", {QByteArray(508, ' ') + "123456783"},
        {QStringLiteral("0.12 0.34 0")});
    row("an unknown button", "A", {"123456785"}, {QStringLiteral("12.34 56.78 0")});
    row("behind a zero byte stands what was there before", "A",
        {"123456782", QByteArray("99\0xxxxxx", 9)}, {first, QStringLiteral("94.24 56.78 2")});
}

void SerialRoadTest::aChunkIsReadWhenItIsOneReport()
{
    QFETCH(QByteArray, driver);
    QFETCH(QByteArrayList, chunks);
    QFETCH(QStringList, reports);
    QVERIFY(openDriver(driver));
    for (const QByteArray& chunk : qAsConst(chunks))
        QVERIFY2(send(chunk), chunk);
    arrived(reports.size());
    QCOMPARE(m_reports, reports);
}

void SerialRoadTest::aPortErrorReportsTheClosingCode_data()
{
    QTest::addColumn<QByteArray>("driver");
    QTest::addColumn<QString>("report");
    QTest::newRow("four buttons") << QByteArray("five") << QStringLiteral("0 0 5");
    QTest::newRow("sixteen buttons") << QByteArray("sixteen") << QStringLiteral("0 0 14");
}

void SerialRoadTest::aPortErrorReportsTheClosingCode()
{
    QFETCH(QByteArray, driver);
    QFETCH(QString, report);
    QVERIFY(openDriver("A"));
    QVERIFY(send("12341"));
    // The waiting bytes now are one report, which the end of the line announces again.
    m_digitizer->selectDevice(QLatin1String(driver), m_tablet->path());
    m_tablet->hangUp();
    QVERIFY(arrived(1));
    QCOMPARE(m_reports, QStringList(report));
}

void SerialRoadTest::lectraChunksAreReadAtOnceAndLogged()
{
    QFile log(QCoreApplication::applicationDirPath() + QLatin1String("/received_data.txt"));
    log.remove();
    QVERIFY(openDriver("A"));
    QVERIFY(send("123456782"));
    QVERIFY(!log.exists());
    m_digitizer->close();
    m_reports.clear();

    QVERIFY(openDriver("lectra e92"));
    const QByteArrayList chunks = {"uuuuuu32u0  1234u 56789", "uuuuuu30u0  1234u 56789",
                                   "uuuuuu34u0  0100u 00200\r\n", "x"};
    for (const QByteArray& chunk : chunks)
        QVERIFY(send(chunk));
    QCOMPARE(m_reports, texts({"12.34 567.89 3", "0 0 -1", "1 2 5", "1 2 5"}));
    QVERIFY(log.open(QIODevice::ReadOnly));
    QCOMPARE(log.readAll(), chunks.join('\n') + '\n');
    log.remove();
}

void SerialRoadTest::settingsAreSavedAndReadBack()
{
    {
        const Digitizer fresh;
        QVERIFY(fresh.driver().isEmpty() && fresh.device().isEmpty());
        QVERIFY(!fresh.extended4Buttons() && !fresh.dgitizePiecesView());
        QVERIFY(!fresh.viewDigizedPoints() && !fresh.highPrecision());
    }
    const QStringList options = {
        QStringLiteral("extended4Buttons"), QStringLiteral("digitizePiecesView"),
        QStringLiteral("viewDigizedPoints"), QStringLiteral("highPrecision")};
    for (int on = 0; on < options.size(); ++on) {
        Digitizer first;
        first.selectDevice(QStringLiteral("A, b"), QStringLiteral("/dev/ttyS0"));
        first.setExtended4Buttons(on == 0);
        first.setDgitizePiecesView(on == 1);
        first.setViewDigizedPoints(on == 2);
        first.setHighPrecision(on == 3);
        QVERIFY(on > 0 || QSettings().allKeys().isEmpty());
        first.saveConfig();

        const QSettings settings;
        QCOMPARE(settings.allKeys().size(), 6);
        QCOMPARE(settings.value(QStringLiteral("driver")).toString(), QStringLiteral("A, b"));
        QCOMPARE(settings.value(QStringLiteral("device")).toString(), QStringLiteral("/dev/ttyS0"));
        for (const QString& option : options)
            QCOMPARE(settings.value(option).toBool(), option == options.at(on));

        const Digitizer second;
        QCOMPARE(second.driver(), QStringLiteral("A, b"));
        QCOMPARE(second.device(), QStringLiteral("/dev/ttyS0"));
        QCOMPARE(second.extended4Buttons(), on == 0);
        QCOMPARE(second.dgitizePiecesView(), on == 1);
        QCOMPARE(second.viewDigizedPoints(), on == 2);
        QCOMPARE(second.highPrecision(), on == 3);
    }
}

void SerialRoadTest::settingsOfAWrongKindCountAsAbsent()
{
    QSettings settings;
    settings.setValue(QStringLiteral("driver"), texts({"a", "b"}));
    settings.setValue(QStringLiteral("highPrecision"), QStringLiteral("perhaps"));
    settings.setValue(QStringLiteral("extended4Buttons"), QByteArray("\x01\x02"));
    settings.setValue(QStringLiteral("viewDigizedPoints"), 1);
    settings.sync();
    const Digitizer digitizer;
    QCOMPARE(digitizer.driver(), QString());
    QVERIFY(!digitizer.highPrecision() && !digitizer.extended4Buttons());
    QVERIFY(digitizer.viewDigizedPoints());
}

void SerialRoadTest::selectingLeavesAnOpenDeviceOpen()
{
    QVERIFY(openDriver("A"));
    m_digitizer->selectDevice(QStringLiteral("sixteen"), QStringLiteral("/nowhere/port"));
    QCOMPARE(m_digitizer->driver(), QStringLiteral("sixteen"));
    QCOMPARE(m_digitizer->device(), QStringLiteral("/nowhere/port"));
    QVERIFY(m_digitizer->active());
    QVERIFY(send("12342"));
    QVERIFY(arrived(1));
    QVERIFY(m_digitizer->close());
    QCOMPARE(m_reports, texts({"0.12 0.34 2", closing14}));
}

void SerialRoadTest::theHandlerMayDoAnything_data()
{
    QTest::addColumn<QString>("deed");
    QTest::addColumn<QStringList>("reports"); // up to and with the one after the deed
    const QString first = QStringLiteral("12.34 56.78 2");
    const QString second = QStringLiteral("90 12.34 3");
    QTest::newRow("nothing") << "nothing" << QStringList{first, second};
    QTest::newRow("close") << "close" << QStringList{first, QLatin1String(closing5), second};
    QTest::newRow("close and open")
        << "close, open" << QStringList{first, QLatin1String(closing5), second};
    QTest::newRow("open") << "open" << QStringList{first, second};
    QTest::newRow("open a missing port") << "open missing" << QStringList{first, second};
    QTest::newRow("select") << "select" << QStringList{first, QStringLiteral("0.12 0.34 2")};
    QTest::newRow("dialog") << "dialog" << QStringList{first, second, second};
    QTest::newRow("throw") << "throw" << QStringList{first, second};
    QTest::newRow("unregister") << "unregister" << QStringList{first, second};
    QTest::newRow("replace") << "replace" << QStringList{first, QStringLiteral("replaced"), second};
    QTest::newRow("beep") << "beep" << QStringList{first, second};
}

void SerialRoadTest::theHandlerMayDoAnything()
{
    QFETCH(QString, deed);
    QFETCH(QStringList, reports);
    const QByteArray next = "900012343";
    const std::function<void(const DigitalReport&)> record = [this](const DigitalReport& report) {
        m_reports << textOf(report);
    };
    const QMap<QString, std::function<void()>> deeds = {
        {QStringLiteral("close"), [&] { m_digitizer->close(); }},
        {QStringLiteral("close, open"),
         [&] {
             m_digitizer->close();
             QVERIFY(openDriver("A"));
         }},
        {QStringLiteral("open"), [&] { QVERIFY(openDriver("A")); }},
        {QStringLiteral("open missing"),
         [&] {
             m_digitizer->selectDevice(QStringLiteral("A"), QStringLiteral("/nowhere/port"));
             QVERIFY(!m_digitizer->open());
         }},
        {QStringLiteral("select"),
         [&] { m_digitizer->selectDevice(QStringLiteral("sixteen"), m_tablet->path()); }},
        {QStringLiteral("dialog"),
         [&] {
             m_tablet->write(next);
             QVERIFY(arrived(2));
         }},
        {QStringLiteral("throw"), [] { throw HostError(); }},
        {QStringLiteral("unregister"), [] { DigitalReport::unregisterHandle(); }},
        {QStringLiteral("replace"),
         [&] {
             // What the running handler has captured must outlive its replacement.
             DigitalReport::registerHandle(record);
             m_reports << QStringLiteral("replaced");
         }},
        {QStringLiteral("beep"), [&] { m_digitizer->digitBeep(); }},
    };
    s_hostErrors = 0;
    bool done = false;
    DigitalReport::registerHandle(
        [&, deed, padding = QByteArray(1000, 'p')](const DigitalReport& report) {
            record(report);
            if (!done) {
                done = true;
                deeds.value(deed, [] {})();
            }
            QCOMPARE(padding.size(), 1000);
        });
    QVERIFY(openDriver("A"));
    m_tablet->write("123456782");
    QTRY_VERIFY(done);
    const int before = m_reports.size();
    QCOMPARE(m_reports, reports.mid(0, before));
    QCOMPARE(s_hostErrors, deed == QLatin1String("throw") ? 1 : 0);

    if (deed == QLatin1String("close") || deed == QLatin1String("open missing"))
        QVERIFY(openDriver("A"));
    if (deed == QLatin1String("unregister"))
        DigitalReport::registerHandle(record);
    QVERIFY(send(deed == QLatin1String("select") ? QByteArray("12342") : next));
    QVERIFY2(arrived(reports.size()), qPrintable(m_reports.join(QLatin1Char('|'))));
    QCOMPARE(m_reports, reports);
}

void SerialRoadTest::aHangUpStaysQuiet()
{
    QVERIFY(openDriver("A"));
    QVERIFY(send("123456782"));
    m_tablet->hangUp();
    const double before = processorSeconds();
    QTest::qWait(1000);
    const double used = processorSeconds() - before;
    m_messages.reset();
    qInfo("%.4f s of processor time in one second after the hang-up", used);
    QVERIFY2(used < 0.02, qPrintable(QString::number(used)));
    QVERIFY(m_digitizer->active()); // until the host closes
    QVERIFY(m_digitizer->close());
    QCOMPARE(m_reports, texts({"12.34 56.78 2", closing5}));

    m_messages = std::make_unique<RecordedMessages>(true);
    m_tablet = std::make_unique<PseudoTerminal>();
    QVERIFY(openDriver("A"));
    QVERIFY(send("900012343"));
    QVERIFY(arrived(3));
    QCOMPARE(m_reports.last(), QStringLiteral("90 12.34 3"));
}

namespace {

struct LineRow
{
    const char* name;
    const char* driver;
    const char* steps; // see take(); the device is open and read before the first one
    const char* log;   // reports as X,Y,BUTTON, and what InputEvents tells
};

// "lines" has reports such as "12341" with a carriage return, written as $ here.
const LineRow lineRows[] = {
    {"two at once", "lines", "send 12341$56782$", "1.2,3.4,1 5.6,7.8,2"},
    {"and many", "lines", "send 12341$56782$12341$56782$12341$",
     "1.2,3.4,1 5.6,7.8,2 1.2,3.4,1 5.6,7.8,2 1.2,3.4,1"},
    {"damaged", "lines", "send 12?41$56782$", "over:12?41$ 5.6,7.8,2"},
    {"garbage in front", "lines", "send #12341$56782$", "over:#12341$ 5.6,7.8,2"},
    {"never completed", "lines", "send 12; await 1; send 56782$", "over:12 5.6,7.8,2"},
    {"a busy host makes no pause", "lines", "send 123; taken; stall 41$", "1.2,3.4,1"},
    {"an unknown button", "lines", "send 1234Z$", "1.2,3.4,0"},
    {"without line ends, at a pause", "free", "send 1234156782", "1.2,3.4,1 5.6,7.8,2"},
    {"without line ends, two would fit", "free", "send 912341; await 1; send 56782",
     "over:912341 5.6,7.8,2"},
    {"an unknown driver", "nobody", "send 12341$", "unread:6"},
    {"a template too long to check", "long", "send LONG123456783", "0.12,0.34,0"},
    {"between open and read", "lines", "reopen; send 12341$56782$; read; send 12341$",
     "end:5 1.2,3.4,1 5.6,7.8,2 1.2,3.4,1"},
    {"lost before a report", "lines", "hang up", "lost"},
    {"lost behind reports", "lines", "send 12341$56782$; await 2; hang up",
     "1.2,3.4,1 5.6,7.8,2 lost"},
    {"lost inside of one", "lines", "send 12341$56; await 1; hang up", "1.2,3.4,1 over:56 lost"},
    {"lost between open and read", "lines", "reopen; send 12341$; taken; hang up; read",
     "end:5 1.2,3.4,1 lost"},
    {"taken at the next open", "lines", "plain; send 12341$56782$", "1.2,3.4,1 5.6,7.8,2"},
    {"off at the next open", "lines", "plain; reopen; read; send 12341$56782$", "end:5 unread:12"},
    {"off, behind a report", "lines", "plain; reopen; read; send 12341$; await 2; send 123",
     "end:5 1.2,3.4,1 unread:3"},
    {"off, lost", "lines", "plain; reopen; read; send 12341$; await 2; hang up",
     "end:5 1.2,3.4,1 lost"},
    {"the fixed layout", "lectra e92", "send uuuuuu32u0  1234u 56789; await 1; send x",
     "12.34,567.89,3 12.34,567.89,3"},
    {"handler closes", "lines", "deed close; send 12341$56782$", "1.2,3.4,1 end:5"},
    {"handler opens again", "lines", "deed open; send 12341$56782$; await 1; send 12341$",
     "1.2,3.4,1 1.2,3.4,1"},
    {"handler selects", "lines", "deed select; send 12341$123456782", "1.2,3.4,1 12.34,56.78,2"},
    {"handler selects the same", "lines", "deed same; send 12341$56782$", "1.2,3.4,1 5.6,7.8,2"},
    {"handler shows a dialog", "lines", "deed dialog; send 12341$56782$",
     "1.2,3.4,1 5.6,7.8,2 1.2,3.4,1"},
    {"lost while a dialog is shown", "lines", "deed pull; send 12341$56782$",
     "1.2,3.4,1 5.6,7.8,2 lost"},
    {"handler throws", "lines", "deed throw; send 12341$56782$", "1.2,3.4,1 5.6,7.8,2"},
};

} // namespace

void SerialRoadTest::doDeed()
{
    const QString deed = std::exchange(m_deed, QString());
    if (deed == QLatin1String("close"))
        m_digitizer->close();
    if (deed == QLatin1String("open"))
        QVERIFY(openDriver("lines"));
    if (deed == QLatin1String("select"))
        m_digitizer->selectDevice(QStringLiteral("A"), QStringLiteral("/nowhere"));
    if (deed == QLatin1String("same"))
        m_digitizer->selectDevice(QStringLiteral("lines"), m_tablet->path());
    if (deed == QLatin1String("throw"))
        throw HostError();
    if (deed == QLatin1String("dialog")) {
        QVERIFY2(arrived(2), "a report that waits comes to a nested event loop");
        m_tablet->write("12341\r");
        QVERIFY(arrived(3));
    }
    if (deed == QLatin1String("pull")) {
        m_tablet->hangUp();
        QVERIFY(arrived(3));
    }
}

void SerialRoadTest::take(const QString& step)
{
    const QString what = step.section(QLatin1Char(' '), 1)
                             .replace(QLatin1Char('$'), QLatin1Char('\r'))
                             .replace(QLatin1String("LONG"), QString(508, QLatin1Char(' ')));
    if (step.startsWith(QLatin1String("send")))
        QVERIFY(m_tablet->write(what.toLatin1()));
    else if (step.startsWith(QLatin1String("stall"))) {
        QVERIFY(m_tablet->write(what.toLatin1()));
        QThread::msleep(300); // the rest is there, and the time of a pause over, at the next turn
    } else if (step.startsWith(QLatin1String("await")))
        QVERIFY2(arrived(what.toInt()), qPrintable(m_reports.join(QLatin1Char(' '))));
    else if (step.startsWith(QLatin1String("deed")))
        m_deed = what;
    else if (step == QLatin1String("plain"))
        m_digitizer->setCheckedReading(false);
    else if (step == QLatin1String("reopen"))
        QVERIFY(m_digitizer->close() && m_digitizer->open());
    else if (step == QLatin1String("read"))
        m_digitizer->readReport();
    else if (step == QLatin1String("taken"))
        QTRY_VERIFY(m_tablet->taken());
    else if (step == QLatin1String("hang up"))
        m_tablet->hangUp();
}

void SerialRoadTest::whatComesOfALine_data()
{
    QTest::addColumn<int>("index");
    for (int index = 0; index < int(std::size(lineRows)); ++index)
        QTest::newRow(lineRows[index].name) << index;
}

void SerialRoadTest::whatComesOfALine()
{
    QFETCH(int, index);
    const LineRow& row = lineRows[index];
    const InputEvents* const events = m_digitizer->inputEvents();
    connect(events, &InputEvents::bytesPassedOver, this, [this](const QByteArray& bytes) {
        m_reports << QStringLiteral("over:") +
                         QString::fromLatin1(bytes).replace(QLatin1Char('\r'), QLatin1Char('$'));
    });
    connect(events, &InputEvents::inputUnread, this,
            [this](qint64 bytes) { m_reports << QStringLiteral("unread:%1").arg(bytes); });
    connect(events, &InputEvents::portLost, this, [this](const QString& reason) {
        QVERIFY(!reason.isEmpty() && reason != QLatin1String("No Error has occurred"));
        m_reports << QStringLiteral("lost");
    });
    DigitalReport::registerHandle([this](const DigitalReport& report) {
        const GeoPoint2D point = report.coordinate();
        m_reports << (point.x() > 0 && point.x() < 1e-300
                          ? QStringLiteral("end:%1").arg(report.m_button_number)
                          : QStringLiteral("%1,%2,%3")
                                .arg(point.x())
                                .arg(point.y())
                                .arg(report.m_button_number));
        doDeed();
    });
    m_digitizer->setCheckedReading(true);
    QVERIFY(openDriver(row.driver));
    for (const QString& step : QString::fromLatin1(row.steps).split(QStringLiteral("; ")))
        take(step);
    const QStringList expected = QString::fromLatin1(row.log).split(QLatin1Char(' '));
    arrived(expected.size());
    QTest::qWait(0);
    QCOMPARE(m_reports, expected);
}

void SerialRoadTest::reportsCutAnywhereAreWhole()
{
    m_digitizer->setCheckedReading(true);
    QVERIFY(openDriver("lines"));
    const QByteArray reports = "12341\r56782\r90123\r";
    QStringList expected;
    for (int cut = 1; cut < reports.size(); ++cut) {
        QVERIFY(m_tablet->write(reports.left(cut)));
        QTRY_VERIFY(m_tablet->taken());
        QVERIFY(m_tablet->write(reports.mid(cut)));
        expected << texts({"1.2 3.4 1", "5.6 7.8 2", "9 1.2 3"});
        QVERIFY2(arrived(expected.size()), qPrintable(QString::number(cut)));
    }
    QCOMPARE(m_reports, expected);
}

void SerialRoadTest::reportsInLockStepAllArrive()
{
    m_messages.reset();
    constexpr int count = 100000;
    QVERIFY(openDriver("A"));
    QStringList wrong;
    int received = 0;
    const auto expected = [](int number) {
        return QStringLiteral("%1 %2 %3")
            .arg(number % 10000 / 100.0)
            .arg(number % 10000 * 7 % 10000 / 100.0)
            .arg(1 + number % 4);
    };
    DigitalReport::registerHandle([&](const DigitalReport& report) {
        if (textOf(report) != expected(received))
            wrong << textOf(report);
        ++received;
    });
    QElapsedTimer timer;
    timer.start();
    for (int number = 0; number < count; ++number) {
        const QString report = QStringLiteral("%1%2%3")
                                   .arg(number % 10000, 4, 10, QLatin1Char('0'))
                                   .arg(number % 10000 * 7 % 10000, 4, 10, QLatin1Char('0'))
                                   .arg(1 + number % 4);
        QVERIFY(m_tablet->write(report.toLatin1()));
        const QDeadlineTimer patience(5000);
        while (received <= number && !patience.hasExpired())
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        QCOMPARE(received, number + 1);
    }
    qInfo("%d reports in lock step in %lld ms", received, timer.elapsed());
    QCOMPARE(wrong, QStringList());
}

int main(int argc, char** argv)
{
    CatchingApplication application(argc, argv);
    SerialRoadTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "SerialRoadTest.moc"
