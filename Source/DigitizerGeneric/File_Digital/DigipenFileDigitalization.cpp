// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/File_Digital/DigipenFileDigitalization.h"

#include "DigitizerGeneric/Digitizer/Diagnostics.h"
#include "DigitizerGeneric/Digitizer/DigitalReport.h"
#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "DigitizerGeneric/Digitizer/FieldDecoding.h"
#include "DigitizerGeneric/File_Digital/ConvertedCommandFields.h"
#include "DigitizerGeneric/File_Digital/ConvertedCommandInterpreter.h"
#include "DigitizerGeneric/File_Digital/DigipenDataConverter.h"
#include "DigitizerGeneric/File_Digital/DigipenState.h"
#include "DigitizerGeneric/File_Digital/DigipenStringAnalyzer.h"
#include "DigitizerGeneric/File_Digital/ImportTurns.h"
#include "DigitizerGeneric/File_Digital/InternalMode.h"
#include "DigitizerGeneric/File_Digital/OpenPenFile.h"
#include "DigitizerGeneric/File_Digital/PenFilePaths.h"
#include "DigitizerGeneric/File_Digital/PenFileSettling.h"
#include "DigitizerGeneric/File_Digital/SortedFileNames.h"
#include "DigitizerGeneric/File_Digital/WatcherReads.h"
#include "MavCore/MavApplication.h"

#include <QCoreApplication>
#include <QDirIterator>
#include <QFileInfo>

#include <cerrno>
#include <chrono>
#include <exception>

