// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/DescribedDriver.h"
#include "DigitizerGeneric/Digitizer/DigitalReport.h"
#include "DigitizerGeneric/Digitizer/DigitizerArgument.h"
#include "DigitizerGeneric/DigitizerGenericExport.h"
#include "MavGeo/GeoPoint2D.h"

#include <QList>
#include <QMap>
#include <QObject>
#include <QString>

#include <boost/scoped_ptr.hpp>
#include <boost/shared_ptr.hpp>

#include <memory>
#include <optional>

class QTimer;
class QextSerialPort;

namespace MavSystem {

class CheckedInput;
class DigipenFileDigitalization;
class InputEvents;
class ReportLayout;

/// What parseReportText() decodes: bit 0 the button number, bit 1 the coordinate.
using ParseReportFlags = int;

/// The one object through which a host uses a digitizing tablet or a digital pen.
///
/// Expected order of calls: instance(); selectDevice(), setters and saveConfig() as needed;
/// DigitalReport::registerHandle(); open(); on success readReport(); close() at the end. A host
/// that changes from pen input to serial input must call close() in between, even after an open()
/// that returned false.
///
/// Inside the report handler a host may call any operation of this class, show a modal dialog or
/// throw. Thread: the thread of the host's event loop. Not thread-safe.
class DIGITIZERGENERIC_EXPORT Digitizer : public QObject
{
    Q_OBJECT

public:
    /// Returns the only object of this class in the process. It is created by the first call and
    /// lives until the process ends.
    static boost::shared_ptr<Digitizer> instance();

    /// Reads the saved settings (by default all empty or false) and the description of the saved
    /// driver. Hosts use instance().
    Digitizer();
    ~Digitizer() override;

    /// Selects the driver named \a driver and the serial port \a device, or the pen directory if \a
    /// device is "File:". An unknown driver is not an error here; see deviceExist(). An open device
    /// does not change, and nothing is saved.
    void selectDevice(const QString& driver, const QString& device);

    /// The same with a driver that was already read and need not be installed; see
    /// DescriptionFolder::read(). Later changes to its file do not count, except changes to the
    /// beep command. saveConfig() saves its name only.
    void selectDriver(const DescribedDriver& driver, const QString& device);

    /// Writes the selection and the four options to the host's QSettings.
    void saveConfig();

    QString driver() const;
    QString device() const;

    /// Returns the selected driver: the one given to selectDriver(), or the installed one with the
    /// selected name, or nothing if there is none.
    std::optional<DescribedDriver> describedDriver() const;

    /// Whether the digital pen's button 3 is a prefix. Default: false. Takes effect at the next
    /// open().
    bool extended4Buttons() const;
    void setExtended4Buttons(bool on);

    /// How many milliseconds the size and the modification time of a pen file must stay the same
    /// before it is imported. For pen software that does not move complete files into the
    /// directory. Default: 0, a file is imported as soon as it appears. A negative value counts as
    /// 0. Takes effect at the next open(); not saved.
    ///
    /// With a settle time, an open directory is polled at least once a second.
    void setPenFileSettleTime(int milliseconds);
    int penFileSettleTime() const;

    /// Returns how many pen files, as of the last poll, are still to be imported; 0 without a
    /// settle time. For hosts that import the existing files and then end.
    int unsettledPenFiles() const;

    // The next three options are stored and saved for the host. The library does not use them.
    bool dgitizePiecesView() const;
    void setDgitizePiecesView(bool on);
    bool viewDigizedPoints() const;
    void setViewDigizedPoints(bool on);
    bool highPrecision() const;
    void setHighPrecision(bool on);

    /// Whether serial input is read report by report, each checked against the template. Default:
    /// false. Takes effect at the next open(); not saved. Has no effect on the "Lectra E92" or on a
    /// driver whose template is empty or has more than 512 characters.
    ///
    /// Off: a report is read only when exactly one is waiting; its characters are not checked.
    /// Reports that arrive together stay unread until the port is opened again.
    ///
    /// On: each report that fits the template is delivered separately and in order, however many
    /// arrived together. Bytes that do not fit are passed over and announced by inputEvents(). If a
    /// template has no line ends and a shifted report could also fit, reports are delivered after a
    /// pause in the input (150 ms plus the time of four characters). Not promised: that damage is
    /// found if it leaves another well-formed report, such as a changed digit.
    bool checkedReading() const;
    void setCheckedReading(bool on);

    /// Returns the object that signals bytes passed over, unread input and a lost port. It is owned
    /// by this object; do not delete it.
    InputEvents* inputEvents();

    /// Returns "No Error has occurred" if the selected device can be used. Otherwise returns
    /// "Digitizer Not Present..." (translated) if no installed description has the driver's name,
    /// or the serial port's error text.
    ///
    /// Copies the shipped descriptions to the folder "generated" of the host's application data
    /// location if that folder exists and is empty. Opens the port for a moment, but neither reads
    /// nor writes. Shows nothing and throws nothing. After selectDriver() neither the installed
    /// descriptions nor their folder count.
    static QString deviceExist();

