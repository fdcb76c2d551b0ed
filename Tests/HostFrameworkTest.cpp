// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/DigitalReport.h"
#include "MavCore/MavApplication.h"
#include "MavCore/MavInit.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTemporaryFile>
#include <QTimer>
#include <QtTest>

#include <stdexcept>

#include <unistd.h>

using namespace MavSystem;

namespace {

int ask()
{
    return MavApplication::instance()->confirmContinue(
        QStringLiteral("Import?"), QStringLiteral("Pen"), QStringLiteral("Import"),
        QStringLiteral("Delete"), QStringLiteral("Cancel"), nullptr);
}

// What the standard error stream receives while it lives.
class StandardErrorText
{
public:
    StandardErrorText()
    {
        if (!m_file.open() || (m_saved = dup(STDERR_FILENO)) < 0)
            qFatal("cannot take over the standard error stream");
        dup2(m_file.handle(), STDERR_FILENO);
    }

    ~StandardErrorText()
    {
        dup2(m_saved, STDERR_FILENO);
        close(m_saved);
    }

    QByteArray text()
    {
        QFile written(m_file.fileName());
        return written.open(QIODevice::ReadOnly) ? written.readAll() : QByteArray("unreadable");
    }

private:
    QTemporaryFile m_file;
    int m_saved = -1;
};

} // namespace

/// The start-up registry, and the host's defaults in a process without dialogs.
class HostFrameworkTest : public QObject
{
    Q_OBJECT

private slots:
    void theReportTypeIsRegisteredByTheFirstRun();
    void stagesAndOrdersAreKept();
    void anExceptionDropsTheRest();
    void withoutDialogsTextsGoToTheErrorStream();
    void aHostObjectThatGoesIsForgotten();
    void handlersAreReplacedNotAdded();
};

void HostFrameworkTest::theReportTypeIsRegisteredByTheFirstRun()
{
    const char name[] = "MavSystem::DigitalReport";
    QCOMPARE(QMetaType::type(name), int(QMetaType::UnknownType));
    MavInit::instance()->runOnce();
    const int type = QMetaType::type(name);
    QVERIFY(type != QMetaType::UnknownType);

    DigitalReport report(1.5, -2.5);
    report.m_button_number = 7;
    const auto copy = QVariant::fromValue(report).value<DigitalReport>();
    QCOMPARE(qMetaTypeId<DigitalReport>(), type);
    QCOMPARE(copy.coordinate().x(), 1.5);
    QCOMPARE(copy.coordinate().y(), -2.5);
    QCOMPARE(copy.m_button_number, 7);
}

void HostFrameworkTest::stagesAndOrdersAreKept()
{
    MavInit& registry = *MavInit::instance();
    QByteArray sequence;
    const auto add = [&](char letter, int stage, int order) {
        registry.registerRunOnce([&sequence, letter] { sequence += letter; },
                                 MavInit::RunStage(stage), order);
    };
    const QByteArray equalOrders = "ghijklmnopqrstuvwxyz"; // enough of them for a sort to mix
    for (const char letter : equalOrders)
        add(letter, 1, 0);
    add('e', 1, -5);
    add('c', 0, 2);
    add('a', 0, -1);
    add('d', 0, 2);
    add('b', 0, 0);
    registry.registerRunOnce([&] { add('f', 0, 0); }, MavInit::RunStage(0), 0);
    registry.runOnce();
    QCOMPARE(sequence, "abcde" + equalOrders);
    registry.runOnce();
    registry.runOnce();
    QCOMPARE(sequence, "abcde" + equalOrders + "f");
}

void HostFrameworkTest::anExceptionDropsTheRest()
{
    MavInit& registry = *MavInit::instance();
    bool reached = false;
    registry.registerRunOnce([] { throw std::runtime_error("start-up"); }, MavInit::STAGE_TYPES, 0);
    registry.registerRunOnce([&] { reached = true; }, MavInit::STAGE_TYPES, 1);
    QVERIFY_EXCEPTION_THROWN(registry.runOnce(), std::runtime_error);
    registry.runOnce();
    QVERIFY(!reached);
}

void HostFrameworkTest::withoutDialogsTextsGoToTheErrorStream()
{
    StandardErrorText error;
    const MavApplication* const application = MavApplication::instance();
    application->displayWarning(QStringLiteral("Warned"), QString(), nullptr);
    application->displayError(QStringLiteral("Failed"), QStringLiteral("file"), nullptr);
    QCOMPARE(ask(), 2);
    QCOMPARE(application->mainWindow(), nullptr);
    QCOMPARE(error.text(), QByteArray("Warned\nFailed (file)\nImport? (Cancel)\n"));
}

void HostFrameworkTest::aHostObjectThatGoesIsForgotten()
{
    MavApplication* const standard = MavApplication::instance();
    {
        MavApplication own;
        MavApplication::setInstance(&own);
        QCOMPARE(MavApplication::instance(), &own);
    }
    QCOMPARE(MavApplication::instance(), standard);
}

void HostFrameworkTest::handlersAreReplacedNotAdded()
{
    DigitalReport report(3.0, 4.0);
    report.flush(); // nobody there
    QByteArray calls;
    DigitalReport::registerHandle([&](const DigitalReport&) { calls += '1'; });
    DigitalReport::registerHandle([&](const DigitalReport& got) {
        calls += '2';
        QCOMPARE(got.coordinate().x(), 3.0);
        QCOMPARE(got.coordinate().y(), 4.0);
        QCOMPARE(got.m_button_number, 9);
    });
    report.m_button_number = 9;
    report.flush();
    DigitalReport::registerHandle([](const DigitalReport&) { throw std::runtime_error("host"); });
    QVERIFY_EXCEPTION_THROWN(report.flush(), std::runtime_error);
    DigitalReport::unregisterHandle();
    report.flush();
    QCOMPARE(calls, QByteArray("2"));
}

/// The host's defaults in a process with dialogs.
class HostDialogTest : public QObject
{
    Q_OBJECT

private slots:
    void theQuestionReturnsTheChoice_data();
    void theQuestionReturnsTheChoice();
};

void HostDialogTest::theQuestionReturnsTheChoice_data()
{
    QTest::addColumn<QString>("choice"); // a button's text, or a way to dismiss the dialog
    QTest::addColumn<int>("answer");
    QTest::newRow("first") << "Import" << 0;
    QTest::newRow("second") << "Delete" << 1;
    QTest::newRow("third") << "Cancel" << 2;
    QTest::newRow("Escape") << "escape" << 2;
    QTest::newRow("Return") << "return" << 2;
    QTest::newRow("closed") << "close" << 2;
}

void HostDialogTest::theQuestionReturnsTheChoice()
{
    QFETCH(QString, choice);
    QFETCH(int, answer);
    QTimer::singleShot(0, [&] {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box)
            return;
        for (QAbstractButton* const button : box->buttons()) {
            if (button->text() == choice)
                return button->click();
        }
        if (choice == QLatin1String("close"))
            box->close();
        else
            QTest::keyClick(box,
                            choice == QLatin1String("escape") ? Qt::Key_Escape : Qt::Key_Return);
    });
    QCOMPARE(ask(), answer);
}

int main(int argc, char** argv)
{
    int failures = 0;
    {
        QCoreApplication application(argc, argv);
        HostFrameworkTest test;
        failures += QTest::qExec(&test, argc, argv);
    }
    QApplication application(argc, argv);
    HostDialogTest test;
    return failures + QTest::qExec(&test, argc, argv);
}

#include "HostFrameworkTest.moc"
