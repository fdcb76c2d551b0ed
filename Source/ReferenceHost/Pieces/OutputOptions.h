// SPDX-FileCopyrightText: 2026 The DigitizerGeneric developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ReferenceHost/Pieces/Piece.h"
#include "ReferenceHost/Pieces/ReportWriter.h"

#include <QCommandLineOption>
#include <QCommandLineParser>

namespace ReferenceHost {

/// What becomes of points: the options that the commands that take points share.

/// The option --format.
QCommandLineOption formatOption();

/// Returns the format given, or Text. Throws a CommandError with ExitUsage for an unknown one.
ReportWriter::Format formatValue(const QCommandLineParser& parser);

/// The option --picture.
QCommandLineOption pictureOption();

/// Returns the path given, or an empty text. Throws a CommandError when nothing can be written
/// there: found out before anything is traced, it costs nobody's work.
QString writablePicture(const QCommandLineParser& parser);

/// Draws \a pieces to \a path and returns the exit status; an empty path is no picture. Says what
/// went wrong.
int savePicture(const QVector<Piece>& pieces, const QString& path);

} // namespace ReferenceHost
