// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/Pieces/Piece.h"
#include "ReferenceHost/Pieces/ReportWriter.h"

#include <QCommandLineOption>
#include <QCommandLineParser>

namespace ReferenceHost {

/// The output options of the commands.

/// The option --format.
QCommandLineOption formatOption();

/// Returns the format given, or Text. Throws a CommandError with ExitUsage for an unknown one.
ReportWriter::Format formatValue(const QCommandLineParser& parser);

/// The option --picture.
QCommandLineOption pictureOption();

/// Returns the path given, or an empty text. Throws a CommandError if nothing can be written there,
/// so that the user knows before any work is done.
QString writablePicture(const QCommandLineParser& parser);

/// Throws a CommandError if the file that \a option names exists.
void refuseExisting(const QCommandLineParser& parser, const QString& option);

/// Draws \a pieces to \a path and returns the exit status. Does nothing if the path is empty.
/// Prints an error if it fails.
int savePicture(const QVector<Piece>& pieces, const QString& path);

} // namespace ReferenceHost
