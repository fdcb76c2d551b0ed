// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

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

class QTimer;
class QextSerialPort;

namespace MavSystem {

class CheckedInput;
class DigipenFileDigitalization;
class InputEvents;
class ReportLayout;

/// What parseReportText() decodes: bit 0 the button number, bit 1 the coordinate.
using ParseReportFlags = int;

/// The driver: the one object through which a host uses a digitizing tablet or a digital pen.
///
/// Expected order of calls: instance(); selectDevice(), setters and saveConfig() as needed;
/// DigitalReport::registerHandle(); open(); on success readReport(); close() at the end. A host
/// that leaves the pen road calls close() before it opens a serial port, also after an open() that
/// returned false.
///
/// From inside the report handler a host may call any operation of this class, show a modal dialog
/// or throw. Thread: the thread of the host's event loop, all of it; nothing is locked.
class DIGITIZERGENERIC_EXPORT Digitizer : public QObject
{
    Q_OBJECT

public:
    /// Returns the one driver of the process, made at the first call; it lives until the process
    /// ends.
    static boost::shared_ptr<Digitizer> instance();

    /// Reads the saved settings (all empty or false when absent) and the description of the saved
    /// driver. Hosts use instance().
    Digitizer();
    ~Digitizer() override;

    /// Selects the description named \a driver and the serial port \a device, or the pen directory
    /// with the device name "File:". An unknown driver is not an error here; see deviceExist().
    /// An open device stays as it is, and nothing is saved.
    void selectDevice(const QString& driver, const QString& device);

    /// Writes the selection and the four options to the host's QSettings.
    void saveConfig();

    QString driver() const;
    QString device() const;

    /// Whether the digital pen's button 3 is a prefix. Takes effect at the next open().
    bool extended4Buttons() const;
    void setExtended4Buttons(bool on);

    /// Milliseconds for which a pen file must stand still, in size and time of change, before it is
    /// imported; for pen software that does not move its files in whole. By default 0: a file is
    /// imported as soon as it is there. A negative value counts as 0. Taken at the next open(); not
    /// saved.
    ///
    /// The directory is then looked at by a timer, at least once a second, as long as it is open.
    void setPenFileSettleTime(int milliseconds);
    int penFileSettleTime() const;

    /// Returns how many pen files of the last look at the directory are still to be imported, for
    /// hosts that import what is there and then end; 0 without a settle time.
    int unsettledPenFiles() const;

    // The three options below are kept and saved for the host; the library does not use them.
    bool dgitizePiecesView() const;
    void setDgitizePiecesView(bool on);
    bool viewDigizedPoints() const;
    void setViewDigizedPoints(bool on);
    bool highPrecision() const;
    void setHighPrecision(bool on);

    /// Whether the serial input is read report by report, each checked against the template. Off by
    /// default, taken at the next open(), not one of the saved settings. The "Lectra E92", and a
    /// driver whose template has no or more than 512 characters, is read without it.
    ///
    /// Off: a report is read when exactly one is waiting, whatever its characters are; reports that
    /// arrive together stay unread until the port is opened again.
    ///
    /// On: each report that fits the template is handed over by itself, in order, however many
    /// arrived together; what does not fit is passed over and told by inputEvents(). A template
    /// without line ends, in which a shifted report could fit too, has its reports handed over when
    /// the line has paused (150 ms and four characters). Not promised: damage that leaves another
    /// well-formed report, a changed digit for instance, cannot be seen.
    bool checkedReading() const;
    void setCheckedReading(bool on);

    /// Returns what tells of passed-over bytes, unread input and a lost port. The driver owns it;
    /// it lives as long as the driver.
    InputEvents* inputEvents();

    /// Returns "No Error has occurred" when the selected device can be used; otherwise the reason:
    /// "Digitizer Not Present..." (translated) when no installed description has the driver's name,
    /// or the serial port's error text.
    ///
    /// Copies the shipped descriptions into the folder "generated" of the host's application data
    /// location when that folder exists and is empty. Opens the port for a moment; neither reads
    /// nor writes. Shows nothing and throws nothing.
    static QString deviceExist();

    /// Opens the selected device. Returns true if it is open; otherwise returns false, and for a
    /// serial port has shown a warning. Input that arrived before is discarded. A device that is
    /// open already is replaced without being closed first.
    ///
    /// With the device "File:" it may ask the user about waiting pen files and imports them before
    /// it returns; false then means that the directory is not there or cannot be watched, or that
    /// the user chose not to import. With a settle time it can always be watched, and files that do
    /// not stand still yet are imported later.
    bool open();

    /// Starts the delivery of a serial port's reports. To be called once after each open(); without
    /// effect on the pen road, where reports come by themselves.
    void readReport();

    /// Closes the device. Returns true if a serial port was closed, after one closing report: both
    /// coordinates the smallest positive normal double, button number 5 for a description with four
    /// buttons and 14 otherwise. Returns false on the pen road and when no port is there.
    bool close();

    /// Returns whether the device is open: the port on the serial road, the watch on the pen road.
    bool active() const;

    /// Sends the beep command of the selected driver's description to the port. Does nothing when
    /// there is no such command or no port. Reports nothing. Reads the description file anew.
    void digitBeep();

    /// Decodes the text of the last chunk that was read. Coordinates are centimetres. No character
    /// is checked: malformed digits give whatever value the arithmetic yields.
    DigitalReport parseReportText(ParseReportFlags flags);

    /// Returns the point in centimetres whose digits \a xDigits and \a yDigits hold in ascending
    /// order of their positions. The exponents are the powers of ten of the leading digits.
    GeoPoint2D getCoordinate(QMap<int, char> xDigits, QMap<int, char> yDigits,
                             QMap<int, char> signs, short xExponent, short yExponent);

    /// Returns the signs of x and y, each +1 or -1.
    QList<short> getSign(QMap<int, char> signs);

    /// Returns the number of the button with \a code: 1 to 4 for a description with four buttons,
    /// 0 to 15 otherwise, 0 when no entry matches.
    short compareButtonNumber(ButtonValue code);

    // Fields that carry no value; each returns 0.
    short getUnused(QMap<int, char> characters);
    short getPoint(QMap<int, char> characters);
    short getCR(QMap<int, char> characters);
    short getLineFeed(QMap<int, char> characters);

private Q_SLOTS:
    void handleRead();

private:
    friend class DigipenFileDigitalization; // decodes pen commands with m_argument

    // An importer may be replaced while it imports; it then lives until its loop has ended.
    struct ReleaseImporter
    {
        Q_DECL_HIDDEN void operator()(DigipenFileDigitalization* importer) const;
    };

    Q_DECL_HIDDEN bool openPenFiles();
    Q_DECL_HIDDEN bool openSerialPort();
    Q_DECL_HIDDEN void applyPortSettings();
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
    /// The host's mode code; 50 to 59 put the pen road into its internal mode. Written by the host
    /// only.
    int m_host_mode = 0;

private:
    std::unique_ptr<DigipenFileDigitalization, ReleaseImporter> m_pen_file;
    boost::scoped_ptr<ReportLayout> m_layout; // of m_argument
    bool m_checked_reading = false;
    boost::scoped_ptr<CheckedInput> m_checked; // of m_port, when it was opened with checked reading
    boost::scoped_ptr<InputEvents> m_events;   // when the host has asked for them
    boost::scoped_ptr<QTimer> m_unread;        // runs while input is unread
    int m_pen_file_settle_time = 0;            // milliseconds
};

} // namespace MavSystem
