// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "Fuzzing/ReentrantHost.h"

#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "DigitizerGeneric/Digitizer/InputEvents.h"
#include "DigitizerGeneric/File_Digital/FatalError.h"
#include "ReferenceHost/Serial/PseudoTerminal.h"
#include "support/DescriptionBuilder.h"
#include "support/TestHost.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QFile>
#include <QRandomGenerator>
#include <QScopeGuard>
#include <QSettings>
#include <QTimer>
#include <QVector>

#include <cmath>
#include <memory>

using namespace MavSystem;
using namespace ReferenceHost;

namespace {

constexpr int maximumDepth = 6; // of calls inside calls
constexpr int pointsOfFile = 4; // y counts them from 1
constexpr int addedPoint = 9;   // y of what a file grows by; a tablet's are greater

struct PenFile
{
    QString name;
    QVector<int> points;  // delivered, in order
    bool owed = true;     // not removed, and the handler was there all the time
    bool repeats = false; // it may be imported several times
    bool stays = false;   // its new name is taken
};

class Session
{
public:
    explicit Session(const QByteArray& decisions) : m_decisions(decisions)
    {
        for (const char* name : {"A", "B"})
            m_host.writeDescription(QString::fromLatin1(name),
                                    DescriptionBuilder(name)
                                        .resolution(1, "LPMM")
                                        .buttons(*name == 'A' ? "4" : "16", 1, {"1", "2", "3", "4"})
                                        .beep("<beepString><character>7</character></beepString>")
                                        .xml());
        QDir().mkpath(m_host.path(QStringLiteral("pen")));
        QSettings().setValue(QStringLiteral("digitizer_file_directory"),
                             m_host.path(QStringLiteral("pen")));
        m_host.duringDialog = [this] { reactToBox(); };
        m_digitizer->selectDevice(QStringLiteral("A"), QStringLiteral("File:"));
        m_digitizer->setExtended4Buttons(false);
        m_digitizer->setCheckedReading(false);
        m_digitizer->m_host_mode = 0;
        listen();
        registerHandler();
    }

