// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#include "DigitizerGeneric/Digitizer/Digitizer.h"
#include "DigitizerGeneric/File_Digital/ConvertedCommandInterpreter.h"
#include "DigitizerGeneric/File_Digital/DigipenDataConverter.h"
#include "DigitizerGeneric/File_Digital/DigipenFileDigitalization.h"
#include "DigitizerGeneric/File_Digital/DigipenState_4ex.h"
#include "DigitizerGeneric/File_Digital/DigipenStringAnalyzer.h"
#include "Fuzzing/FuzzTarget.h"
#include "support/DescriptionBuilder.h"
#include "support/TestHost.h"

#include <tuple>
#include <vector>

using namespace MavSystem;

namespace {

using Report = std::tuple<int, double, double>;
using Digits = QMap<int, char>;

/// An input: a byte for the family, then files parted by 0xff, each with a byte for the mode first.
struct Input
{
    explicit Input(const QByteArray& bytes)
        : extended(!bytes.isEmpty() && bytes.at(0) & 1), files(bytes.mid(1).split('\xff').mid(0, 4))
    {}
    bool isInternal(int file) const { return files.at(file).left(1) > "0"; }
    bool extended;
    QList<QByteArray> files;
};

Report reportOf(const GeoPoint2D& point, int button)
{
    return {button, point.x(), point.y()};
}

Report reportOf(const ButtonValue& button, const Digits& x, const Digits& y)
{
    Digitizer& digitizer = *Digitizer::instance();
    return reportOf(digitizer.getCoordinate(x, y, {}, short(x.size() - 1), short(y.size() - 1)),
                    digitizer.compareButtonNumber(button));
}

void setMode(bool internal)
{
    Digitizer::instance()->m_host_mode = internal ? 50 : 49;
    t_DigipenState::m_internal_mode = internal;
}

// The commands of a line; of an empty one, which is the end of a piece, possibly none.
std::string commandsOf(std::string line, t_DigipenStringAnalyzer& analyzer)
{
    if (line.empty())
        analyzer.generateEndOfPieceInstructions(line);
    else
        analyzer.convert(line);
    return line;
}

std::vector<Report> byParts(const Input& input)
{
    std::vector<Report> reports;
    t_DigipenState_4ex::m_curve = false;
    t_DigipenStringAnalyzer analyzer{t_DigipenStringAnalyzer::e_Type_Conversion(input.extended)};
    for (int file = 0; file < input.files.size(); ++file) {
        setMode(input.isInternal(file));
        // No line has this byte, which separates the files.
        auto lines = input.files.at(file).mid(1).replace('\n', "\n\xff").split('\xff');
        for (bool done = false; !done;) {
            // What follows a zero byte does not count.
            const std::string line = lines.isEmpty() ? "" : lines.takeFirst().constData();
            std::string commands = commandsOf(line, analyzer);
            done = line.empty() && commands.empty();
            ButtonValue button{{' ', ' ', '\0'}};
            for (Digits x, y; t_ConvertedCommandInterpreter::interpreter(commands, button, x, y);
                 x.clear(), y.clear())
                reports.push_back(reportOf(button, x, y));
        }
        analyzer.m_converter->reset();
    }
    return reports;
}

// Every second command by the step with field maps, when that is wanted.
std::vector<Report> byImport(const Input& input, bool withMaps, TestHost& host)
{
    std::vector<Report> reports;
    t_DigipenState_4ex::m_curve = false;
    DigipenFileDigitalization importer(Digitizer::instance().get(), input.extended);
    ButtonValue button{{' ', ' ', '\0'}};
    DigitalReport::registerHandle([&](const DigitalReport& report) {
        reports.push_back(reportOf(report.coordinate(), report.m_button_number));
        Digits x, y;
        if (withMaps && importer.readingDigitizingCommand(button, x, y))
            reports.push_back(reportOf(button, x, y));
    });
    for (int file = 0; file < input.files.size(); ++file) {
        setMode(input.isInternal(file));
        host.write("pen/a.dat", input.files.at(file).mid(1));
        importer.analyzerDigitPenFile(host.path("pen"));
        require(QFile::remove(host.path("pen/a.txt")), "imported");
    }
    DigitalReport::unregisterHandle();
    require(host.errors.isEmpty(), "no errors");
    return reports;
}

} // namespace

// The lines of pen files: the import, with both of its steps, gives what its parts give.
void fuzz(const QByteArray& input)
{
    static TestHost host;
    host.writeDescription("a", DescriptionBuilder().resolution(1, "LPMM").xml());
    Digitizer::instance()->selectDevice("A", "File:");
    const Input read(input);
    const std::vector<Report> expected = byParts(read);
    require(byImport(read, false, host) == expected, "the import");
    require(byImport(read, true, host) == expected, "the step with field maps");
}