namespace MavSystem {

namespace {

// Values of m_reading_state.
enum ReadingState {
    NoFile = 0,
    ReadingLines = 1,
    CommandsPending = 2,
};

// Answers to the question about waiting files; any other is "Cancel".
enum Answer {
    Import = 0,
    Delete = 1,
    Cancel = 2,
};

// Milliseconds between two looks at the directory, whatever the settle time.
constexpr int shortestInterval = 50;
constexpr int longestInterval = 1000;

QStringList penFilePatterns()
{
    return {penFilePattern()};
}

// Whatever the host's box throws, the import that it tells about goes on.
void showError(const QString& text)
{
    qCDebug(lcPen).noquote() << "error shown:" << text;
    try {
        MavApplication::instance()->displayError(text, QString(), nullptr);
    } catch (...) {
        qCDebug(lcPen) << "the error display threw an exception";
    }
}

QString whyNotWatched(int error)
{
    return error == ENOSPC ? QStringLiteral("the limit of watches of this user is reached")
                           : qt_error_string(error);
}

// Milliseconds of a clock that never goes back.
qint64 now()
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(
               std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

// Looks at the pen files of the directory; returns those that have stood still.
QVector<PenFileSettling::File> look(const QString& directory, PenFileSettling& settling)
{
    const qint64 begun = now();
    QVector<PenFileSettling::File> files;
    for (const QStringRef& name : SortedFileNames(directory, penFilePatterns())) {
        const PenFileStamp stamp = PenFileStamp::of(joinedPath(directory, name.toString()));
        if (stamp.exists())
            files.push_back({name.toString(), stamp});
    }
    return settling.look(files, begun, now());
}

} // namespace

/// Keeps the importer alive while one of its operations is under way: the host's handler and the
/// dialogs that these run may replace it.
class DigipenFileDigitalization::InUse
{
public:
    explicit InUse(DigipenFileDigitalization& importer) : m_importer(importer)
    {
        ++m_importer.m_uses;
    }
    ~InUse()
    {
        // Later, since its watcher may be in the middle of announcing a change.
        if (--m_importer.m_uses == 0 && m_importer.m_released)
            m_importer.deleteLater();
    }
    InUse(const InUse&) = delete;
    InUse& operator=(const InUse&) = delete;

private:
    DigipenFileDigitalization& m_importer;
};

DigipenFileDigitalization::DigipenFileDigitalization(Digitizer* digitizer, bool extended4Buttons)
    : m_analyzer(new t_DigipenStringAnalyzer(extended4Buttons
                                                 ? t_DigipenStringAnalyzer::CONVERSION_4EX
                                                 : t_DigipenStringAnalyzer::CONVERSION_STANDARD)),
      m_digitizer(digitizer),
      m_open_file(new OpenPenFile(m_file)),
      m_settling(new PenFileSettling)
{}

DigipenFileDigitalization::~DigipenFileDigitalization() = default;

void DigipenFileDigitalization::release()
{
    close();
    ImportTurns::instance().forget(this);
    m_released = true;
    if (m_uses == 0)
        delete this;
}

bool DigipenFileDigitalization::open()
{
    const InUse inUse(*this);
    m_directory = penDirectory();
    if (!QFileInfo::exists(m_directory)) {
        qCDebug(lcPen).noquote() << "there is no pen directory" << m_directory;
        return false;
    }
    m_settling->setSettleTime(m_digitizer->penFileSettleTime());
    if (m_settling->settleTime() > 0)
        look(m_directory, *m_settling);
    if (QDirIterator(m_directory, penFilePatterns()).hasNext()) {
        const int answer = askAboutWaitingFiles();
        if (answer == Delete)
            removeAllFileFromDirectory(m_directory, penFilePatterns());
        if (answer != Import) {
            m_settling->clear();
            return false;
        }
        analyzerDigitPenFile(m_directory);
    }
    // Replaced while it asked or imported: the directory is its successor's.
    return !m_released && startWatching();
}

// A box that throws has not been answered.
int DigipenFileDigitalization::askAboutWaitingFiles() const
{
    qCDebug(lcPen).noquote() << "entries are waiting in" << m_directory;
    try {
        const MavApplication* const host = MavApplication::instance();
        return host->confirmContinue(tr("Digitizer files are ready to be imported."), tr("Import"),
                                     tr("Import"), tr("Delete"), tr("Cancel"), host->mainWindow());
    } catch (...) {
        qCDebug(lcPen) << "the question threw an exception, which counts as Cancel";
        return Cancel;
    }
}

// The system's announcements tell neither of a file's growth nor of what happens on a server, so
// they are not used together with a settle time.
bool DigipenFileDigitalization::startWatching()
{
    const int settleTime = m_settling->settleTime();
    if (settleTime > 0) {
        connect(&m_timer, &QTimer::timeout, this, [this] { analyzerDigitPenFile(m_directory); });
        m_timer.setTimerType(Qt::PreciseTimer);
        m_timer.start(qBound(shortestInterval, settleTime, longestInterval));
    } else if (errno = 0; m_watcher.addPath(m_directory)) {
        neverWaitForChanges(m_watcher);
        connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this,
                &DigipenFileDigitalization::analyzerDigitPenFile);
    } else {
        qCDebug(lcPen).noquote() << m_directory << "cannot be watched:" << whyNotWatched(errno);
        return false;
    }
    m_active = true;
    return true;
}

bool DigipenFileDigitalization::close()
{
    const QStringList watched = m_watcher.directories();
    if (!watched.isEmpty())
        m_watcher.removePaths(watched);
    disconnect(&m_watcher, &QFileSystemWatcher::directoryChanged, this,
               &DigipenFileDigitalization::analyzerDigitPenFile);
    m_timer.stop();
    m_settling->clear();
    if (m_active)
        ImportTurns::instance().forget(this);
    m_active = false;
    return true;
}

bool DigipenFileDigitalization::active() const
{
    return m_active;
}

int DigipenFileDigitalization::unsettledFiles() const
{
    return m_settling->waiting();
}

void DigipenFileDigitalization::removeAllFileFromDirectory(QString directory, QStringList patterns)
{
    if (patterns.isEmpty())
        return; // it would match everything
    for (const QStringRef& name : SortedFileNames(directory, patterns)) {
        const QString path = joinedPath(directory, name.toString());
        if (!QFile::remove(path))
            qCDebug(lcPen).noquote() << path << "cannot be removed";
    }
}

void DigipenFileDigitalization::analyzerDigitPenFile(const QString& strPath)
{
    const InUse inUse(*this);
    ImportTurns& turns = ImportTurns::instance();
    if (turns.running()) {
        // It was replaced before its question was answered, and is deleted before it could run.
        if (m_released)
            return;
        qCDebug(lcPen).noquote() << "an import is under way;" << strPath << "waits for its end";
        turns.defer(this, strPath);
        return;
    }
    // Whatever leaves an import early must not block all later ones.
    struct Running
    {
        Running() { ImportTurns::instance().setRunning(true); }
        ~Running() { ImportTurns::instance().setRunning(false); }
    } const running;
    importDirectory(strPath);
    for (ImportTurns::Turn turn = turns.takeNext(); turn.importer; turn = turns.takeNext()) {
        const InUse nextInUse(*turn.importer);
        turn.importer->importDirectory(turn.path);
    }
}

void DigipenFileDigitalization::importDirectory(const QString& path)
{
    const QString directory = absoluteDirectory(path);
    if (m_settling->settleTime() > 0)
        return importSettled(directory);
    for (const QStringRef& name : SortedFileNames(directory, penFilePatterns()))
        importFile(joinedPath(directory, name.toString()));
}

void DigipenFileDigitalization::importSettled(const QString& directory)
{
    const auto settled = look(directory, *m_settling);
    // The interval counts from here: begun any earlier, the next look would come too early for what
    // this one saw first.
    if (m_timer.isActive())
        m_timer.start();
    for (const PenFileSettling::File& file : settled) {
        const QString path = joinedPath(directory, file.name);
        // The files before it may have taken their time.
        if (!PenFileStamp::of(path).sameContent(file.stamp))
            continue;
        importFile(path);
        const bool keepsName = m_file.fileName() == path && !m_open_file->replaced();
        if (keepsName)
            m_settling->setImported(file);
        else
            m_settling->forget(file.name);
    }
}

void DigipenFileDigitalization::importFile(const QString& path)
{
    m_file_name = path;
    ButtonValue button{{' ', ' ', '\0'}};
    DigitalReport report(0.0, 0.0);
    do {
        importStep(button, report);
    } while (m_reading_state != NoFile);
    closeAndModifyFileExtentionToTxt();
}

// A command is off the front of m_line before the host sees it, so an error that the host throws
// cannot bring the same command again.
void DigipenFileDigitalization::importStep(ButtonValue& button, DigitalReport& report)
{
    try {
        t_DigipenState::m_internal_mode = hostModeIsInternal();
        if (deliverStep(button, report))
            report.flush();
    } catch (const std::exception& error) {
        showError(QString::fromUtf8(error.what()));
    } catch (...) {
        showError(QCoreApplication::translate("MavSystem::MavApplication", "Unexpected Error"));
    }
}

// The same reading as readingDigitizingCommand(), without its field maps, which allocate for each
// digit.
bool DigipenFileDigitalization::deliverStep(ButtonValue& button, DigitalReport& report)
{
    return advance([&] {
        const ConvertedCommandFields fields = ConvertedCommandFields::of(m_line);
        button.m_code[0] = fields.code;
        GeoPoint2D point = FieldDecoding::coordinateOf(
            *m_digitizer->m_argument, fields.x, fields.y, FieldDecoding::Signs(),
            short(int(fields.x.size()) - 1), short(int(fields.y.size()) - 1));
        report.setCoordinate(point);
        report.m_button_number = m_digitizer->compareButtonNumber(button);
        m_line.erase(0, fields.length);
    });
}

bool DigipenFileDigitalization::readingDigitizingCommand(ButtonValue& button, QMap<int, char>& x,
                                                         QMap<int, char>& y)
{
    return advance([&] { t_ConvertedCommandInterpreter::interpreter(m_line, button, x, y); });
}

template <class TakeCommand>
bool DigipenFileDigitalization::advance(TakeCommand takeCommand)
{
    if (m_reading_state != CommandsPending && !fillLine())
        return false;
    const std::size_t pending = m_line.size();
    if (pending == 0)
        return false;
    takeCommand();
    // Text that is not consumed, for want of a carriage return, would be read without end.
    if (m_line.size() == pending)
        m_line.clear();
    m_reading_state = m_line.empty() ? ReadingLines : CommandsPending;
    return true;
}

// Fills m_line with the commands of the next line or of the end of the file, possibly none; returns
// false when no file is open or the file is done.
bool DigipenFileDigitalization::fillLine()
{
    if (m_reading_state == NoFile) {
        if (!m_open_file->open(m_file_name, m_settling->settleTime() > 0))
            return false;
        m_reading_state = ReadingLines;
    }
    if (readNextLine(m_line)) {
        m_analyzer->convert(m_line);
        return true;
    }
    if (m_analyzer->generateEndOfPieceInstructions(m_line))
        return true;
    finishFile();
    return false;
}

void DigipenFileDigitalization::finishFile()
{
    closeAndModifyFileExtentionToTxt();
    m_analyzer->m_converter->reset();
    m_reading_state = NoFile;
}

bool DigipenFileDigitalization::readNextLine(std::string& line)
{
    return m_open_file->nextLine(line);
}

void DigipenFileDigitalization::closeAndModifyFileExtentionToTxt()
{
    m_open_file->closeAndRename();
}

} // namespace MavSystem