    /// Opens the selected device. Returns true if it is open; otherwise returns false and, for a
    /// serial port, has shown a warning. Serial input that arrived before is discarded. A device
    /// that is already open is replaced without being closed first.
    ///
    /// With the device "File:" it may ask the user about waiting pen files and imports them before
    /// it returns. Returns false if the directory does not exist or cannot be watched, or if the
    /// user chose not to import. With a settle time every directory can be watched, and files that
    /// have not settled yet are imported later.
    bool open();

    /// Starts to deliver the reports of a serial port. To be called once after each successful
    /// open(). Does nothing for pen input, which needs no such call.
    void readReport();

    /// Closes the device. Returns true if a serial port was closed, after one closing report: both
    /// coordinates are the smallest positive normal double, the button number is 5 for a
    /// description with four buttons and 14 otherwise. Returns false for pen input and if there is
    /// no port.
    bool close();

    /// Returns whether the device is open: the serial port, or for pen input the watched directory.
    bool active() const;

    /// Sends the beep command in the selected driver's description to the port. Does nothing if
    /// there is no such command or no port; errors are not reported. A changed
    /// description file counts at the next call.
    void digitBeep();

    /// Decodes the bytes that were read last. Coordinates are in centimetres. Characters are not
    /// checked: malformed digits give whatever the arithmetic yields.
    DigitalReport parseReportText(ParseReportFlags flags);

    /// Returns the point in centimetres with the digits \a xDigits and \a yDigits, in ascending
    /// order of their positions. The exponents are the powers of ten of the leading digits.
    GeoPoint2D getCoordinate(QMap<int, char> xDigits, QMap<int, char> yDigits,
                             QMap<int, char> signs, short xExponent, short yExponent);

    /// Returns the signs of x and y, each +1 or -1.
    QList<short> getSign(QMap<int, char> signs);

    /// Returns the number of the button with \a code: 1 to 4 for a description with four buttons,
    /// 0 to 15 otherwise, 0 when no entry matches.
    short compareButtonNumber(ButtonValue code);

    // For fields without a value; each returns 0.
    short getUnused(QMap<int, char> characters);
    short getPoint(QMap<int, char> characters);
    short getCR(QMap<int, char> characters);
    short getLineFeed(QMap<int, char> characters);

private Q_SLOTS:
    void handleRead();

private:
    friend class DigipenFileDigitalization; // decodes pen commands with m_argument

    // An importer may be replaced while it imports. It then lives until its loop has ended.
    struct ReleaseImporter
    {
        Q_DECL_HIDDEN void operator()(DigipenFileDigitalization* importer) const;
    };

    Q_DECL_HIDDEN void useDescription(DigitizerArgument* description);
    Q_DECL_HIDDEN bool openPenFiles();
    Q_DECL_HIDDEN bool openSerialPort();
    Q_DECL_HIDDEN short closingCode() const;
    Q_DECL_HIDDEN bool isLectraE92() const;
    Q_DECL_HIDDEN void handOver();
    Q_DECL_HIDDEN void watchUnread();

    // Checked reading.
    Q_DECL_HIDDEN bool readsChecked() const;
    Q_DECL_HIDDEN void startCheckedInput();
    Q_DECL_HIDDEN void deliverNext();
    Q_DECL_HIDDEN void passOver(const QByteArray& bytes);
    Q_DECL_HIDDEN void handlePortEnd();
    Q_DECL_HIDDEN void tellPortLost();
    Q_DECL_HIDDEN void forgetInput();

    boost::scoped_ptr<DigitizerArgument> m_argument;
    const char* m_report_text;
    QString m_driver;
    QString m_device;
    bool m_extended_4_buttons = false;
    bool m_digitize_pieces_view = false;
    bool m_view_digitized_points = false;
    bool m_high_precision = false;
    bool m_port_open = false;
    boost::scoped_ptr<QextSerialPort> m_port;
    bool m_pen_mode = false;

public:
    /// The host's mode code. 50 to 59 put the pen input into its internal mode. Default: 0. Only
    /// the host writes it.
    int m_host_mode = 0;

private:
    std::unique_ptr<DigipenFileDigitalization, ReleaseImporter> m_pen_file;
    boost::scoped_ptr<ReportLayout> m_layout; // of m_argument
    bool m_checked_reading = false;
    boost::scoped_ptr<CheckedInput> m_checked; // of m_port, if that was opened with checked reading
    boost::scoped_ptr<InputEvents> m_events;   // if the host has asked for them
    boost::scoped_ptr<QTimer> m_unread;        // runs while input is unread
    int m_pen_file_settle_time = 0;            // milliseconds
    boost::scoped_ptr<DescribedDriver> m_given; // to selectDriver()
};

} // namespace MavSystem
