// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DigitizerGeneric/Digitizer/DigitalReport.h"

#include <QByteArray>

#include <optional>
#include <random>

/// Reports that carry their number, so that each one that is handed over says which one it is.
namespace NumberedReport {

inline constexpr int largest = 9999999;

/// The tablet that sends them, which also numbers a pen's buttons: one count is 0.1 mm.
inline constexpr char description[] =
    "<d name='Soak'><ioPort><serial baudrate='19200' databit='8' parity='None' stopbit='1' "
    "flowctrl='none'/></ioPort><resolution unit='LPMM'>10</resolution>"
    "<reportFormat length='19'>XXXXXXXUYYYYYYYUBCL</reportFormat><buttons count='4' length='1'>"
    "<button>1</button><button>2</button><button>3</button><button>4</button></buttons></d>";

/// Returns the bytes of report \a number, which is 0 to largest.
QByteArray bytesOf(int number);

/// Returns what the host must get for \a bytes, or nothing where they do not fit the template.
std::optional<MavSystem::DigitalReport> decoded(const QByteArray& bytes);

/// Returns the number of \a report, or -1 when it is none of these.
int numberOf(const MavSystem::DigitalReport& report);

/// Returns whether both have the same point, to the last bit, and the same button.
bool isSame(const MavSystem::DigitalReport& one, const MavSystem::DigitalReport& other);

/// Returns \a bytes with one of them changed or lost, or with one more anywhere.
QByteArray damaged(QByteArray bytes, std::mt19937& random);

/// Returns in words what makes \a damagedBytes, which fit the template, differ from report
/// \a number.
const char* damageKind(int number, const QByteArray& damagedBytes);

} // namespace NumberedReport
