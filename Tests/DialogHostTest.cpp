// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "../Examples/dialog-host/MainWindow.h"
#include "DigitizerGeneric/Digitizer/DescriptionFolder.h"
#include "ReferenceHost/Serial/PseudoTerminal.h"
#include "support/StructRows.h"

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTimer>

using namespace MavSystem;
using namespace ReferenceHost;

namespace {
constexpr int patience = 10000; // milliseconds

// The window of the host, and the person before it.
class Session : public MainWindow
{
public:
    Session()
    {
        show();
        m_look.callOnTimeout([this] { look(); });
        m_look.start(10);
    }

    /// Chooses in the dialog, and answers the next box with the button or the key of that name.
    void open(const QString& driver, const QString& port, const QString& directory,
              const QString& answer = {})
    {
        m_entries = QStringList{driver, port, directory};
        m_answer = answer;
        press(Qt::Key_O);
    }

    /// Presses a key with Ctrl.
    void press(Qt::Key key)
    {
        activateWindow();
        if (!QTest::qWaitForWindowActive(this, patience))
            qWarning("the window does not become active");
        QTest::keyClick(this, key, Qt::ControlModifier);
    }

    QString status() const { return statusBar()->currentMessage(); }

    QStringList points() const
    {
        QStringList points;
        for (const QGraphicsItem* const item : findChild<QGraphicsView*>()->items()) {
            if (item->type() == QGraphicsEllipseItem::Type)
                points.prepend(
                    QStringLiteral("%1 %2").arg(item->x(), 0, 'f', 4).arg(item->y(), 0, 'f', 4));
        }
        return points;
    }

    QString box; ///< the text of the last box

private:
    void look()
    {
        auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (auto* const message = qobject_cast<QMessageBox*>(dialog))
            answer(*message);
        else if (dialog)
            fillIn(*dialog);
    }

    void fillIn(QDialog& dialog) const
    {
        const auto choices = dialog.findChildren<QComboBox*>();
        choices.at(0)->setCurrentText(m_entries.at(0));
        choices.at(1)->setEditText(m_entries.at(1));
        dialog.findChildren<QLineEdit*>().last()->setText(m_entries.at(2));
        QTest::keyClick(&dialog, Qt::Key_Return);
    }

    void answer(QMessageBox& message)
    {
        box = message.text();
        for (QAbstractButton* const button : message.buttons()) {
            if (button->text() == m_answer)
                return QTest::mouseClick(button, Qt::LeftButton);
        }
        QTest::keyClick(&message, m_answer == "Escape" ? Qt::Key_Escape : Qt::Key_Return);
    }

    QTimer m_look;
    QStringList m_entries;
    QString m_answer;
};

const struct
{
    const char* name; // a button's text, or a key
    int points;
    QString files; // that are left
} answers[] = {
    {"Import", 9, "collar.txt"}, {"Delete", 0, ""},           {"Cancel", 0, "collar.dat"},
    {"Return", 0, "collar.dat"}, {"Escape", 0, "collar.dat"},
};

} // namespace

/// What somebody does at the window of the example host, until the points are
/// in its drawing.
class DialogHostTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QCoreApplication::setOrganizationName("Examples");
        QCoreApplication::setApplicationName("dialog-host");
        for (const char* folder : {"XDG_DATA_HOME", "XDG_CONFIG_HOME"})
            qputenv(folder, m_home.path().toLocal8Bit());
    }

    void aChosenTabletDraws()
    {
        Session session;
        PseudoTerminal tablet;
        session.open("Generic 5-5-1 (ASCII)", tablet.path(), {});
        QVERIFY2(tablet.waitForOpen(patience), qPrintable(session.status()));
        const QStringList pressed = {"2.5397 5.0794", "0.0000 253.9657"};
        QVERIFY(tablet.write("01000,02000,1\r\n00000,99999,4\r\n"));
        QTRY_COMPARE_WITH_TIMEOUT(session.points(), pressed, patience);
        tablet.hangUp();
        QTRY_VERIFY2_WITH_TIMEOUT(session.status().startsWith("The port is lost: "),
                                  qPrintable(session.status()), patience);
        session.press(Qt::Key_W);
        QCOMPARE(session.status(), QString("No digitizer is open."));
        QCOMPARE(session.points(), pressed); // and no closing report
    }

    void aProblemIsShownInABox()
    {
        Session session;
        session.open("Generic 5-5-1 (ASCII)", "/dev/no-such-port", {}, "OK");
        QVERIFY2(session.box.contains("/dev/no-such-port"), qPrintable(session.box));
    }

    void theImportIsAskedFor_data() { addRows(answers); }

    void theImportIsAskedFor()
    {
        const auto& row = currentRow(answers);
        const QTemporaryDir pen;
        const QString example = SOURCE_DIRECTORY "/Examples/pen/";
        QVERIFY(QFile::copy(example + "garment/collar.dat", pen.filePath("collar.dat")));
        Session session;
        QCOMPARE(DescriptionFolder::install(example + "example-pen.xml").problem, QString());
        session.open("Example Pen", "File:", pen.path(), row.name);
        QVERIFY2(session.box.contains("ready to be imported"), qPrintable(session.box));
        QCOMPARE(session.status(),
                 row.points > 0 ? "Example Pen is open at File:" : "No digitizer is open.");
        const auto files = [&] { return QDir(pen.path()).entryList(QDir::Files).join(' '); };
        QTRY_COMPARE_WITH_TIMEOUT(files(), row.files, patience);
        QTRY_COMPARE_WITH_TIMEOUT(session.points().size(), row.points, patience);
    }

private:
    QTemporaryDir m_home;
};

QTEST_MAIN(DialogHostTest)
#include "DialogHostTest.moc"
