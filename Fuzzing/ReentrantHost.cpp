// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "Fuzzing/ReentrantHost.h"

#include "DigitizerGeneric/Digitizer/InputEvents.h"
#include "ReferenceHost/Serial/PseudoTerminal.h"
#include "support/PenInput.h"

#include <QEventLoop>
#include <QRandomGenerator>
#include <QScopeGuard>

#include <memory>

using namespace MavSystem;

namespace {

constexpr int maximumDepth = 6; // of calls inside calls
constexpr int pointsOfFile = 4; // y counts them from 1
constexpr int addedPoint = 9;   // y of what a file grows by; a tablet's are greater

struct PenFile
{
    QString name;
    QString points = {};  // delivered, in order
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
            m_host.writeDescription(name,
                                    DescriptionBuilder(name)
                                        .resolution(1, "LPMM")
                                        .buttons(*name == 'A' ? "4" : "16", 1, {"1", "2", "3", "4"})
                                        .beep("<beepString><character>7</character></beepString>")
                                        .xml());
        m_host.duringDialog = [this] { reactToBox(); };
        m_digitizer->selectDevice("A", "File:");
        m_digitizer->setCheckedReading(false);
        const InputEvents* const events = m_digitizer->inputEvents();
        const auto react = [this] { actWithoutThrowing(); };
        QObject::connect(events, &InputEvents::bytesPassedOver, react);
        QObject::connect(events, &InputEvents::inputUnread, react);
        QObject::connect(events, &InputEvents::portLost, react);
        registerHandler();
    }

    ~Session()
    {
        DigitalReport::unregisterHandle();
        m_digitizer->inputEvents()->disconnect();
        m_digitizer->close(); // the pen input
        m_digitizer->close(); // a port
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    QStringList run()
    {
        // Objects that are deleted later go at different moments below and beside an event loop.
        QEventLoop loop;
        const auto actAll = [&] {
            while (m_next < m_decisions.size())
                actWithoutThrowing();
            loop.quit();
        };
        if (decide(2) == 0) {
            actAll();
        } else {
            QTimer::singleShot(0, &loop, actAll);
            loop.exec();
        }
        m_decisions.clear();
        finish();
        return m_failures;
    }

private:
    void fail(const QString& text) { m_failures << text; }

    int decide(int choices)
    {
        return m_next < m_decisions.size() ? uchar(m_decisions.at(m_next++) - '0') % choices : 0;
    }

    void act()
    {
        using Action = void (Session::*)();
        // What changes much is done more often. Rows are appended only, and their weights stay:
        // kept inputs count on them.
        static constexpr std::pair<Action, int> weights[] = {
            {&Session::open, 4},         {&Session::close, 1},       {&Session::select, 1},
            {&Session::set, 1},          {&Session::put, 4},         {&Session::rename, 1},
            {&Session::remove, 1},       {&Session::grow, 1},        {&Session::processEvents, 2},
            {&Session::runEventLoop, 3}, {&Session::raise, 2},       {&Session::unregister, 1},
            {&Session::send, 1},         {&Session::callTheRest, 1}, {&Session::registerHandler, 2},
            {&Session::switchOn, 1}};
        QVector<Action> actions;
        for (const auto& [action, weight] : weights)
            actions += QVector<Action>(weight, action);
        if (m_depth == maximumDepth)
            return;
        ++m_depth;
        const auto leave = qScopeGuard([this] { --m_depth; });
        for (int count = decide(4); count > 0; --count)
            (this->*actions.at(decide(actions.size())))();
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

    void open()
    {
        const bool pen = m_digitizer->device() == "File:";
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
            fail("close() was true without a closing report");
    }

    void select()
    {
        const QByteArray driver = QByteArrayList{"A", "A", "A", "B", "B", "Nobody"}.at(decide(6));
        const int choice = decide(8);
        QString device = choice == 2 ? "/dev/does-not-exist" : "File:";
        if (choice == 1) {
            if (!m_tablet)
                m_tablet = std::make_unique<ReferenceHost::PseudoTerminal>();
            device = m_tablet->path();
        }
        m_scaled = driver != "Nobody";
        excuseWaitingFiles();
        m_digitizer->selectDevice(driver, device);
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
        const bool taken = decide(8) == 7;
        m_files.append({QString::number(++m_names), {}, true, taken, taken});
        const PenFile& file = m_files.constLast();
        if (taken)
            m_host.write("pen/" + file.name + ".txt", "taken");
        // With the extended buttons, 3 and 1 are one button.
        QByteArray lines = "A- 1|X:N:1|X:N:2|A- 3|A- 1|X:N:3|A- 4|X:N:4|";
        lines.replace('N', QByteArray::number(m_files.size())).replace('|', '\n');
        m_pen.putFile(file.name + ".dat", lines);
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
        QFile::rename(before, pathOf(*file));
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
        if (decide(4) < 2)
            throw std::runtime_error("raised");
        throw 1;
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
        const QByteArrayList reports = {"000150001", "00025", "000350001000450001", "\r"};
        const int choice = decide(4);
        if (m_tablet)
            m_tablet->write(reports.at(choice));
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
        const bool closing = report.isClosing();
        // At one line per millimetre.
        const double file = report.coordinate().x() * 10;
        const double point = report.coordinate().y() * 10;
        m_closings += closing ? 1 : 0;
        if (!closing && !(file > 0.5 && point > 0.5 && point < addedPoint + 0.5))
            return actWithoutThrowing(); // a tablet's
        if (file > m_files.size() + 0.5)
            fail(QStringLiteral("a point that nobody gave: %1 %2").arg(file).arg(point));
        else if (!closing && point < pointsOfFile + 0.5)
            m_files[qRound(file) - 1].points += QString::number(qRound(point));
        act();
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

    QString pathOf(const PenFile& file) const { return m_pen.pathOf(file.name + ".dat"); }

    void finish()
    {
        QCoreApplication::processEvents();
        m_scaled = true;
        m_digitizer->setPenFileSettleTime(0);
        m_digitizer->selectDevice("A", "File:");
        registerHandler();
        m_digitizer->close();
        if (!m_digitizer->open() || !m_digitizer->active())
            fail("it does not open any more");
        put();
        if (!QTest::qWaitFor([this] { return !QFile::exists(pathOf(m_files.constLast())); }))
            fail("the last file stays");
        for (const PenFile& file : qAsConst(m_files))
            checkFile(file);
    }

    void checkFile(const PenFile& file)
    {
        const bool waits = QFile::exists(pathOf(file));
        const QString read = QString(file.points).replace("33", "3"); // pairs of the internal mode
        const QString once = "1234";
        const bool whole = read == once || (file.repeats && !read.isEmpty() &&
                                            read == once.repeated(read.size() / once.size()));
        if (file.owed && !(whole && waits == file.stays))
            fail(QStringLiteral("file %1, %2 in the directory, gave: %3")
                     .arg(file.name, waits ? "still" : "no longer", file.points));
    }

    QByteArray m_decisions;
    int m_next = 0;
    PenInput m_pen;
    TestHost& m_host = m_pen.host;
    const boost::shared_ptr<Digitizer> m_digitizer = m_pen.digitizer;
    std::unique_ptr<ReferenceHost::PseudoTerminal> m_tablet;
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
