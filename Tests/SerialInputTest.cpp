// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "DigitizerGeneric/Digitizer/InputEvents.h"
#include "DigitizerGeneric/Digitizer/SerialSettings.h"
#include "ReferenceHost/Serial/PseudoTerminal.h"
#include "support/DescriptionBuilder.h"
#include "support/TestHost.h"
#include "support/TextRows.h"

#include <QSettings>

#include <ctime>
#include <functional>
#include <limits>
#include <map>
#include <memory>
#include <utility>

#include <dlfcn.h>
#include <termios.h>

using namespace MavSystem;
using namespace ReferenceHost;

namespace {
struct HostError
{};

QStringList s_got;        // what the host has got
QVector<termios> s_asked; // the settings that ports were given

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
            s_got << "caught";
            return true;
        }
    }
};

QString askedSettings()
{
    static const std::map<speed_t, int> speeds = {{B50, 50},     {B150, 150},   {B300, 300},
                                                  {B600, 600},   {B1200, 1200}, {B2400, 2400},
                                                  {B4800, 4800}, {B9600, 9600}, {B19200, 19200}};
    // A pseudo-terminal drops some of them, so they are missing from the second call on.
    const termios first = s_asked.value(0);
    const auto has = [&](tcflag_t flag) { return (first.c_cflag & flag) != 0; };
    const auto speed = speeds.find(cfgetospeed(&s_asked.last()));
    return QString::asprintf("%d %d %s %d %s", speed == speeds.end() ? 0 : speed->second,
                             int(5 + ((first.c_cflag & CSIZE) - CS5) / (CS6 - CS5)),
                             !has(PARENB)  ? "none"
                             : has(PARODD) ? "odd"
                                           : "even",
                             has(CSTOPB) ? 2 : 1,
                             has(CRTSCTS)           ? "hardware"
                             : first.c_iflag & IXON ? "software"
                                                    : "none");
}

QString textOf(const DigitalReport& report)
{
    constexpr double smallest = std::numeric_limits<double>::min();
    const GeoPoint2D point = report.coordinate();
    if (point.x() == smallest && point.y() == smallest)
        return "end:" + QString::number(report.m_button_number);
    return QString::asprintf("%g,%g,%d", point.x(), point.y(), report.m_button_number);
}

void note(const QString& thing)
{
    if (!thing.isEmpty())
        s_got << thing;
}

QString got()
{
    return s_got.join(' ').replace('\r', '$');
}

bool await(int things)
{
    return QTest::qWaitFor([=] { return s_got.size() >= things; });
}

QString receivedData()
{
    return QCoreApplication::applicationDirPath() + "/received_data.txt";
}

} // namespace

extern "C" Q_DECL_EXPORT int tcsetattr(int descriptor, int when, const termios* settings)
{
    using Function = int (*)(int, int, const termios*);
    static const auto system = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "tcsetattr"));
    s_asked << *settings;
    return system(descriptor, when, settings);
}

