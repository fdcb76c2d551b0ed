// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "DigitizerGeneric/File_Digital/DigipenFileDigitalization.h"
#include "DigitizerGeneric/File_Digital/DigipenState_4ex.h"
#include "Fuzzing/FuzzTarget.h"
#include "support/DescriptionBuilder.h"
#include "support/PenModel.h"
#include "support/TestHost.h"

#include <climits>
#include <cstdlib>
#include <tuple>
#include <vector>

using namespace MavSystem;

namespace {

using Report = std::tuple<int, double, double>;

/// An input: a byte for the family, then files parted by 0xff, each with a byte for the mode first.
struct Input
{
    explicit Input(const QByteArray& bytes)
        : extended(!bytes.isEmpty() && bytes.at(0) & 1), files(bytes.mid(1).split('\xff').mid(0, 4))
    {}
    bool isInternal(int file) const
    {
        return !files.at(file).isEmpty() && files.at(file).at(0) & 1;
    }
    bool extended;
    QList<QByteArray> files;
};

std::vector<std::string> linesOf(const QByteArray& file)
{
    std::vector<std::string> lines;
    for (int begin = 1, end; begin < file.size(); begin = end) {
        const int lineFeed = file.indexOf('\n', begin);
        end = lineFeed < 0 ? file.size() : lineFeed + 1;
        const QByteArray line = file.mid(begin, end - begin);
        lines.emplace_back(line.constData(), qstrnlen(line.constData(), uint(line.size())));
    }
    return lines;
}

/// Appends the reports of whole commands, at one line per millimetre.
void appendReports(std::vector<Report>& reports, const std::string& commands)
{
    static const QRegularExpression command(QStringLiteral("(\\d)(-?\\d+) (-?\\d+)\n\r"));
    const auto centimetres = [](const QString& number) {
        return std::max(0, number.toInt()) / 10.0;
    };
    for (auto found = command.globalMatch(QString::fromStdString(commands)); found.hasNext();) {
        const auto match = found.next();
        reports.emplace_back(match.captured(1).toInt(), centimetres(match.captured(2)),
                             centimetres(match.captured(3)));
    }
}

// Without the marker the line's own first characters are in its place.
int numberAfter(const std::string& line, std::size_t marker, std::size_t skipped)
{
    const std::size_t start = (marker == std::string::npos ? 0 : marker + 1) + skipped;
    const long long number = std::strtoll(line.c_str() + std::min(start, line.size()), nullptr, 10);
    return int(std::clamp<long long>(number, INT_MIN, INT_MAX));
}

// The commands of a line, or of the end of a piece where it is empty.
std::string commandsOf(const std::string& line, PenModel& model)
{
    if (line.empty())
        return model.end();
    const std::size_t first = line.find(':');
    const std::size_t second = first == std::string::npos ? first : line.find(':', first + 1);
    if (line[0] == 'A')
        model.button(numberAfter(line, line.find('-'), 1));
    if (line[0] == 'X')
        model.position(std::int16_t(numberAfter(line, first, 0)),
                       std::int16_t(numberAfter(line, second, 0)));
    return std::exchange(model.written, {});
}

std::vector<Report> byModel(const Input& input)
{
    std::vector<Report> reports;
    const QString initial = input.extended ? QStringLiteral("Line4") : QStringLiteral("Line");
    PenModel model(initial);
    for (int file = 0; file < input.files.size(); ++file) {
        const std::vector<std::string> lines = linesOf(input.files.at(file));
        model.internal = input.isInternal(file);
        bool done = false;
        for (std::size_t index = 0; !done; ++index) {
            const std::string line = index < lines.size() ? lines[index] : std::string();
            const std::string commands = commandsOf(line, model);
            appendReports(reports, commands);
            done = line.empty() && commands.empty();
        }
        model.startFile(initial);
    }
    return reports;
}

Report reportOf(const GeoPoint2D& point, int button)
{
    return {button, point.x(), point.y()};
}

// Every second command by the step with field maps, when that is wanted.
std::vector<Report> byImport(const Input& input, bool withMaps, TestHost& host)
{
    std::vector<Report> reports;
    Digitizer& digitizer = *Digitizer::instance();
    DigipenFileDigitalization importer(&digitizer, input.extended);
    ButtonValue button{{' ', ' ', '\0'}};
    DigitalReport::registerHandle([&](const DigitalReport& report) {
        reports.push_back(reportOf(report.coordinate(), report.m_button_number));
        QMap<int, char> x;
        QMap<int, char> y;
        if (withMaps && importer.readingDigitizingCommand(button, x, y))
            reports.push_back(reportOf(
                digitizer.getCoordinate(x, y, {}, short(x.size() - 1), short(y.size() - 1)),
                digitizer.compareButtonNumber(button)));
    });
    t_DigipenState_4ex::m_curve = false;
    for (int file = 0; file < input.files.size(); ++file) {
        digitizer.m_host_mode = input.isInternal(file) ? 50 : 49;
        host.write(QStringLiteral("pen/a.dat"), input.files.at(file).mid(1));
        importer.analyzerDigitPenFile(host.path(QStringLiteral("pen")));
        require(QFile::remove(host.path(QStringLiteral("pen/a.txt"))), "imported");
    }
    DigitalReport::unregisterHandle();
    require(host.errors.isEmpty(), "no errors");
    return reports;
}

} // namespace

// The lines of pen files: the import, with both of its steps, gives what a simple model gives.
void fuzz(const QByteArray& input)
{
    static TestHost host;
    host.writeDescription(QStringLiteral("a"), DescriptionBuilder().resolution(1, "LPMM").xml());
    Digitizer::instance()->selectDevice(QStringLiteral("A"), QStringLiteral("File:"));
    const Input read(input);
    const std::vector<Report> expected = byModel(read);
    require(byImport(read, false, host) == expected, "the import");
    require(byImport(read, true, host) == expected, "the step with field maps");
}