    ~Session()
    {
        DigitalReport::unregisterHandle();
        m_digitizer->inputEvents()->disconnect();
        for (int closed = 0; closed < 2; ++closed) // the pen input, then a port
            m_digitizer->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    QStringList run()
    {
        // Objects that are deleted later go at different moments below and beside an event loop.
        if (decide(2) == 0) {
            actAll();
        } else {
            QEventLoop loop;
            QTimer::singleShot(0, &loop, [&] {
                actAll();
                loop.quit();
            });
            loop.exec();
        }
        m_decisions.clear();
        finish();
        return m_failures;
    }

private:
    void fail(const QString& text) { m_failures << text; }

    void listen()
    {
        const InputEvents* const events = m_digitizer->inputEvents();
        QObject::connect(events, &InputEvents::bytesPassedOver, [this] { actWithoutThrowing(); });
        QObject::connect(events, &InputEvents::inputUnread, [this] { actWithoutThrowing(); });
        QObject::connect(events, &InputEvents::portLost, [this] { actWithoutThrowing(); });
    }

    int decide(int choices)
    {
        return m_next < m_decisions.size() ? uchar(m_decisions.at(m_next++) - '0') % choices : 0;
    }

    void act()
    {
        using Action = void (Session::*)();
        static constexpr Action actions[] = {
            &Session::open,         &Session::close,       &Session::select,
            &Session::set,          &Session::put,         &Session::rename,
            &Session::remove,       &Session::grow,        &Session::processEvents,
            &Session::runEventLoop, &Session::raise,       &Session::unregister,
            &Session::send,         &Session::callTheRest, &Session::registerHandler,
            &Session::switchOn};
        // What changes much is done more often. Letters are appended only: kept inputs count on
        // them.
        static constexpr char choices[] = "ABCDEFGHIJKLMNOOAAAEEEIJJKP";
        if (m_depth == maximumDepth)
            return;
        ++m_depth;
        const auto leave = qScopeGuard([this] { --m_depth; });
        for (int count = decide(4); count > 0; --count)
            (this->*actions[choices[decide(int(std::size(choices)) - 1)] - 'A'])();
    }

    // For what an event loop brings, through which nothing may be thrown, and where nobody catches
    // what this host throws in a box or at the closing report.
    void actWithoutThrowing()
    {
        try {
            act();
        } catch (...) {
        }
    }

    void actAll()
    {
        while (m_next < m_decisions.size())
            actWithoutThrowing();
    }

    void open()
    {
        const bool pen = m_digitizer->device() == QLatin1String("File:");
        const int opens = ++m_opens;
        const bool opened = m_digitizer->open();
        if (!pen && opened)
            m_digitizer->readReport();
        // What was opened meanwhile replaced this one, which is then not open.
        if (pen && (opened || opens == m_opens) && m_digitizer->active() != opened)
            fail(QStringLiteral("open() was %1, active() is not").arg(opened));
    }

    void close()
    {
        const int closings = m_closings;
        const bool registered = m_registered;
        if (m_digitizer->close() && registered && m_closings == closings)
            fail(QStringLiteral("close() was true without a closing report"));
    }

    void select()
    {
        static constexpr const char* drivers[] = {"A", "A", "A", "B", "B", "Nobody"};
        const char* const driver = drivers[decide(6)];
        const int choice = decide(8);
        QString device =
            choice == 2 ? QStringLiteral("/dev/does-not-exist") : QStringLiteral("File:");
        if (choice == 1) {
            if (!m_tablet)
                m_tablet = std::make_unique<PseudoTerminal>();
            device = m_tablet->path();
        }
        m_scaled = *driver != 'N';
        excuseWaitingFiles();
        m_digitizer->selectDevice(QLatin1String(driver), device);
    }

    void set()
    {
        m_digitizer->setExtended4Buttons(decide(2) != 0);
        m_digitizer->m_host_mode = decide(2) * 50;
    }

    void switchOn()
    {
        m_digitizer->setCheckedReading(decide(4) != 0);
        m_digitizer->setPenFileSettleTime(decide(2));
        if (decide(6) == 5)
            m_tablet.reset(); // a pulled cable
    }

    void put()
    {
        PenFile file;
        file.name = QString::number(++m_names);
        file.stays = file.repeats = decide(8) == 7;
        if (file.stays)
            m_host.write(QStringLiteral("pen/%1.txt").arg(file.name), "taken");
        m_files << file;
        // With the extended buttons, 3 and 1 are one button.
        QByteArray lines = "A- 1|X:N:1|X:N:2|A- 3|A- 1|X:N:3|A- 4|X:N:4|";
        lines.replace('N', QByteArray::number(m_files.size())).replace('|', '\n');
        const QString outside = m_host.write(QStringLiteral("outside"), lines);
        if (!QFile::rename(outside, pathOf(file)))
            qFatal("cannot put %s", qPrintable(file.name));
        excuseWaitingFiles();
    }

    void rename()
    {
        PenFile* const file = anyWaitingFile();
        if (!file)
            return;
        const QString before = pathOf(*file);
        file->name = QString::number(++m_names);
        file->stays = false;
        file->repeats = true; // it may be the one that is being read
        if (!QFile::rename(before, pathOf(*file)))
            qFatal("cannot rename %s", qPrintable(before));
    }

    void remove()
    {
        PenFile* const file = anyWaitingFile();
        if (file && QFile::remove(pathOf(*file)))
            file->owed = false;
    }

    void grow()
    {
        const PenFile* const file = anyWaitingFile();
        if (!file)
            return;
        QFile grown(pathOf(*file));
        if (grown.open(QIODevice::Append))
            grown.write("X:" + QByteArray::number(int(file - m_files.constData()) + 1) + ':' +
                        QByteArray::number(addedPoint) + '\n');
    }

    void processEvents() { QCoreApplication::processEvents(); }

    void runEventLoop()
    {
        QEventLoop loop;
        QTimer::singleShot(0, &loop, &QEventLoop::quit);
        loop.exec();
    }

    void raise()
    {
        const int kind = decide(4);
        if (kind == 0)
            throw std::runtime_error("raised");
        if (kind == 1)
            throw FatalError(QStringLiteral("raised"));
        if (kind == 2)
            throw 1;
        throw "raised";
    }

    void unregister()
    {
        DigitalReport::unregisterHandle();
        m_registered = false;
        excuseWaitingFiles();
    }

    void registerHandler()
    {
        DigitalReport::registerHandle([this](const DigitalReport& report) { takeReport(report); });
        m_registered = true;
    }

    void send()
    {
        static const QByteArray reports[] = {"000150001", "00025", "000350001000450001", "\r"};
        const QByteArray& report = reports[decide(4)];
        if (m_tablet)
            m_tablet->write(report);
    }

    void callTheRest()
    {
        m_digitizer->saveConfig();
        m_digitizer->readReport();
        m_digitizer->digitBeep();
        m_digitizer->parseReportText(3);
        Digitizer::deviceExist();
    }

    void reactToBox()
    {
        static constexpr int answers[] = {0, 1, 2, -1, 0, 0, 0, 0};
        const int questions = m_host.questions.size();
        const bool asked = questions > std::exchange(m_questions, questions);
        act();
        if (!asked)
            return;
        m_host.answer = answers[decide(8)];
        for (PenFile& file : m_files)
            file.owed = file.owed && !(m_host.answer == 1 && QFile::exists(pathOf(file)));
    }

    void takeReport(const DigitalReport& report)
    {
        const GeoPoint2D point = report.coordinate();
        const bool known = std::isfinite(point.x()) && std::isfinite(point.y());
        const int x = known ? qRound(point.x() * 10) : 0;
        const int y = known ? qRound(point.y() * 10) : 0;
        const bool closing = known && x == 0 && y == 0 && point.x() > 0;
        m_closings += closing ? 1 : 0;
        if (closing || (x > 0 && y > 0 && y <= addedPoint)) {
            takePoint(x, y);
            act();
            return;
        }
        actWithoutThrowing(); // a tablet's
    }

    void takePoint(int file, int point)
    {
        if (file > m_files.size())
            fail(QStringLiteral("a point that nobody gave: %1 %2").arg(file).arg(point));
        else if (file > 0 && point <= pointsOfFile)
            m_files[file - 1].points << point;
    }

    // What is imported from now on may be lost on this host.
    void excuseWaitingFiles()
    {
        for (PenFile& file : m_files)
            file.owed = file.owed && ((m_registered && m_scaled) || !QFile::exists(pathOf(file)));
    }

    PenFile* anyWaitingFile()
    {
        if (m_files.isEmpty())
            return nullptr;
        PenFile& file = m_files[decide(m_files.size())];
        return QFile::exists(pathOf(file)) ? &file : nullptr;
    }

    QString pathOf(const PenFile& file) const
    {
        return m_host.path(QStringLiteral("pen/%1.dat").arg(file.name));
    }

    void finish()
    {
        QCoreApplication::processEvents();
        m_scaled = true;
        m_digitizer->setPenFileSettleTime(0);
        m_digitizer->selectDevice(QStringLiteral("A"), QStringLiteral("File:"));
        registerHandler();
        m_digitizer->close();
        if (!m_digitizer->open() || !m_digitizer->active())
            fail(QStringLiteral("it does not open any more"));
        put();
        QDeadlineTimer deadline(5000);
        while (QFile::exists(pathOf(m_files.constLast())) && !deadline.hasExpired())
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        for (const PenFile& file : qAsConst(m_files))
            checkFile(file);
    }

    void checkFile(const PenFile& file)
    {
        const bool waits = QFile::exists(pathOf(file));
        QString points;
        for (const int point : file.points)
            points += QString::number(point);
        // The pairs of the internal mode.
        const QString read = QString(points).replace(QLatin1String("33"), QLatin1String("3"));
        const QString once = QStringLiteral("1234");
        const bool whole = read == once || (file.repeats && !read.isEmpty() &&
                                            read == once.repeated(read.size() / once.size()));
        if (file.owed && !(whole && waits == file.stays))
            fail(QStringLiteral("file %1, %2 in the directory, gave: %3")
                     .arg(file.name, QLatin1String(waits ? "still" : "no longer"), points));
    }

    QByteArray m_decisions;
    int m_next = 0;
    TestHost m_host;
    boost::shared_ptr<Digitizer> m_digitizer = Digitizer::instance();
    std::unique_ptr<PseudoTerminal> m_tablet;
    QVector<PenFile> m_files; // a file's number, the x of its points, is its place, from 1
    bool m_registered = false;
    bool m_scaled = true; // the selected driver's points are the pen's own
    int m_names = 0;
    int m_depth = 0;
    int m_opens = 0;
    int m_questions = 0;
    int m_closings = 0;
    QStringList m_failures;
};

} // namespace

QStringList ReentrantHost::run(const QByteArray& decisions)
{
    return Session(decisions).run();
}

QByteArray ReentrantHost::randomDecisions(quint32 seed)
{
    QRandomGenerator generator(seed);
    QByteArray decisions(generator.bounded(100, 800), '\0');
    for (char& decision : decisions)
        decision = char(generator.bounded(256));
    return decisions;
}