/// Serial input from the tablet to the handler, through a real pseudo-terminal.
class SerialInputTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_host = std::make_unique<TestHost>();
        m_host->duringDialog = [] { s_got << "warned"; };
        const DescriptionBuilder files[] = {
            DescriptionBuilder().beep(
                "<beepString><character>7</character><character>33</character>"
                "</beepString>"),
            DescriptionBuilder("lines").resolution(1, "LPMM").report("XXYYBC"),
            // 50 baud: 1,110 ms without a byte are a pause.
            DescriptionBuilder("slow").resolution(1, "LPMM").report("XXYYBC").ioPort(
                "<ioPort><serial databit='8' parity='Odd' stopbit='2'/></ioPort>"),
            DescriptionBuilder("free").resolution(1, "LPMM").report("XXYYB"),
            DescriptionBuilder("sixteen").report("XXYYB").buttons("16", 1, {"0", "1", "2"}),
            DescriptionBuilder("five").report("XXYYB"),
            DescriptionBuilder("three").report("XXXXYYYYB" + QByteArray(18, 'U')),
            DescriptionBuilder("long").report(QByteArray(508, 'U') + "XXYYXXYYB"),
            DescriptionBuilder("longest").resolution(1, "LPMM").report("XXYYB" +
                                                                       QByteArray(506, 'U') + "C"),
            DescriptionBuilder("lectra e92").report("XXYYB"),
        };
        for (const DescriptionBuilder& file : files)
            m_host->writeDescription(QString::number(&file - files), file.xml());
        m_tablet = std::make_unique<PseudoTerminal>();
        QVERIFY2(m_tablet->isOpen(), qPrintable(m_tablet->errorString()));
        m_digitizer = Digitizer::instance();
        QFile::remove(receivedData());
        s_got.clear();
        m_deed.clear();
        listen();
    }

    void cleanup()
    {
        DigitalReport::unregisterHandle();
        QFile::remove(receivedData());
        m_digitizer->close();
        m_digitizer->setCheckedReading(false);
        m_digitizer->inputEvents()->disconnect(this);
        m_host.reset(); // before the next one makes itself known
    }

    void settingsReachThePort_data() { addTextRows("settings.txt", 2); }

    void settingsReachThePort()
    {
        QFETCH(TextRow, row);
        QByteArrayList values = row.fields.at(0).split('|');
        QByteArray xml = "<ioPort><serial";
        for (const char* name : {"baudrate", "databit", "parity", "stopbit", "flowctrl"})
            xml += QByteArray(" ") + name + "='" + values.takeFirst() + "'";
        m_host->writeDescription("t", DescriptionBuilder("T").ioPort(xml + "/></ioPort>").xml());
        s_asked.clear();
        QVERIFY(openDriver("T"));
        QVERIFY(!s_asked.isEmpty());
        QCOMPARE(askedSettings(), row.text(1));
    }

    void anUnknownSettingStaysInItsTable()
    {
        const auto before = BaudrateMap();
        QCOMPARE(BaudrateMap()["57600"], BAUD50);
        QCOMPARE(BaudrateMap().size(), before.size() + 1);
        BaudrateMap().erase("57600");
        QVERIFY(BaudrateMap() == before);
    }

    void whatTheHostGets_data() { addTextRows("serial.txt", 3); }
    void whatTheHostGets() { followRow(); }
    void theHandlerMayDoAnything_data() { addTextRows("handlers.txt", 3); }
    void theHandlerMayDoAnything() { followRow(); }

    void selectionAndOptionsAreSaved()
    {
        const struct
        {
            const char* key;
            void (Digitizer::*set)(bool);
            bool (Digitizer::*get)() const;
        } options[] = {
            {"extended4Buttons", &Digitizer::setExtended4Buttons, &Digitizer::extended4Buttons},
            {"digitizePiecesView", &Digitizer::setDgitizePiecesView, &Digitizer::dgitizePiecesView},
            {"viewDigizedPoints", &Digitizer::setViewDigizedPoints, &Digitizer::viewDigizedPoints},
            {"highPrecision", &Digitizer::setHighPrecision, &Digitizer::highPrecision}};
        const Digitizer fresh;
        QVERIFY(fresh.driver().isEmpty() && fresh.device().isEmpty());
        QCOMPARE(fresh.unsettledPenFiles(), 0);
        for (const auto& on : options) {
            QVERIFY(!(fresh.*on.get)());
            Digitizer first;
            first.selectDevice("A, b", "/dev/ttyS0");
            for (const auto& option : options)
                (first.*option.set)(&option == &on);
            QVERIFY(&on > options || QSettings().allKeys().isEmpty());
            first.saveConfig();
            const QSettings settings;
            QCOMPARE(settings.allKeys().size(), 6);
            QCOMPARE(settings.value("driver").toString(), "A, b");
            QCOMPARE(settings.value("device").toString(), "/dev/ttyS0");
            const Digitizer second;
            QCOMPARE(second.driver() + " at " + second.device(), "A, b at /dev/ttyS0");
            for (const auto& option : options) {
                QCOMPARE(settings.value(option.key).toBool(), &option == &on);
                QCOMPARE((second.*option.get)(), &option == &on);
            }
        }
    }

    void settingsOfAWrongKindCountAsAbsent()
    {
        QSettings settings;
        settings.setValue("driver", QStringList{"a", "b"});
        settings.setValue("highPrecision", "perhaps");
        settings.setValue("extended4Buttons", QByteArray("\x01\x02"));
        settings.setValue("viewDigizedPoints", 1);
        settings.sync();
        const Digitizer digitizer;
        QCOMPARE(digitizer.driver(), QString());
        QVERIFY(!digitizer.highPrecision() && !digitizer.extended4Buttons());
        QVERIFY(digitizer.viewDigizedPoints());
    }

    void aHangUpStaysQuiet()
    {
        QVERIFY(openDriver("A"));
        QVERIFY(send("123456782"));
        m_tablet->hangUp();
        const std::clock_t before = std::clock(); // of the processor
        QTest::qWait(1000);
        const double used = double(std::clock() - before) / CLOCKS_PER_SEC;
        qInfo("%.4f s of processor time in one second after the hang-up", used);
        QVERIFY2(used < 0.02, qPrintable(QString::number(used)));
        QVERIFY(m_digitizer->active()); // until the host closes
        QVERIFY(m_digitizer->close());

        m_tablet = std::make_unique<PseudoTerminal>();
        QVERIFY(openDriver("A"));
        QVERIFY(send("900012343"));
        QVERIFY2(await(3), qPrintable(got()));
        QCOMPARE(got(), "12.34,56.78,2 end:5 90,12.34,3");
    }

    void reportsCutAnywhereAreWhole()
    {
        m_digitizer->setCheckedReading(true);
        QVERIFY(openDriver("lines"));
        const QString reports = "12341\r56782\r90123\r";
        for (int cut = 1; cut < reports.size(); ++cut) {
            s_got.clear();
            QVERIFY(send(reports.left(cut)));
            QVERIFY(send(reports.mid(cut)));
            QVERIFY2(await(3), qPrintable(QString::number(cut)));
            QCOMPARE(got(), "1.2,3.4,1 5.6,7.8,2 9,1.2,3");
        }
    }

    void reportsInLockStepAllArrive()
    {
        constexpr int count = 100000;
        QVERIFY(openDriver("A"));
        QElapsedTimer timer;
        timer.start();
        for (int number = 0; number < count; ++number) {
            const int x = number % 10000;
            const int y = x * 7 % 10000;
            const int button = 1 + number % 4;
            s_got.clear();
            QVERIFY(m_tablet->write(QString::asprintf("%04d%04d%d", x, y, button).toLatin1()));
            const QDeadlineTimer patience(5000);
            while (s_got.isEmpty() && !patience.hasExpired())
                QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
            QCOMPARE(got(), QString::asprintf("%g,%g,%d", x / 100.0, y / 100.0, button));
        }
        qInfo("%d reports in lock step in %lld ms", count, timer.elapsed());
    }

