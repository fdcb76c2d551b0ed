// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/DigitalReport.h"
#include "MavCore/MavApplication.h"
#include "MavCore/MavInit.h"
#include "support/StructRows.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTemporaryFile>
#include <QTimer>

#include <stdexcept>

#include <unistd.h>

using namespace MavSystem;

namespace {
int ask()
{
    return MavApplication::instance()->confirmContinue("Import?", "Pen", "Import", "Delete",
                                                       "Cancel", nullptr);
}

QString textOf(const DigitalReport& report)
{
    const GeoPoint2D point = report.coordinate();
    return QString::asprintf("%g %g %d", point.x(), point.y(), report.m_button_number);
}

} // namespace

/// The start-up registry, and the host's defaults in a process without dialogs.
class HostFrameworkTest : public QObject
{
    Q_OBJECT

private slots:
    void theReportTypeIsRegisteredByTheFirstRun()
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
        QCOMPARE(textOf(copy), "1.5 -2.5 7");
    }

    void stagesAndOrdersAreKept()
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

    void anExceptionDropsTheRest()
    {
        MavInit& registry = *MavInit::instance();
        bool reached = false;
        registry.registerRunOnce([] { throw std::runtime_error("start-up"); }, MavInit::STAGE_TYPES,
                                 0);
        registry.registerRunOnce([&] { reached = true; }, MavInit::STAGE_TYPES, 1);
        QVERIFY_EXCEPTION_THROWN(registry.runOnce(), std::runtime_error);
        registry.runOnce();
        QVERIFY(!reached);
    }

    void withoutDialogsTextsGoToTheErrorStream()
    {
        QTemporaryFile written;
        QVERIFY(written.open());
        const int before = dup(STDERR_FILENO);
        dup2(written.handle(), STDERR_FILENO);
        const MavApplication* const application = MavApplication::instance();
        application->displayWarning("Warned", QString(), nullptr);
        application->displayError("Failed", "file", nullptr);
        const int answer = ask();
        dup2(before, STDERR_FILENO);
        close(before);
        QCOMPARE(answer, 2);
        QCOMPARE(application->mainWindow(), nullptr);
        written.seek(0);
        QCOMPARE(written.readAll(), QByteArray("Warned\nFailed (file)\nImport? (Cancel)\n"));
    }

    void aHostObjectThatGoesIsForgotten()
    {
        MavApplication* const standard = MavApplication::instance();
        {
            MavApplication own;
            MavApplication::setInstance(&own);
            QCOMPARE(MavApplication::instance(), &own);
        }
        QCOMPARE(MavApplication::instance(), standard);
    }
};

namespace {
const struct
{
    const char* name; // a button's text, or a way to dismiss the dialog
    Qt::Key key;
    int answer;
} choices[] = {
    {"Import", {}, 0},
    {"Delete", {}, 1},
    {"Cancel", {}, 2},
    {"Escape", Qt::Key_Escape, 2},
    {"Return", Qt::Key_Return, 2},
    {"closed", {}, 2},
};

} // namespace

/// The host's defaults in a process with dialogs.
class HostDialogTest : public QObject
{
    Q_OBJECT

private slots:
    void theQuestionReturnsTheChoice_data() { addRows(choices); }

    void theQuestionReturnsTheChoice()
    {
        const auto& row = currentRow(choices);
        QTimer::singleShot(0, [&] {
            auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            QVERIFY(box);
            for (QAbstractButton* const button : box->buttons()) {
                if (button->text() == row.name)
                    return button->click();
            }
            if (row.key == 0)
                box->close();
            else
                QTest::keyClick(box, row.key);
        });
        QCOMPARE(ask(), row.answer);
    }
};

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