private:
    void followRow()
    {
        QFETCH(TextRow, row);
        const InputEvents* const events = m_digitizer->inputEvents();
        connect(events, &InputEvents::bytesPassedOver, this,
                [](const QByteArray& bytes) { s_got << "over:" + QString::fromLatin1(bytes); });
        connect(events, &InputEvents::portLost, this, [](const QString& reason) {
            QVERIFY(!reason.isEmpty() && reason != "No Error has occurred");
            s_got << "lost";
        });
        // Only where it is awaited: on a busy machine a second may pass in any row.
        if (row.fields.at(2).contains("unread"))
            connect(events, &InputEvents::inputUnread, this,
                    [](qint64 bytes) { s_got << QStringLiteral("unread:%1").arg(bytes); });
        m_digitizer->setCheckedReading(row.fields.at(0).startsWith("checked "));
        QVERIFY(openDriver(row.text(0).section(' ', 1)));
        for (const QString& step : QString::fromLatin1(expanded(row.fields.at(1))).split(", "))
            takeStep(step);
        const bool all = QTest::qWaitFor([&] { return got().size() >= row.text(2).size(); });
        QCoreApplication::processEvents();
        QCOMPARE(got(), row.text(2));
        QVERIFY(all);
    }

    void takeStep(const QString& step)
    {
        const auto known = m_steps.find(step.section(' ', 0, 0));
        QVERIFY2(known != m_steps.end(), qPrintable(step));
        QString rest = step.section(' ', 1);
        known->second(rest.replace('$', '\r').replace('@', QChar(0)));
    }

    void takeLog()
    {
        QFile log(receivedData());
        QByteArray lines = log.open(QIODevice::ReadOnly) ? log.readAll() : QByteArray();
        s_got << "logged:" + lines.replace('\n', '|');
    }

    void listen()
    {
        const QByteArray padding(1000, 'p');
        DigitalReport::registerHandle([this, padding](const DigitalReport& report) {
            s_got << textOf(report);
            for (const QString& step : std::exchange(m_deed, {}).split('+'))
                takeStep(step);
            // What the running handler has captured must outlive its replacement.
            if (padding != QByteArray(1000, 'p'))
                s_got << "the handler is gone";
        });
    }

    bool openDriver(const QString& driver)
    {
        m_digitizer->selectDevice(driver, m_tablet->path());
        const bool open = m_digitizer->open();
        m_digitizer->readReport();
        return open;
    }

    // Returns when the driver has looked at the bytes: they are announced in the event loop's next
    // turn.
    bool send(const QString& bytes)
    {
        const bool taken = m_tablet->write(bytes.toLatin1()) &&
                           QTest::qWaitFor([this] { return m_tablet->taken(); });
        QCoreApplication::processEvents();
        return taken;
    }

    std::unique_ptr<TestHost> m_host;
    std::unique_ptr<PseudoTerminal> m_tablet;
    boost::shared_ptr<Digitizer> m_digitizer;
    QString m_deed; // of the handler, at its next report

    const std::map<QString, std::function<void(const QString&)>> m_steps = {
        {"", [](auto) {}},
        {"send", [this](auto bytes) { QVERIFY2(send(bytes), qPrintable(got())); }},
        {"stall",
         [this](auto bytes) {
             QVERIFY(m_tablet->write(bytes.toLatin1()));
             QThread::msleep(300);
         }},
        {"await", [](auto things) { QVERIFY2(await(things.toInt()), qPrintable(got())); }},
        {"rest", [](auto milliseconds) { QTest::qWait(milliseconds.toInt()); }},
        {"select", [this](auto driver) { m_digitizer->selectDevice(driver, m_tablet->path()); }},
        {"away", [this](auto driver) { m_digitizer->selectDevice(driver, "file:"); }},
        {"open", [this](auto) { note(m_digitizer->open() ? "" : "failed"); }},
        {"read", [this](auto) { m_digitizer->readReport(); }},
        {"close", [this](auto) { note(m_digitizer->close() ? "" : "unopened"); }},
        {"active", [this](auto) { note(m_digitizer->active() ? "active" : "inactive"); }},
        {"plain", [this](auto) { m_digitizer->setCheckedReading(false); }},
        {"beep",
         [this](auto) {
             m_digitizer->digitBeep();
             const QByteArray bytes = m_tablet->read(m_digitizer->active() ? 5000 : 0);
             note(bytes.isEmpty() ? "" : "beep:" + bytes);
         }},
        {"pull", [this](auto) { m_tablet->hangUp(); }},
        {"logged", [this](auto) { takeLog(); }},
        {"deed", [this](auto steps) { m_deed = steps; }},
        {"replace", [this](auto) { listen(); }},
        {"register", [this](auto) { listen(); }},
        {"unregister", [](auto) { DigitalReport::unregisterHandle(); }},
        {"throw", [](auto) { throw HostError(); }},
    };
};

int main(int argc, char** argv)
{
    CatchingApplication application(argc, argv);
    SerialInputTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "SerialInputTest.moc"
